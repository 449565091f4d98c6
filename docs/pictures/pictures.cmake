# Draws each .dot of this folder as .svg by the program DOT if RENEW is given; otherwise looks
# whether each .svg was drawn from its .dot as it stands, which its first comment tells.
cmake_minimum_required(VERSION 3.25)

file(GLOB sources "${CMAKE_CURRENT_LIST_DIR}/*.dot")
foreach(source IN LISTS sources)
  cmake_path(REPLACE_EXTENSION source svg OUTPUT_VARIABLE picture)
  file(SHA1 "${source}" sum)
  set(mark "<!-- drawn from ${sum} -->\n")
  if(RENEW)
    execute_process(COMMAND "${DOT}" -Tsvg "${source}"
      OUTPUT_VARIABLE drawing COMMAND_ERROR_IS_FATAL ANY)
    string(REGEX REPLACE "(<svg )" "${mark}\\1" drawing "${drawing}")
    file(WRITE "${picture}" "${drawing}")
  else()
    file(READ "${picture}" drawing)
    string(FIND "${drawing}" "${mark}" found)
    if(found LESS 0)
      message(SEND_ERROR "${picture} is older than ${source}: build \"pictures\".")
    endif()
  endif()
endforeach()
