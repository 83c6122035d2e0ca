# Chooses the libubox the library is built against and puts it behind one
# interface target, blobxlate_ubox_deps.
#  system  : libubox/blobmsg.h with libubox and libblobmsg_json, found through
#            CMAKE_PREFIX_PATH or pkg-config (the router build);
#  bundled : the project's own implementation of the same API in ubox/;
#  auto    : system when it is found, otherwise bundled.
# json-c and libubox are found by the modules in cmake/modules/, which are
# installed with the package so that its users find them the same way.
list(APPEND CMAKE_MODULE_PATH ${PROJECT_SOURCE_DIR}/cmake/modules)
find_package(JsonC REQUIRED)
set(BLOBXLATE_JSONC JsonC::JsonC)

set(BLOBXLATE_UBOX_KIND bundled)
if(NOT BLOBXLATE_UBOX STREQUAL "bundled")
  find_package(Libubox QUIET)
  if(Libubox_FOUND)
    set(BLOBXLATE_UBOX_KIND system)
  elseif(BLOBXLATE_UBOX STREQUAL "system")
    message(FATAL_ERROR "BLOBXLATE_UBOX=system but libubox (libubox/blobmsg.h, ubox, blobmsg_json) was not found")
  endif()
endif()
message(STATUS "blobxlate: using the ${BLOBXLATE_UBOX_KIND} libubox")

add_library(blobxlate_ubox_deps INTERFACE)
if(BLOBXLATE_UBOX_KIND STREQUAL "system")
  target_link_libraries(blobxlate_ubox_deps INTERFACE Libubox::blobmsg_json Libubox::ubox)
else()
  add_subdirectory(${PROJECT_SOURCE_DIR}/ubox ${PROJECT_BINARY_DIR}/ubox)
  target_link_libraries(blobxlate_ubox_deps INTERFACE blobxlate_ubox)
endif()
