# A Debian cross build for the architecture the including toolchain file
# names in BLOBXLATE_CROSS_ARCH (its multiarch name and its qemu-user), with
# the target's libraries from multiarch packages and the tests run under
# qemu-user. qemu-user 7.2 crashes in the dynamic loader of some targets and
# in dynamically linked threaded programs of others: programs are linked
# statically.
set(BLOBXLATE_CROSS_TRIPLET ${BLOBXLATE_CROSS_ARCH}-linux-gnu)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${BLOBXLATE_CROSS_ARCH})
set(CMAKE_C_COMPILER ${BLOBXLATE_CROSS_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${BLOBXLATE_CROSS_TRIPLET}-g++)
set(CMAKE_FIND_ROOT_PATH /usr/${BLOBXLATE_CROSS_TRIPLET} /usr/lib/${BLOBXLATE_CROSS_TRIPLET})
set(CMAKE_LIBRARY_ARCHITECTURE ${BLOBXLATE_CROSS_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE BOTH)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
set(CMAKE_PREFIX_PATH /usr/lib/${BLOBXLATE_CROSS_TRIPLET}/cmake)
set(ENV{PKG_CONFIG_LIBDIR} /usr/lib/${BLOBXLATE_CROSS_TRIPLET}/pkgconfig:/usr/share/pkgconfig)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${BLOBXLATE_CROSS_ARCH};-L;/usr/${BLOBXLATE_CROSS_TRIPLET})
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
