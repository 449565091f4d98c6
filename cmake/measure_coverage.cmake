# Runs the tests of BINARY_DIR and prints what they reach of LIBRARY. Line by line it is written
# to the folder coverage_report.
find_program(PROFDATA NAMES llvm-profdata llvm-profdata-14 REQUIRED)
find_program(COV NAMES llvm-cov llvm-cov-14 REQUIRED)

set(profiles "${BINARY_DIR}/profiles")
file(REMOVE_RECURSE "${profiles}")
set(ENV{LLVM_PROFILE_FILE} "${profiles}/%p.profraw")
execute_process(
  COMMAND "${CMAKE_CTEST_COMMAND}" --output-on-failure --label-regex "^coverage$"
  WORKING_DIRECTORY "${BINARY_DIR}"
  COMMAND_ERROR_IS_FATAL ANY)

file(GLOB counts "${profiles}/*.profraw")
set(merged "${profiles}/all.profdata")
execute_process(
  COMMAND "${PROFDATA}" merge -sparse -o "${merged}" ${counts}
  COMMAND_ERROR_IS_FATAL ANY)

set(of_library "${LIBRARY}" "-instr-profile=${merged}"
  "-ignore-filename-regex=_autogen/|/usr/|KestoInterface.hpp")
set(report "${BINARY_DIR}/coverage_report")
file(REMOVE_RECURSE "${report}")
execute_process(
  COMMAND "${COV}" show ${of_library} -format=html "-output-dir=${report}"
    -show-branches=count -show-instantiations=false
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND "${COV}" report ${of_library} --show-region-summary=false --show-branch-summary
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(
  COMMAND "${COV}" export ${of_library} --summary-only
  OUTPUT_VARIABLE summary
  COMMAND_ERROR_IS_FATAL ANY)

set(least_lines 100)
set(least_branches 95)
foreach(kind IN ITEMS lines branches)
  string(JSON percent GET "${summary}" data 0 totals ${kind} percent)
  if(percent LESS least_${kind})
    message(SEND_ERROR "${percent} % of the ${kind} are reached, and not ${least_${kind}} %.")
  endif()
endforeach()
