# Builds the outside programs and runs them: against the CMake package or the pkg-config
# files installed from the build tree, or with the sources as a subproject.
cmake_minimum_required(VERSION 3.25)

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "Failed: ${command}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
if(NOT WAY STREQUAL "subproject")
  run(${CMAKE_COMMAND} --install "${BINARY_DIR}" --prefix "${WORK_DIR}/prefix")
endif()

if(WAY STREQUAL "pkgconfig")
  file(GLOB_RECURSE package_files "${WORK_DIR}/prefix/*.pc")
  list(GET package_files 0 package_file)
  cmake_path(GET package_file PARENT_PATH package_dir)
  cmake_path(GET package_dir PARENT_PATH library_dir)
  set(ENV{PKG_CONFIG_PATH} "${package_dir}")
  execute_process(
    COMMAND "${PKG_CONFIG}" --cflags --libs treemodel-embedded-kernel treemodel
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${CXX_FLAGS} ${flags}")
  run("${COMPILER}" -fPIC "${CMAKE_CURRENT_LIST_DIR}/consumer/consumer.cpp" ${flags}
    "-Wl,-rpath,${library_dir}" -o "${WORK_DIR}/consumer")
  run("${WORK_DIR}/consumer")
  return()
endif()

set(options -G "${GENERATOR}" -D "CMAKE_CXX_COMPILER=${COMPILER}" -D "CMAKE_CXX_FLAGS=${CXX_FLAGS}")

if(WAY STREQUAL "installed")
  list(APPEND options -D "CMAKE_PREFIX_PATH=${WORK_DIR}/prefix")
else()
  list(APPEND options -D "TREEMODEL_SOURCE_DIR=${SOURCE_DIR}")
endif()

run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${WORK_DIR}/build" ${options})
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/build/consumer")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/build/consumer_with_a_kernel")
