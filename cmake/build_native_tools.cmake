# Builds targets for the building machine, for use in builds for another one.
#
#   cmake -D SOURCE=folder -D BINARY=folder -D TARGETS="one two" -P build_native_tools.cmake
#
# Several builds may share the folder BINARY, also at the same time. Nothing is optimised: the
# programs run for seconds, and optimising them would take minutes.

cmake_minimum_required(VERSION 3.25)

file(MAKE_DIRECTORY ${BINARY})
file(LOCK ${BINARY}/lock GUARD PROCESS)
if(NOT EXISTS ${BINARY}/build.ninja)
    execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${BINARY} --preset linux
                            -D CMAKE_BUILD_TYPE=None
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
separate_arguments(targets UNIX_COMMAND "${TARGETS}")
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BINARY} --target ${targets}
                OUTPUT_VARIABLE log RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${log}")
endif()
