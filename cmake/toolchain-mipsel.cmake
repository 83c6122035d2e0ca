# Cross build for mipsel (32-bit little-endian MIPS, o32 ABI), the class of
# CPU the routers run, with tests run under qemu-user: here pointers are 4
# bytes and the station list's record is shorter than on the 64-bit hosts.
#   dpkg --add-architecture mipsel
#   apt-get install g++-mipsel-linux-gnu qemu-user libjson-c-dev:mipsel libgtest-dev:mipsel libgmock-dev:mipsel
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mipsel)
set(CMAKE_C_COMPILER mipsel-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER mipsel-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/mipsel-linux-gnu /usr/lib/mipsel-linux-gnu)
set(CMAKE_LIBRARY_ARCHITECTURE mipsel-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(CMAKE_PREFIX_PATH /usr/lib/mipsel-linux-gnu/cmake)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/mipsel-linux-gnu/pkgconfig:/usr/share/pkgconfig)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-mipsel;-L;/usr/mipsel-linux-gnu)
# qemu-user 7.2 crashes in mipsel programs that start threads through the
# dynamic loader: link the programs statically. A build of the library alone
# (its footprint) passes -DBLOBXLATE_STATIC_DEPS=OFF to link json-c as the
# router does, shared.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
if(NOT DEFINED BLOBXLATE_STATIC_DEPS)
  set(BLOBXLATE_STATIC_DEPS ON)
endif()
