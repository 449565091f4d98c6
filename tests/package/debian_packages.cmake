# Makes the Debian packages of a build, checks what they hold, unpacks them and prints a
# sample with the browser in them, which finds its libraries and its helper there.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE "${WORK_DIR}")
execute_process(COMMAND "${CPACK}" -G DEB -B "${WORK_DIR}/packages"
  WORKING_DIRECTORY "${BINARY_DIR}" COMMAND_ERROR_IS_FATAL ANY)

foreach(package IN ITEMS libtreemodel libtreemodel-dev treebrowser)
  file(GLOB file "${WORK_DIR}/packages/${package}_*.deb")
  execute_process(COMMAND dpkg-deb --extract "${file}" "${WORK_DIR}/root"
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND dpkg-deb --field "${file}" Depends
    OUTPUT_VARIABLE depends_of_${package} COMMAND_ERROR_IS_FATAL ANY)
  if(NOT EXISTS "${WORK_DIR}/root/usr/share/doc/${package}/copyright")
    message(SEND_ERROR "${package} does not bring the licence.")
  endif()
endforeach()

foreach(package IN ITEMS libtreemodel-dev treebrowser)
  if(NOT depends_of_${package} MATCHES "libtreemodel \\(= ")
    message(SEND_ERROR "${package} does not depend on libtreemodel: ${depends_of_${package}}")
  endif()
endforeach()
if(NOT depends_of_treebrowser MATCHES "libqt6svg6")
  message(SEND_ERROR "treebrowser does not bring what draws its icons: ${depends_of_treebrowser}")
endif()
if(depends_of_libtreemodel MATCHES "occt|gmsh|widgets")
  message(SEND_ERROR "The library needs more than Qt Core and Gui: ${depends_of_libtreemodel}")
endif()

execute_process(
  COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
    "${WORK_DIR}/root/usr/bin/treebrowser" --print "${SAMPLE}"
  OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
if(NOT printed MATCHES "25 bodies, .* 7 groups")
  message(FATAL_ERROR "The browser printed\n${printed}")
endif()
