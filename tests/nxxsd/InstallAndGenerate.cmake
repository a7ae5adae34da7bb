# Run by CTest: installs the build into a scratch prefix, checks that the
# compiler came along, and builds and runs the schema example through the
# installed package's generate function.
include(${CMAKE_CURRENT_LIST_DIR}/../support/RunCommand.cmake)

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(required bin/nxxsd bin/person_convert lib/cmake/NxXmlLib9/NxXmlLib9Generate.cmake)
  if(NOT EXISTS ${prefix}/${required})
    message(FATAL_ERROR "Install lacks ${required}")
  endif()
endforeach()
run(${prefix}/bin/nxxsd --help)

run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} -DEXAMPLES_DIR=${EXAMPLES_DIR}
    "-DCMAKE_CXX_FLAGS=${CONSUMER_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${CONSUMER_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/person_schema)
if(NOT LAST_OUTPUT MATCHES "the document read back is the same")
  message(FATAL_ERROR "Unexpected output: ${LAST_OUTPUT}")
endif()
