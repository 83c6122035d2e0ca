# Finds json-c and defines JsonC::JsonC, for the build and, installed beside
# blobxlate's package files, for the projects that use it: each finds json-c
# where it lives on its own machine (CMAKE_PREFIX_PATH, CMAKE_FIND_ROOT_PATH,
# pkg-config), so no path of the build machine is carried over.
# BLOBXLATE_STATIC_DEPS takes the archive (a fully static build).
find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
  pkg_check_modules(PC_JSONC QUIET json-c)
endif()
find_path(JSONC_INCLUDE_DIR json-c/json.h HINTS ${PC_JSONC_INCLUDEDIR})
if(BLOBXLATE_STATIC_DEPS)
  find_library(JSONC_LIBRARY NAMES libjson-c.a HINTS ${PC_JSONC_LIBDIR})
else()
  find_library(JSONC_LIBRARY json-c HINTS ${PC_JSONC_LIBDIR})
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(JsonC REQUIRED_VARS JSONC_LIBRARY JSONC_INCLUDE_DIR)
if(JsonC_FOUND AND NOT TARGET JsonC::JsonC)
  add_library(JsonC::JsonC UNKNOWN IMPORTED)
  set_target_properties(JsonC::JsonC PROPERTIES IMPORTED_LOCATION "${JSONC_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${JSONC_INCLUDE_DIR}")
endif()
