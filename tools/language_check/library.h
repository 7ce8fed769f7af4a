// A language library: everything in it that a user reads.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "window/dialog_template.h"
#include "window/menu_template.h"

struct Library {
    std::string file; // its name without the folder, for messages
    std::map<std::u16string, win32host::DialogTemplate> dialogs; // by name
    std::map<std::u16string, std::vector<win32host::MenuItem>> menus;
    std::map<uint32_t, std::u16string> texts; // by number
    std::vector<std::u16string> bitmaps;      // names, "#110" for numbers; sorted
};

// Reads all of a library. Throws std::runtime_error, with a text for the user, if the file cannot
// be loaded or one of its resources cannot be read.
Library ReadLibrary(const std::string& path);

// As UTF-8, for messages.
std::string Utf8(const std::u16string& text);
