// Dialog templates as they are in dialog resources.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace win32host {

// A class, menu or title: a number, or a name where the number is 0.
struct TemplateName {
    uint16_t number = 0;
    std::u16string text;
};

struct DialogItem {
    uint32_t style = 0;
    uint32_t extended_style = 0;
    int16_t x = 0; // in dialog units, as all sizes here
    int16_t y = 0;
    int16_t width = 0;
    int16_t height = 0;
    uint32_t id = 0;
    TemplateName window_class; // 0x80 button, 0x81 edit, 0x82 static, 0x83 list box, 0x84 scroll
                               // bar, 0x85 combo box
    TemplateName title;
    std::vector<uint8_t> data; // what WM_CREATE's parameter points to, its size in front
};

struct DialogTemplate {
    bool extended = false;
    uint32_t help = 0;
    uint32_t style = 0;
    uint32_t extended_style = 0;
    int16_t x = 0;
    int16_t y = 0;
    int16_t width = 0;
    int16_t height = 0;
    TemplateName menu;
    TemplateName window_class;
    std::u16string title;
    bool has_font = false;
    uint16_t points = 0;
    uint16_t weight = 0;
    bool italic = false;
    uint8_t charset = 1;
    std::u16string face;
    std::vector<DialogItem> items;
};

// Reads a template of either form. Nothing if it ends before its last item does.
#pragma GCC visibility push(default) // the fuzz target looks inside
std::optional<DialogTemplate> ReadDialogTemplate(std::span<const uint8_t> bytes);
#pragma GCC visibility pop

// The name of a standard class by its number; empty for others.
std::u16string_view StandardClass(uint16_t number);

} // namespace win32host
