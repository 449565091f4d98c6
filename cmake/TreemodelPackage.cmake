# Installation and the CMake package. The package carries the library and the
# embedded kernel, which need Qt alone.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/treemodel")

install(TARGETS treemodel
  EXPORT treemodelTargets
  FILE_SET HEADERS
  FILE_SET generated_headers)

# Its headers are included as <embedded/...>, found beneath our own include folder.
install(TARGETS treemodel_embedded_kernel
  EXPORT treemodelTargets
  FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/treemodel"
  FILE_SET generated_headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/treemodel")

install(EXPORT treemodelTargets
  NAMESPACE treemodel::
  DESTINATION "${package_dir}")

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
  DESTINATION "${package_dir}")
