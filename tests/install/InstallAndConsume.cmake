# Script run by CTest: install, then build and run the consumer both ways.
include(${CMAKE_CURRENT_LIST_DIR}/../support/RunCommand.cmake)

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

foreach(required include/NxXmlLib9.h lib/libnxxmllib9.so lib/cmake/NxXmlLib9/NxXmlLib9Config.cmake
                 lib/pkgconfig/nxxmllib9.pc)
  if(NOT EXISTS ${prefix}/${required})
    message(FATAL_ERROR "Install lacks ${required}")
  endif()
endforeach()

# 1. CMake package.
run(${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/cmake-build
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} -DEXAMPLES_DIR=${EXAMPLES_DIR}
    "-DCMAKE_CXX_FLAGS=${CONSUMER_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${CONSUMER_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake-build)
run(${WORK_DIR}/cmake-build/consumer)
if(NOT LAST_OUTPUT MATCHES "<greeting>installed</greeting>")
  message(FATAL_ERROR "Unexpected consumer output: ${LAST_OUTPUT}")
endif()
file(GLOB example_programs ${WORK_DIR}/cmake-build/example_*)
foreach(program ${example_programs})
  run(${program})
endforeach()

# 2. pkg-config.
find_program(PKG_CONFIG pkg-config REQUIRED)
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
run(${PKG_CONFIG} --cflags --libs nxxmllib9)
string(STRIP "${LAST_OUTPUT}" pc_flags)
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
separate_arguments(extra UNIX_COMMAND "${CONSUMER_FLAGS}")
run(${CXX} ${extra} ${CONSUMER_DIR}/consumer.cpp ${pc_flags} -Wl,-rpath,${prefix}/lib -o ${WORK_DIR}/pc-consumer)
run(${WORK_DIR}/pc-consumer)
if(NOT LAST_OUTPUT MATCHES "<greeting>installed</greeting>")
  message(FATAL_ERROR "Unexpected pkg-config consumer output: ${LAST_OUTPUT}")
endif()
