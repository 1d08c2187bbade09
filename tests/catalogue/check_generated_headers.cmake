# Runs the class generator into OUTPUT and compares each file it writes with
# the checked-in one under ROOT. CLANG_FORMAT and STYLE format the output
# first, as the checked-in files are formatted.
file(REMOVE_RECURSE "${OUTPUT}")
file(MAKE_DIRECTORY "${OUTPUT}")
execute_process(COMMAND "${GENERATOR}" "${OUTPUT}" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "generate_classes failed: ${status}")
endif()
file(GLOB_RECURSE fresh RELATIVE "${OUTPUT}" "${OUTPUT}/*")
foreach(name IN LISTS fresh)
  execute_process(COMMAND "${CLANG_FORMAT}" "-style=file:${STYLE}" -i "${OUTPUT}/${name}"
                  RESULT_VARIABLE formatted)
  if(NOT formatted EQUAL 0)
    message(FATAL_ERROR "${CLANG_FORMAT} failed on ${name}")
  endif()
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files "${OUTPUT}/${name}" "${ROOT}/${name}"
                  RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "${name} is stale: run build/tools/generate_classes . and format it "
                        "with ${CLANG_FORMAT}")
  endif()
endforeach()
