# Finds the Gmsh library: the target Gmsh::Gmsh. Gmsh has no package configuration.
find_path(Gmsh_INCLUDE_DIR gmsh.h)
find_library(Gmsh_LIBRARY gmsh)
mark_as_advanced(Gmsh_INCLUDE_DIR Gmsh_LIBRARY)

if(Gmsh_INCLUDE_DIR)
  file(STRINGS "${Gmsh_INCLUDE_DIR}/gmsh.h" Gmsh_VERSION REGEX "^#define GMSH_API_VERSION \"")
  string(REGEX REPLACE ".*\"(.*)\".*" "\\1" Gmsh_VERSION "${Gmsh_VERSION}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Gmsh
  REQUIRED_VARS Gmsh_LIBRARY Gmsh_INCLUDE_DIR
  VERSION_VAR Gmsh_VERSION)

if(Gmsh_FOUND AND NOT TARGET Gmsh::Gmsh)
  add_library(Gmsh::Gmsh UNKNOWN IMPORTED)
  set_target_properties(Gmsh::Gmsh PROPERTIES
    IMPORTED_LOCATION "${Gmsh_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Gmsh_INCLUDE_DIR}")
endif()
