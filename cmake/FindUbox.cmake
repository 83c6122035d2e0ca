# Chooses the libubox the library is built against and puts it behind one
# interface target, blobxlate_ubox_deps.
#  system  : libubox/blobmsg.h with libubox and libblobmsg_json, found through
#            CMAKE_PREFIX_PATH or pkg-config (the router build);
#  bundled : the project's own implementation of the same API in ubox/;
#  auto    : system when it is found, otherwise bundled.
find_package(PkgConfig QUIET)
# A fully static build (the big-endian run under qemu) needs the archive,
# which find_library picks by CMAKE_FIND_LIBRARY_SUFFIXES.
if(PKG_CONFIG_FOUND AND NOT BLOBXLATE_STATIC_DEPS)
  pkg_check_modules(JSONC QUIET IMPORTED_TARGET json-c)
endif()
if(TARGET PkgConfig::JSONC)
  set(BLOBXLATE_JSONC PkgConfig::JSONC)
else()
  find_path(JSONC_INCLUDE_DIR json-c/json.h REQUIRED)
  if(BLOBXLATE_STATIC_DEPS)
    find_library(JSONC_LIBRARY NAMES libjson-c.a REQUIRED)
  else()
    find_library(JSONC_LIBRARY json-c REQUIRED)
  endif()
  add_library(blobxlate_jsonc INTERFACE)
  target_include_directories(blobxlate_jsonc INTERFACE ${JSONC_INCLUDE_DIR})
  target_link_libraries(blobxlate_jsonc INTERFACE ${JSONC_LIBRARY})
  set(BLOBXLATE_JSONC blobxlate_jsonc)
endif()

set(BLOBXLATE_UBOX_KIND "")
if(NOT BLOBXLATE_UBOX STREQUAL "bundled")
  if(PKG_CONFIG_FOUND)
    pkg_check_modules(UBOX_PC QUIET libubox)
  endif()
  find_path(UBOX_INCLUDE_DIR libubox/blobmsg.h HINTS ${UBOX_PC_INCLUDE_DIRS})
  find_library(UBOX_LIBRARY ubox HINTS ${UBOX_PC_LIBRARY_DIRS})
  find_library(UBOX_JSON_LIBRARY blobmsg_json HINTS ${UBOX_PC_LIBRARY_DIRS})
  if(UBOX_INCLUDE_DIR AND UBOX_LIBRARY AND UBOX_JSON_LIBRARY)
    set(BLOBXLATE_UBOX_KIND system)
  elseif(BLOBXLATE_UBOX STREQUAL "system")
    message(FATAL_ERROR "BLOBXLATE_UBOX=system but libubox (libubox/blobmsg.h, ubox, blobmsg_json) was not found")
  endif()
endif()
if(NOT BLOBXLATE_UBOX_KIND)
  set(BLOBXLATE_UBOX_KIND bundled)
endif()
message(STATUS "blobxlate: using the ${BLOBXLATE_UBOX_KIND} libubox")

add_library(blobxlate_ubox_deps INTERFACE)
if(BLOBXLATE_UBOX_KIND STREQUAL "system")
  # SYSTEM: its utils.h defines __constructor and friends, which trip
  # -Werror=attributes where later headers use those names.
  target_include_directories(blobxlate_ubox_deps SYSTEM INTERFACE $<BUILD_INTERFACE:${UBOX_INCLUDE_DIR}>)
  # A libubox built into the source tree (the test stage's) is not one an
  # installed package can point at; a platform one is.
  string(FIND "${UBOX_INCLUDE_DIR}/" "${PROJECT_SOURCE_DIR}/" UBOX_IN_TREE)
  if(NOT UBOX_IN_TREE EQUAL 0)
    target_include_directories(blobxlate_ubox_deps SYSTEM INTERFACE $<INSTALL_INTERFACE:${UBOX_INCLUDE_DIR}>)
  endif()
  target_link_libraries(blobxlate_ubox_deps INTERFACE ${UBOX_JSON_LIBRARY} ${UBOX_LIBRARY} ${BLOBXLATE_JSONC})
else()
  add_subdirectory(${PROJECT_SOURCE_DIR}/ubox ${PROJECT_BINARY_DIR}/ubox)
  target_link_libraries(blobxlate_ubox_deps INTERFACE blobxlate_ubox)
endif()
