# cmake -DFIXTURE=<dir> -DWORK=<dir> -DLAYERS_MODULE=<file> -P ...
# Configures and builds the fixture: the build must stop at the lower layer's
# include of the upper layer's header, and report that include alone.
file(REMOVE_RECURSE ${WORK})
execute_process(
  COMMAND ${CMAKE_COMMAND} -S ${FIXTURE} -B ${WORK}
          -DQUORL_LAYERS_MODULE=${LAYERS_MODULE}
  RESULT_VARIABLE configured OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(NOT configured EQUAL 0)
  message(FATAL_ERROR "The fixture did not configure:\n${output}")
endif()
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}
  RESULT_VARIABLE built OUTPUT_VARIABLE output ERROR_VARIABLE output)
if(built EQUAL 0)
  message(FATAL_ERROR "An include that runs up the layers built:\n${output}")
endif()
if(NOT output MATCHES "Universal/Strings.cpp: includes Compiler/Types.h, which belongs to fixture_compiler")
  message(FATAL_ERROR "The build failed without naming the upward include:\n${output}")
endif()
if(output MATCHES "Compiler/Types.cpp: includes")
  message(FATAL_ERROR "A downward include was reported:\n${output}")
endif()
file(REMOVE_RECURSE ${WORK})
