# SPDX-License-Identifier: MIT
# Runs a generator into OUTPUT (`[INTERPRETER] GENERATOR OUTPUT`) and compares every file it
# writes with the checked-in one at the same place under EXPECTED. C++ files
# are formatted first with CLANG_FORMAT and STYLE, when given, as the
# checked-in ones are; other files are compared as written. A stale file fails
# the check with the command that brings it up to date, REGENERATE.
file(REMOVE_RECURSE "${OUTPUT}")
file(MAKE_DIRECTORY "${OUTPUT}")
execute_process(COMMAND ${INTERPRETER} "${GENERATOR}" "${OUTPUT}" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "${GENERATOR} failed: ${status}")
endif()
file(GLOB_RECURSE fresh RELATIVE "${OUTPUT}" "${OUTPUT}/*")
if(NOT fresh)
  message(FATAL_ERROR "${GENERATOR} wrote nothing into ${OUTPUT}")
endif()
foreach(name IN LISTS fresh)
  if(CLANG_FORMAT AND name MATCHES "\\.(h|cpp)$")
    execute_process(COMMAND "${CLANG_FORMAT}" "-style=file:${STYLE}" -i "${OUTPUT}/${name}"
                    RESULT_VARIABLE formatted)
    if(NOT formatted EQUAL 0)
      message(FATAL_ERROR "${CLANG_FORMAT} failed on ${name}")
    endif()
  endif()
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files "${OUTPUT}/${name}"
                          "${EXPECTED}/${name}" RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "${EXPECTED}/${name} is stale: run ${REGENERATE}")
  endif()
endforeach()
