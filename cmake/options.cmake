# Compile options that every target of the project shares.

add_library(project_options INTERFACE)
target_compile_options(project_options INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Werror -fno-strict-aliasing)
# GCC 12 mistakes operator+ of std::string and, when it optimises, assigning a short literal to a
# string, for overlapping copies.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(project_options INTERFACE -Wno-restrict)
    # Where it inlines two releases of one string it does not see that only the last owner deletes.
    # AddressSanitizer, under which all tests run, reports what is really used after it was deleted.
    target_compile_options(project_options INTERFACE -Wno-use-after-free)
endif()

if(ZPLUI_SANITIZER)
    add_compile_options(-fsanitize=${ZPLUI_SANITIZER} -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZPLUI_SANITIZER})
    if(ZPLUI_SANITIZER MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
    endif()
endif()
if(ZPLUI_COVERAGE)
    # The module's folders are compiled for coverage, see below. The coverage runtime exports
    # nothing.
    add_link_options(--coverage -Wl,--exclude-libs,libgcov.a)
endif()
if(ZPLUI_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# One folder of the module: an object library with every source file of the folder.
function(zplui_folder name)
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp
                                        ${CMAKE_CURRENT_SOURCE_DIR}/${name}/*/*.cpp)
    if(sources)
        add_library(zplui_${name} OBJECT ${sources})
        target_include_directories(zplui_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src
                                                        ${PROJECT_SOURCE_DIR}/include)
        target_link_libraries(zplui_${name} PUBLIC project_options win32_headers)
        if(ZPLUI_COVERAGE)
            # Without optimisation, lines are counted as written; threads share the counts.
            target_compile_options(zplui_${name} PRIVATE --coverage -fprofile-update=atomic -O0)
        endif()
        set_property(GLOBAL APPEND PROPERTY ZPLUI_FOLDERS zplui_${name})
    endif()
endfunction()
