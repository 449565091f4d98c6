# Builds the outside program in one of two ways and runs it: against the package
# installed from the build tree, or with the sources as a subproject.

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "Failed: ${command}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
set(options -G "${GENERATOR}" -D "CMAKE_CXX_COMPILER=${COMPILER}" -D "CMAKE_CXX_FLAGS=${CXX_FLAGS}")

if(WAY STREQUAL "installed")
  run(${CMAKE_COMMAND} --install "${BINARY_DIR}" --prefix "${WORK_DIR}/prefix")
  list(APPEND options -D "CMAKE_PREFIX_PATH=${WORK_DIR}/prefix")
else()
  list(APPEND options -D "TREEMODEL_SOURCE_DIR=${SOURCE_DIR}")
endif()

run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}/consumer" -B "${WORK_DIR}/build" ${options})
run(${CMAKE_COMMAND} --build "${WORK_DIR}/build")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/build/consumer")
run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen "${WORK_DIR}/build/consumer_with_a_kernel")
