# Cross build for s390x, a big-endian Debian architecture, with tests run
# under qemu-user: the wire form is big-endian while the records are native,
# and this is where a missing byte swap shows.
#   apt-get install g++-s390x-linux-gnu qemu-user libjson-c-dev:s390x libgtest-dev:s390x libgmock-dev:s390x
set(BLOBXLATE_CROSS_ARCH s390x)
include(${CMAKE_CURRENT_LIST_DIR}/toolchain-debian-cross.cmake)
set(BLOBXLATE_STATIC_DEPS ON)
