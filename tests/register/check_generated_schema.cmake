# Runs the schema generator into OUTPUT and compares each script it writes
# with the checked-in one in EXPECTED. The scripts are compared as written:
# SQL is not reformatted.
file(REMOVE_RECURSE "${OUTPUT}")
file(MAKE_DIRECTORY "${OUTPUT}")
execute_process(COMMAND "${GENERATOR}" "${OUTPUT}" RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "generate_schema failed: ${status}")
endif()
file(GLOB generated RELATIVE "${OUTPUT}" "${OUTPUT}/*.sql")
if(NOT generated)
  message(FATAL_ERROR "generate_schema wrote no script into ${OUTPUT}")
endif()
foreach(name IN LISTS generated)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files "${OUTPUT}/${name}" "${EXPECTED}/${name}"
                  RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "${EXPECTED}/${name} is stale: run ${GENERATOR} ${EXPECTED}")
  endif()
endforeach()
