# Resources for Windows, compiled by the MinGW binutils on every host.
#
#   add_resource_library(TARGET FILE SOURCES a.rc ... [INCLUDES folder ...] [DEPENDS file ...]
#                        [OUTPUT_DIRECTORY folder])
#
# TARGET builds the resource-only PE library FILE in OUTPUT_DIRECTORY (the current binary folder
# when none is given) and has its full path in the target property RESOURCE_LIBRARY. The sources are
# UTF-8 and may #include headers; name headers, bitmaps and whatever else they read in DEPENDS. The
# library has no code: Windows loads it as a data file.
#
#   compile_resources(VARIABLE FOLDER SOURCES a.rc ... [INCLUDES folder ...] [DEPENDS file ...])
#
# compiles the sources to object files in FOLDER, listed in VARIABLE, for a library with code.

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686" AND WIN32)
    set(binutils i686-w64-mingw32)
else()
    set(binutils x86_64-w64-mingw32)
endif()
find_program(MINGW_WINDRES ${binutils}-windres)
find_program(MINGW_LD ${binutils}-ld)

function(compile_resources variable folder)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES;INCLUDES;DEPENDS")
    if(NOT MINGW_WINDRES OR NOT MINGW_LD)
        message(FATAL_ERROR "Resources need ${binutils}-windres and -ld; run scripts/setup")
    endif()
    set(includes "")
    foreach(include ${arg_INCLUDES})
        cmake_path(ABSOLUTE_PATH include BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
        list(APPEND includes "--include-dir=${include}")
    endforeach()
    set(depends "")
    foreach(path ${arg_DEPENDS})
        cmake_path(ABSOLUTE_PATH path BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
        list(APPEND depends ${path})
    endforeach()

    set(objects "")
    foreach(source ${arg_SOURCES})
        cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
        cmake_path(GET source STEM stem)
        cmake_path(GET source PARENT_PATH source_folder)
        set(object ${folder}/${stem}.res.o)
        # The project's own compiler is the preprocessor: MinGW's is not needed for its binutils.
        add_custom_command(
            OUTPUT ${object}
            COMMAND ${CMAKE_COMMAND} -E make_directory ${folder}
            COMMAND ${MINGW_WINDRES} --preprocessor=${CMAKE_C_COMPILER} --preprocessor-arg=-E
                    --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED --codepage=65001
                    --include-dir=${source_folder} ${includes}
                    --input=${source} --output=${object} --output-format=coff
            DEPENDS ${source} ${depends}
            COMMENT "Compiling resources ${stem}.rc"
            VERBATIM)
        list(APPEND objects ${object})
    endforeach()
    set(${variable} ${objects} PARENT_SCOPE)
endfunction()

function(add_resource_library target file)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "OUTPUT_DIRECTORY" "SOURCES;INCLUDES;DEPENDS")
    if(NOT arg_OUTPUT_DIRECTORY)
        set(arg_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})
    endif()
    compile_resources(objects ${CMAKE_CURRENT_BINARY_DIR}/${target}.dir SOURCES ${arg_SOURCES}
                      INCLUDES ${arg_INCLUDES} DEPENDS ${arg_DEPENDS})

    set(library ${arg_OUTPUT_DIRECTORY}/${file})
    add_custom_command(
        OUTPUT ${library}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${arg_OUTPUT_DIRECTORY}
        COMMAND ${MINGW_LD} -shared --entry=0 --no-insert-timestamp --strip-all
                -o ${library} ${objects}
        DEPENDS ${objects}
        COMMENT "Linking resource library ${file}"
        VERBATIM)
    add_custom_target(${target} ALL DEPENDS ${library})
    set_target_properties(${target} PROPERTIES RESOURCE_LIBRARY ${library})
endfunction()
