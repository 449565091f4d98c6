# OpenCASCADE's libraries by name. Its own package configuration refers to its viewer and
# to what that is made of, none of which is needed to read files.
find_path(OpenCASCADE_INCLUDE_DIR STEPCAFControl_Reader.hxx PATH_SUFFIXES opencascade occt)
mark_as_advanced(OpenCASCADE_INCLUDE_DIR)

add_library(treemodel_opencascade INTERFACE)
set(missing_parts "")
if(NOT OpenCASCADE_INCLUDE_DIR)
  list(APPEND missing_parts "headers")
endif()
foreach(library IN ITEMS
    TKXDESTEP TKXDEIGES TKXCAF TKSTEP TKSTEPBase TKIGES TKXSBase TKLCAF TKCDF
    TKBO TKPrim TKTopAlgo TKGeomBase TKBRep TKG3d TKMath TKernel)
  find_library(OpenCASCADE_${library} ${library})
  mark_as_advanced(OpenCASCADE_${library})
  if(OpenCASCADE_${library})
    target_link_libraries(treemodel_opencascade INTERFACE "${OpenCASCADE_${library}}")
  else()
    list(APPEND missing_parts ${library})
  endif()
endforeach()

if(missing_parts)
  list(JOIN missing_parts ", " missing_parts)
  message(FATAL_ERROR
    "The CAD importer needs OpenCASCADE 7.6 or later (missing: ${missing_parts}). "
    "On Debian install libocct-data-exchange-dev and libocct-ocaf-dev, "
    "or configure with -DTREEMODEL_BUILD_IMPORTERS=OFF.")
endif()
# A program loads only the libraries that it uses.
target_link_options(treemodel_opencascade INTERFACE "LINKER:--as-needed")
target_include_directories(treemodel_opencascade SYSTEM INTERFACE "${OpenCASCADE_INCLUDE_DIR}")
