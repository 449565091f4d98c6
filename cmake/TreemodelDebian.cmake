# Debian packages by "cpack -G DEB", one for each component of the installation.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME treemodel)
set(CPACK_PACKAGE_VENDOR "The treemodel authors")
set(CPACK_PACKAGE_CONTACT "The treemodel authors <treemodel@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # Each package has one of its own.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL libtreemodel libtreemodel-dev)
if(TREEMODEL_BUILD_BROWSER)
  list(APPEND CPACK_COMPONENTS_ALL treebrowser)
  if(TARGET treemodel-import-mesh)
    list(APPEND CPACK_COMPONENTS_ALL treebrowser-mesh)
  endif()
endif()
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
  "${PROJECT_BINARY_DIR}/treemodel" "${PROJECT_BINARY_DIR}/embedded")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What is built on the libraries runs with later ones of the same major version.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_LIBTREEMODEL_DESCRIPTION "${PROJECT_DESCRIPTION}
The library, a kernel in memory, and their texts in other languages.")
set(CPACK_DEBIAN_LIBTREEMODEL_PACKAGE_NAME libtreemodel)
set(CPACK_DEBIAN_LIBTREEMODEL_PACKAGE_SECTION libs)

set(CPACK_DEBIAN_LIBTREEMODEL-DEV_DESCRIPTION
  "${PROJECT_DESCRIPTION} - development
Headers, CMake package and pkg-config files.")
set(CPACK_COMPONENT_LIBTREEMODEL-DEV_DEPENDS libtreemodel)
set(CPACK_DEBIAN_LIBTREEMODEL-DEV_PACKAGE_NAME libtreemodel-dev)
set(CPACK_DEBIAN_LIBTREEMODEL-DEV_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_LIBTREEMODEL-DEV_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")

set(CPACK_DEBIAN_TREEBROWSER_DESCRIPTION "Browser of CAD and mesh models as a live tree
Reads STEP, IGES and BREP, and meshes where treebrowser-mesh is installed.")
set(CPACK_COMPONENT_TREEBROWSER_DEPENDS libtreemodel)
# Its icons are drawn by a plugin, which no program links.
set(CPACK_DEBIAN_TREEBROWSER_PACKAGE_DEPENDS libqt6svg6)
set(CPACK_DEBIAN_TREEBROWSER_PACKAGE_NAME treebrowser)
set(CPACK_DEBIAN_TREEBROWSER_PACKAGE_SECTION science)
set(CPACK_DEBIAN_TREEBROWSER_PACKAGE_SUGGESTS treebrowser-mesh)

# Gmsh and all that it stands on are for those who want them; and it is under the GPL.
set(CPACK_DEBIAN_TREEBROWSER-MESH_DESCRIPTION "Reader of meshes and mesher for treebrowser
Reads MSH, Medit, VTK and Nastran, and meshes CAD models, by Gmsh.")
set(CPACK_COMPONENT_TREEBROWSER-MESH_DEPENDS treebrowser)
set(CPACK_DEBIAN_TREEBROWSER-MESH_PACKAGE_NAME treebrowser-mesh)
set(CPACK_DEBIAN_TREEBROWSER-MESH_PACKAGE_SECTION science)

# The licence goes with every copy. That of Gmsh stands before ours where Gmsh is linked.
file(READ "${PROJECT_SOURCE_DIR}/LICENSE" licence)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  set(terms "")
  if(component STREQUAL "treebrowser-mesh")
    string(CONCAT terms
      "The program links Gmsh, which is under the GNU General Public License, version 2 or later:\n"
      "/usr/share/common-licenses/GPL-2. So is the program as a whole. Its own sources are under\n"
      "this licence:\n\n")
  endif()
  set(copyright "${PROJECT_BINARY_DIR}/debian/${component}/copyright")
  file(CONFIGURE OUTPUT "${copyright}" CONTENT "@terms@@licence@" @ONLY)
  install(FILES "${copyright}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/${component}" COMPONENT ${component})
endforeach()

include(CPack)
