# Writes the program in the page PAGE to the file PROGRAM.
cmake_minimum_required(VERSION 3.25)

include("${CMAKE_CURRENT_LIST_DIR}/page_blocks.cmake")
page_blocks(program "${PAGE}" cpp WITH_LINES)
file(WRITE "${PROGRAM}" "${program}")
