# The test program of a folder.
#
#   test_program(NAME [NATIVE_ONLY] [ALONE] [ONLY regex...] [EXCLUDE regex...] [LABELS label...]
#                [LIBRARIES library...] [DEPENDS target...])
#
# makes the program test_NAME of the sources in the current folder and lists its tests. On Windows
# there is none of a folder that is NATIVE_ONLY, and with ThreadSanitizer only of folders that have
# tests with threads. Ask `if(TARGET test_NAME)` after it. A program that is ALONE needs neither the
# driver nor the fixtures.
# Sources whose paths match one of EXCLUDE are left out; where ONLY is given, the others are.
# Programs, modules and data that the tests load are named in DEPENDS, as far as this build has them.

# Sources that differ between systems are in files named *_windows.cpp and *_posix.cpp.
if(WIN32)
    set(OF_OTHER_SYSTEMS "_posix\\.cpp$")
else()
    set(OF_OTHER_SYSTEMS "_windows\\.cpp$")
endif()

# Answers whether one of the sources has a test with threads.
function(find_threaded_tests variable)
    set(found "")
    foreach(source ${ARGN})
        file(STRINGS ${source} tests REGEX "^TEST.*Threads" LIMIT_COUNT 1)
        list(APPEND found ${tests})
    endforeach()
    set(${variable} ${found} PARENT_SCOPE)
endfunction()

function(test_program name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "NATIVE_ONLY;ALONE" "" "ONLY;EXCLUDE;LABELS;LIBRARIES;DEPENDS")
    if(WIN32 AND arg_NATIVE_ONLY)
        return()
    endif()
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
    foreach(pattern ${OF_OTHER_SYSTEMS} ${arg_EXCLUDE})
        list(FILTER sources EXCLUDE REGEX ${pattern})
    endforeach()
    foreach(pattern ${arg_ONLY})
        list(FILTER sources INCLUDE REGEX ${pattern})
    endforeach()
    if(ZPLUI_SANITIZER STREQUAL "thread")
        find_threaded_tests(threaded ${sources})
        if(NOT threaded)
            return()
        endif()
    endif()

    set(program test_${name})
    add_executable(${program} ${sources})
    add_dependencies(test_programs ${program})
    # Where several files are compiled at a time, a fixture of an unnamed namespace seems to be another
    # file's.
    target_compile_options(${program} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    set(driver zplui zplrender)
    set(fixtures test_support)
    if(arg_ALONE)
        set(driver "")
        set(fixtures project_options win32host)
    endif()
    target_link_libraries(${program} PRIVATE ${fixtures} ${arg_LIBRARIES} GTest::gtest_main)
    foreach(target ${driver} ${arg_DEPENDS})
        if(TARGET ${target})
            add_dependencies(${program} ${target})
        endif()
    endforeach()
    # Under Wine all tests have one machine.
    set(alone "")
    if(WIN32)
        set(alone RESOURCE_LOCK machine)
    endif()
    if(arg_LABELS)
        set(arg_LABELS LABELS ${arg_LABELS})
    endif()
    gtest_discover_tests(${program} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                         PROPERTIES ${alone} ${arg_LABELS})
endfunction()

# A module that tests load: a MODULE library FILE.dll in TEST_DATA.
function(test_module target file)
    add_library(${target} MODULE ${ARGN})
    target_link_libraries(${target} PRIVATE project_options win32host)
    set_target_properties(${target} PROPERTIES PREFIX "" SUFFIX ".dll" OUTPUT_NAME ${file}
                                               LIBRARY_OUTPUT_DIRECTORY ${TEST_DATA})
endfunction()
