# Runs the PROGRAM of the page PAGE, which must print what the page says that it prints.
cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/page_blocks.cmake")
page_blocks(expected "${PAGE}" text)
execute_process(COMMAND "${PROGRAM}"
  OUTPUT_VARIABLE printed ERROR_VARIABLE complaints RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The program of ${PAGE} ended with ${result}:\n${printed}${complaints}")
endif()
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PAGE} says\n${expected}\nand its program says\n${printed}")
endif()
