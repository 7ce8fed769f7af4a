# Programs that a build for another machine needs on the building machine. They are built from the
# same sources, in a folder that all such builds share.
#
#   add_native_tools(NAME TARGET...)     a target NAME that builds these into NATIVE_TOOLS/bin

set(NATIVE_TOOLS ${PROJECT_SOURCE_DIR}/build/native-tools)

function(add_native_tools name)
    set(files ${ARGN})
    list(TRANSFORM files PREPEND ${NATIVE_TOOLS}/bin/)
    list(JOIN ARGN " " targets)
    add_custom_target(${name}
        COMMAND ${CMAKE_COMMAND} -D SOURCE=${PROJECT_SOURCE_DIR} -D BINARY=${NATIVE_TOOLS}
                -D "TARGETS=${targets}" -P ${PROJECT_SOURCE_DIR}/cmake/build_native_tools.cmake
        BYPRODUCTS ${files}
        COMMENT "Building for this machine: ${targets}"
        VERBATIM)
endfunction()
