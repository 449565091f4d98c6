# What every target of the project has in common. Nothing here touches the
# directory scope, so that a parent project keeps its own settings.

# Compiler settings of one of our own targets: C++20, hidden symbols, all
# warnings. CMAKE_COMPILE_WARNING_AS_ERROR (preset "ci") makes them errors.
function(treemodel_target_defaults target)
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON
    CXX_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor>)
  target_compile_definitions(${target} PRIVATE
    QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS)
endfunction()

# A shared library of the project: exported symbols only, version in the name.
function(treemodel_add_library target)
  add_library(${target} SHARED)
  treemodel_target_defaults(${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${PROJECT_VERSION_MAJOR}
    LINK_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/exports.map")
  target_link_options(${target} PRIVATE
    "LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map")
endfunction()

# Adds the sources of the current folder to `target` and, for an installed
# library, its public headers (HEADERS), kept under the folder's path.
function(treemodel_sources target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "HEADERS;SOURCES")
  target_sources(${target}
    PUBLIC FILE_SET HEADERS
      BASE_DIRS "${PROJECT_SOURCE_DIR}"
      FILES ${arg_HEADERS}
    PRIVATE ${arg_SOURCES})
endfunction()
