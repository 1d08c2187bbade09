# Runs the class generator into OUTPUT and compares each file it writes with
# the checked-in one: headers under EXPECTED_INCLUDE, the factory under
# EXPECTED_SOURCE. CLANG_FORMAT and STYLE, when given, format the output first.
file(REMOVE_RECURSE "${OUTPUT}")
file(MAKE_DIRECTORY "${OUTPUT}/include" "${OUTPUT}/src")
execute_process(COMMAND "${GENERATOR}" "${OUTPUT}/include" "${OUTPUT}/src" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "generate_classes failed: ${status}")
endif()
# The checked-in files are formatted; format the fresh ones the same way.
if(CLANG_FORMAT)
  file(GLOB_RECURSE fresh "${OUTPUT}/*")
  execute_process(COMMAND "${CLANG_FORMAT}" "-style=file:${STYLE}" -i ${fresh})
endif()
foreach(kind include src)
  if(kind STREQUAL "include")
    set(expected "${EXPECTED_INCLUDE}")
  else()
    set(expected "${EXPECTED_SOURCE}")
  endif()
  file(GLOB generated RELATIVE "${OUTPUT}/${kind}" "${OUTPUT}/${kind}/*")
  foreach(name IN LISTS generated)
    execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files "${OUTPUT}/${kind}/${name}" "${expected}/${name}"
                    RESULT_VARIABLE differs)
    if(differs)
      message(FATAL_ERROR "${expected}/${name} is stale: run generate_classes include/varnock src/record")
    endif()
  endforeach()
endforeach()
