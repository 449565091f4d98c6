# Looks whether the files are there that the Markdown pages in SOURCE_DIR link to.
cmake_minimum_required(VERSION 3.25)

file(GLOB pages "${SOURCE_DIR}/*.md")
file(GLOB_RECURSE more_pages "${SOURCE_DIR}/docs/*.md" "${SOURCE_DIR}/examples/*.md")

foreach(page IN LISTS pages more_pages)
  cmake_path(GET page PARENT_PATH folder)
  file(READ "${page}" text)
  string(REPLACE "](" "\nlink:" text "${text}") # brackets would join the elements of the list
  string(REGEX MATCHALL "\nlink:[^ \n:#)]+[#)]" links "${text}")
  foreach(link IN LISTS links)
    string(REGEX REPLACE "\nlink:(.*)[#)]" "\\1" link "${link}")
    if(NOT EXISTS "${folder}/${link}")
      message(SEND_ERROR "${page}: there is no ${link}")
    endif()
  endforeach()
endforeach()
