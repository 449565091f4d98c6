# Installation, the CMake and pkg-config packages, and the Debian packages. The first three
# carry the library and the embedded kernel, which need Qt alone.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/treemodel")

install(TARGETS treemodel
  EXPORT treemodelTargets
  LIBRARY COMPONENT libtreemodel NAMELINK_COMPONENT libtreemodel-dev
  FILE_SET HEADERS COMPONENT libtreemodel-dev
  FILE_SET generated_headers COMPONENT libtreemodel-dev)

# Its headers are included as <embedded/...>, found beneath our own include folder.
install(TARGETS treemodel_embedded_kernel
  EXPORT treemodelTargets
  LIBRARY COMPONENT libtreemodel NAMELINK_COMPONENT libtreemodel-dev
  FILE_SET HEADERS
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/treemodel" COMPONENT libtreemodel-dev
  FILE_SET generated_headers
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/treemodel" COMPONENT libtreemodel-dev)

install(EXPORT treemodelTargets
  NAMESPACE treemodel::
  DESTINATION "${package_dir}"
  COMPONENT libtreemodel-dev)

configure_package_config_file(
  "${CMAKE_CURRENT_LIST_DIR}/treemodelConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/treemodelConfig.cmake"
  INSTALL_DESTINATION "${package_dir}")
write_basic_package_version_file(
  "${PROJECT_BINARY_DIR}/treemodelConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES
  "${PROJECT_BINARY_DIR}/treemodelConfig.cmake"
  "${PROJECT_BINARY_DIR}/treemodelConfigVersion.cmake"
  DESTINATION "${package_dir}"
  COMPONENT libtreemodel-dev)

file(RELATIVE_PATH prefix_path
  "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
foreach(name IN ITEMS treemodel treemodel-embedded-kernel)
  configure_file(
    "${CMAKE_CURRENT_LIST_DIR}/${name}.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
    COMPONENT libtreemodel-dev)
endforeach()

if(PROJECT_IS_TOP_LEVEL)
  include(TreemodelDebian)
endif()
