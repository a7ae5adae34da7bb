# Run by CTest: the converter takes the sample document through gzip-
# compressed Fast Infoset, XML text, compressed XML and plain Fast Infoset,
# and ends with the text it started from; a document that breaks the
# schema fails.
function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "Command failed (${result}): ${ARGN}\n${out}\n${err}")
  endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
run(${CONVERT} ${SAMPLE} ${WORK_DIR}/first.xml)
run(${CONVERT} ${WORK_DIR}/first.xml ${WORK_DIR}/a.fi.gz)
run(${CONVERT} ${WORK_DIR}/a.fi.gz ${WORK_DIR}/b.xml.gz)
run(${CONVERT} ${WORK_DIR}/b.xml.gz ${WORK_DIR}/c.fi)
run(${CONVERT} ${WORK_DIR}/c.fi ${WORK_DIR}/last.xml)
run(${CMAKE_COMMAND} -E compare_files ${WORK_DIR}/first.xml ${WORK_DIR}/last.xml)

file(READ ${SAMPLE} sample)
string(REPLACE "green" "purple" broken "${sample}")
file(WRITE ${WORK_DIR}/broken.xml "${broken}")
execute_process(COMMAND ${CONVERT} ${WORK_DIR}/broken.xml ${WORK_DIR}/never.xml
                RESULT_VARIABLE result ERROR_VARIABLE err)
if(result EQUAL 0 OR NOT err MATCHES "not a member of the enumeration Colour" OR EXISTS ${WORK_DIR}/never.xml)
  message(FATAL_ERROR "The broken document was not refused (${result}): ${err}")
endif()
