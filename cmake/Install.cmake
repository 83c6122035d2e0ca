# Installs the libraries, the header, a CMake package (find_package(blobxlate))
# and a pkg-config file, neither naming a path of the build machine: the
# package finds json-c and libubox with the find modules installed beside it,
# and blobxlate.pc gives its prefix relative to itself. With the bundled
# libubox its headers go under include/blobxlate/ and its archive is
# installed beside the library, so that consumers build against exactly the
# layer the library was built with.
set(BLOBXLATE_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/blobxlate)

install(FILES include/blobxlate.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
set(BLOBXLATE_EXPORTED blobxlate blobxlate_static blobxlate_ubox_deps)
set(BLOBXLATE_PC_REQUIRES "json-c")
if(BLOBXLATE_UBOX_KIND STREQUAL "bundled")
  list(APPEND BLOBXLATE_EXPORTED blobxlate_ubox)
  install(DIRECTORY ubox/include/libubox DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/blobxlate)
  set(BLOBXLATE_PC_CFLAGS "-I\${includedir}/blobxlate")
  set(BLOBXLATE_PC_LIBS_EXTRA "")
  set(BLOBXLATE_PC_LIBS_PRIVATE "-lblobxlate_ubox")
else()
  include(cmake/PkgConfigDirs.cmake)
  blobxlate_pc_dir(ubox_inc -I "${UBOX_INCLUDE_DIR}" "${CMAKE_INSTALL_FULL_INCLUDEDIR}" ${CMAKE_C_IMPLICIT_INCLUDE_DIRECTORIES})
  get_filename_component(ubox_libdir "${UBOX_LIBRARY}" DIRECTORY)
  blobxlate_pc_dir(ubox_lib -L "${ubox_libdir}" "${CMAKE_INSTALL_FULL_LIBDIR}" ${CMAKE_C_IMPLICIT_LINK_DIRECTORIES})
  set(BLOBXLATE_PC_CFLAGS "${ubox_inc}")
  set(BLOBXLATE_PC_LIBS_EXTRA "${ubox_lib}-lblobmsg_json -lubox")
  set(BLOBXLATE_PC_LIBS_PRIVATE "")
endif()

install(TARGETS ${BLOBXLATE_EXPORTED}
  EXPORT blobxlateTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT blobxlateTargets NAMESPACE blobxlate:: DESTINATION ${BLOBXLATE_CMAKE_DIR})

configure_package_config_file(cmake/blobxlateConfig.cmake.in
  ${PROJECT_BINARY_DIR}/blobxlateConfig.cmake
  INSTALL_DESTINATION ${BLOBXLATE_CMAKE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/blobxlateConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/blobxlateConfig.cmake ${PROJECT_BINARY_DIR}/blobxlateConfigVersion.cmake
  cmake/modules/FindJsonC.cmake cmake/modules/FindLibubox.cmake
  DESTINATION ${BLOBXLATE_CMAKE_DIR})

# The prefix relative to the .pc file, so that the installed tree can move.
file(RELATIVE_PATH BLOBXLATE_PC_UP "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(cmake/blobxlate.pc.in ${PROJECT_BINARY_DIR}/blobxlate.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/blobxlate.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# The example message of each type, for `blobxlate example` (component
# "tool", with the program).
if(BLOBXLATE_BUILD_TOOLS)
  install(DIRECTORY examples/messages/ DESTINATION ${CMAKE_INSTALL_DATADIR}/blobxlate/examples
    COMPONENT tool FILES_MATCHING PATTERN "type*.json")
endif()
