# Installs the built engine into a scratch prefix, then builds and runs the
# example host against it twice: found with find_package, and with
# pkg-config. Arguments: BUILD (the engine's build), SOURCE (ExampleHost),
# WORK (scratch directory), COMPILER (a C++ compiler).
file(REMOVE_RECURSE ${WORK})
set(PREFIX ${WORK}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status
    OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${out}\n${err}")
  endif()
  set(OUTPUT "${out}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX})
set(ENV{QUORL_PLUGIN} ${PREFIX}/lib/QuorlScriptPlugin.so)

run(${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK}/cmake-build
  -DCMAKE_PREFIX_PATH=${PREFIX} -DCMAKE_CXX_COMPILER=${COMPILER})
run(${CMAKE_COMMAND} --build ${WORK}/cmake-build)
run(${WORK}/cmake-build/example_host)
message(STATUS "find_package: ${OUTPUT}")

set(ENV{PKG_CONFIG_PATH} ${PREFIX}/lib/pkgconfig)
run(pkg-config --cflags --libs quorlscript)
separate_arguments(flags UNIX_COMMAND "${OUTPUT}")
run(${COMPILER} -std=c++17 ${SOURCE}/main.cpp ${flags} -o ${WORK}/pkg-config-host)
run(${WORK}/pkg-config-host)
message(STATUS "pkg-config: ${OUTPUT}")
