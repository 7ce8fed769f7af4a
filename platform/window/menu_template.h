// Menu templates as they are in menu resources.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace win32host {

// An item with its type (MFT_) and its state (MFS_).
struct MenuItem {
    uint32_t type = 0;
    uint32_t state = 0;
    uint32_t id = 0; // of a popup only in extended templates
    bool is_popup = false;
    std::u16string text;
    std::vector<MenuItem> items; // of a popup
};

// No menu is nested deeper.
constexpr int kDeepestMenu = 32;

// Reads a template of either form, standard or extended. Nothing if it ends before its last item
// does or is nested deeper than any menu.
#pragma GCC visibility push(default) // the fuzz target looks inside
std::optional<std::vector<MenuItem>> ReadMenuTemplate(std::span<const uint8_t> bytes);
#pragma GCC visibility pop

} // namespace win32host
