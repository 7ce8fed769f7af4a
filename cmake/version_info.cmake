# Writes the header with the module's version texts. Runs in every build and touches the header only
# if a text has changed.
#
#   cmake -D SOURCE=folder -D VERSION=1.2.3 -D OUTPUT=version_info.h -P version_info.cmake
#
# The build date is the date of the commit, so that one commit gives one module. A source folder
# without history has neither date nor revision.

cmake_minimum_required(VERSION 3.25)

function(ask_git result)
    execute_process(COMMAND git -C ${SOURCE} ${ARGN}
                    OUTPUT_VARIABLE text ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    string(REPLACE "\\" "" text "${text}")
    string(REPLACE "\"" "" text "${text}")
    set(${result} "${text}" PARENT_SCOPE)
endfunction()

ask_git(revision rev-parse --short=12 HEAD)
ask_git(branch rev-parse --abbrev-ref HEAD)
ask_git(date log -1 --format=%cs)
ask_git(tag describe --tags --always)
string(SUBSTRING "${date}" 0 4 year)
string(REPLACE "." "," numbers "${VERSION}")

file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT
"#define VERSION_NUMBERS @numbers@,0
#define VERSION_TEXT \"@VERSION@\"
#define VERSION_TAG \"@tag@\"
#define VERSION_DATE \"@date@\"
#define VERSION_YEAR \"@year@\"
#define VERSION_BRANCH \"@branch@\"
#define VERSION_REVISION \"@revision@\"
")
