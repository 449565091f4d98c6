# Updates the .ts files from the sources in SOURCE_DIR; with CHECK_IN, a folder to work in,
# only looks whether that would change anything, and whether a translation is missing.
cmake_minimum_required(VERSION 3.25)

# Of which files each catalogue has the texts.
set(sources_of_treemodel treemodel)
set(sources_of_treebrowser browser/KernelSession.cpp browser/editing browser/items browser/window importers)

file(GLOB catalogues "${CMAKE_CURRENT_LIST_DIR}/*.ts")
foreach(catalogue IN LISTS catalogues)
  set(updated "${catalogue}")
  cmake_path(GET catalogue FILENAME name)
  string(REGEX MATCH "^[a-z]+" program "${name}")
  if(CHECK_IN)
    set(updated "${CHECK_IN}/${name}")
    file(COPY_FILE "${catalogue}" "${updated}")
  endif()
  execute_process(
    COMMAND "${LUPDATE}" -silent -no-obsolete -locations none -I . ${sources_of_${program}} -ts "${updated}"
    WORKING_DIRECTORY "${SOURCE_DIR}" COMMAND_ERROR_IS_FATAL ANY)
  if(CHECK_IN)
    file(SHA1 "${catalogue}" before)
    file(SHA1 "${updated}" after)
    if(NOT before STREQUAL after)
      message(SEND_ERROR "${name} does not have the texts of the sources: build \"treemodel_translations\".")
    endif()
    file(STRINGS "${catalogue}" unfinished REGEX "type=\"unfinished\"")
    if(name MATCHES "_" AND unfinished)
      message(SEND_ERROR "${name} lacks translations.")
    endif()
  endif()
endforeach()
