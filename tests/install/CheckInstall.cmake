# Run by ctest: install the built library into a scratch prefix, then build and run a small
# outside program against it through find_package(Grafel), and once more through pkg-config.
file(REMOVE_RECURSE ${WORK_DIR})
set(prefix ${WORK_DIR}/prefix)

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BINARY_DIR} --prefix ${prefix})
foreach(f include/grafel/grafel.h lib/libgrafel.so lib/cmake/Grafel/GrafelConfig.cmake lib/pkgconfig/grafel.pc
          share/man/man1/grafel.1)
  if(NOT EXISTS ${prefix}/${f})
    message(FATAL_ERROR "install is missing ${f}")
  endif()
endforeach()

run(${CMAKE_COMMAND} -S ${SOURCE_DIR}/tests/install/consumer -B ${WORK_DIR}/consumer -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DVIEWER_SOURCE=${SOURCE_DIR}/examples/viewer.cpp)
run(${CMAKE_COMMAND} --build ${WORK_DIR}/consumer)
run(${WORK_DIR}/consumer/consumer)
# The viewer on a bundled example: it edits, saves and reads back, and says so.
execute_process(COMMAND ${WORK_DIR}/consumer/viewer ${SOURCE_DIR}/examples/polygons.zpx
                  ${WORK_DIR}/viewer-out.zpx
                RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
if(NOT rc EQUAL 0 OR NOT err STREQUAL "" OR NOT out MATCHES "read back:\n.*Obj2d triangle")
  message(FATAL_ERROR "the viewer example failed (${rc}):\n${out}\n${err}")
endif()

find_program(PKG_CONFIG pkg-config REQUIRED)
set(ENV{PKG_CONFIG_PATH} ${prefix}/lib/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs grafel OUTPUT_VARIABLE flags
                OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "pkg-config does not know grafel")
endif()
separate_arguments(flags UNIX_COMMAND "${flags}")
run(c++ ${SOURCE_DIR}/tests/install/consumer/main.cpp ${flags} -Wl,-rpath,${prefix}/lib
    -o ${WORK_DIR}/consumer-pc)
run(${WORK_DIR}/consumer-pc)
