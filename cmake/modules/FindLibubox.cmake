# Finds the platform's libubox (libubox/blobmsg.h, libubox, libblobmsg_json)
# through CMAKE_PREFIX_PATH, CMAKE_FIND_ROOT_PATH or pkg-config, and defines
# Libubox::ubox and Libubox::blobmsg_json (which brings libubox and json-c).
# Installed beside blobxlate's package files, like FindJsonC.cmake.
find_package(JsonC QUIET)
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
  pkg_check_modules(UBOX_PC QUIET libubox)
endif()
find_path(UBOX_INCLUDE_DIR libubox/blobmsg.h HINTS ${UBOX_PC_INCLUDE_DIRS})
find_library(UBOX_LIBRARY ubox HINTS ${UBOX_PC_LIBRARY_DIRS})
find_library(UBOX_JSON_LIBRARY blobmsg_json HINTS ${UBOX_PC_LIBRARY_DIRS})
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Libubox REQUIRED_VARS UBOX_LIBRARY UBOX_JSON_LIBRARY UBOX_INCLUDE_DIR JsonC_FOUND)
if(Libubox_FOUND AND NOT TARGET Libubox::ubox)
  # Imported include directories are system ones for their users: libubox's
  # utils.h defines __constructor and friends, which would trip
  # -Werror=attributes where later headers use those names.
  add_library(Libubox::ubox UNKNOWN IMPORTED)
  set_target_properties(Libubox::ubox PROPERTIES IMPORTED_LOCATION "${UBOX_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${UBOX_INCLUDE_DIR}")
  add_library(Libubox::blobmsg_json UNKNOWN IMPORTED)
  set_target_properties(Libubox::blobmsg_json PROPERTIES IMPORTED_LOCATION "${UBOX_JSON_LIBRARY}"
    INTERFACE_LINK_LIBRARIES "Libubox::ubox;JsonC::JsonC")
endif()
