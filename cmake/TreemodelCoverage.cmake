# What the tests reach of the library, counted by clang in the source as it stands. The target
# "coverage" builds the tests, runs them and prints a table; it fails unless all of the lines
# and 95 % of the branches are reached. docs/coverage.md explains what is left.

option(TREEMODEL_COVERAGE "Build the target that measures the coverage of the library (clang)" OFF)
if(TREEMODEL_COVERAGE)
  add_custom_target(coverage
    COMMAND "${CMAKE_COMMAND}"
      -D "BINARY_DIR=${PROJECT_BINARY_DIR}"
      -D "LIBRARY=$<TARGET_FILE:treemodel>"
      -P "${PROJECT_SOURCE_DIR}/cmake/measure_coverage.cmake"
    USES_TERMINAL
    VERBATIM)
endif()

# Has the target count what is run of it.
function(treemodel_measure_coverage target)
  if(TREEMODEL_COVERAGE)
    target_compile_options(${target} PRIVATE -fprofile-instr-generate -fcoverage-mapping)
    target_link_options(${target} PRIVATE -fprofile-instr-generate)
  endif()
endfunction()

# Makes a test program one of those that are run for the count.
function(treemodel_count_towards_coverage test)
  if(TREEMODEL_COVERAGE)
    add_dependencies(coverage ${test})
    set_tests_properties(${test} PROPERTIES LABELS coverage)
  endif()
endfunction()
