# The list of the module's exports, read from the only place that has it: every declaration in
# include/zplui.h that starts with ZPLUI_API.
#
#   write_export_list(HEADER FILE.def)
#
# The names are written unchanged, so that 32-bit Windows builds export them without the decoration
# of the calling convention.

function(write_export_list header file)
    file(READ ${header} text)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${header})
    string(REGEX MATCHALL "\nZPLUI_API[^(;]*\\(" declarations "${text}")
    set(names "")
    foreach(declaration ${declarations})
        string(REGEX REPLACE ".*[^A-Za-z0-9_]([A-Za-z0-9_]+)\\($" "\\1" name "${declaration}")
        list(APPEND names ${name})
    endforeach()
    list(SORT names)
    list(JOIN names "\n    " lines)
    file(CONFIGURE OUTPUT ${file} CONTENT "EXPORTS\n    ${lines}\n" @ONLY)
endfunction()
