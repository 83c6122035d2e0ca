# Cross build for s390x, a big-endian Debian architecture, with tests run
# under qemu-user: the wire form is big-endian while the records are native,
# and this is where a missing byte swap shows.
#   apt-get install g++-s390x-linux-gnu qemu-user libjson-c-dev:s390x libgtest-dev:s390x libgmock-dev:s390x
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR s390x)
set(CMAKE_C_COMPILER s390x-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER s390x-linux-gnu-g++)
set(CMAKE_FIND_ROOT_PATH /usr/s390x-linux-gnu /usr/lib/s390x-linux-gnu)
set(CMAKE_LIBRARY_ARCHITECTURE s390x-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(CMAKE_PREFIX_PATH /usr/lib/s390x-linux-gnu/cmake)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/s390x-linux-gnu/pkgconfig:/usr/share/pkgconfig)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-s390x;-L;/usr/s390x-linux-gnu)
# qemu-user 7.2 crashes in the dynamic loader of s390x binaries: link the
# programs statically.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(BLOBXLATE_STATIC_DEPS ON)
