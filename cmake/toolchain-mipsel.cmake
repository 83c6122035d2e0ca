# Cross build for mipsel (32-bit little-endian MIPS, o32 ABI), the class of
# CPU the routers run, with tests run under qemu-user: here pointers are 4
# bytes and the station list's record is shorter than on the 64-bit hosts.
#   dpkg --add-architecture mipsel
#   apt-get install g++-mipsel-linux-gnu qemu-user libjson-c-dev:mipsel libgtest-dev:mipsel libgmock-dev:mipsel
set(BLOBXLATE_CROSS_ARCH mipsel)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-debian-cross.cmake)
# A build of the library alone (its footprint) passes
# -DBLOBXLATE_STATIC_DEPS=OFF to link json-c as the router does, shared.
if(NOT DEFINED BLOBXLATE_STATIC_DEPS)
  set(BLOBXLATE_STATIC_DEPS ON)
endif()
