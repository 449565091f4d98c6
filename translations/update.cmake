# Updates the .ts files from the sources in SOURCE_DIR; with CHECK_IN, a folder to work in,
# only looks whether that would change anything.
cmake_minimum_required(VERSION 3.25)

file(GLOB catalogues "${CMAKE_CURRENT_LIST_DIR}/*.ts")
foreach(catalogue IN LISTS catalogues)
  set(updated "${catalogue}")
  if(CHECK_IN)
    cmake_path(GET catalogue FILENAME name)
    set(updated "${CHECK_IN}/${name}")
    file(COPY_FILE "${catalogue}" "${updated}")
  endif()
  execute_process(
    COMMAND "${LUPDATE}" -silent -no-obsolete -locations none -I . treemodel -ts "${updated}"
    WORKING_DIRECTORY "${SOURCE_DIR}" COMMAND_ERROR_IS_FATAL ANY)
  if(CHECK_IN)
    file(SHA1 "${catalogue}" before)
    file(SHA1 "${updated}" after)
    if(NOT before STREQUAL after)
      message(SEND_ERROR "${name} does not have the texts of the sources: build \"treemodel_translations\".")
    endif()
  endif()
endforeach()
