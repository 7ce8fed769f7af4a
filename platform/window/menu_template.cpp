#include "window/menu_template.h"

#include "window/menu.h"
#include "window/template_reader.h"

#include <windows.h>

namespace win32host {
namespace {

// Flags of an item in an extended template; MF_END is the last item in either form.
constexpr uint16_t kPopupEx = 0x01;

std::vector<MenuItem> ReadMenuItems(TemplateReader& reader, bool extended, int depth);

// True if the item was its menu's last.
bool ReadMenuItem(TemplateReader& reader, MenuItem& item, int depth) {
    const uint16_t flags = reader.Word();
    item.is_popup = (flags & MF_POPUP) != 0;
    if (!item.is_popup) item.id = reader.Word();
    item.text = reader.Text();
    item.type = flags & kMenuTypes;
    item.state = flags & (MFS_GRAYED | MFS_CHECKED);
    if (!item.is_popup && item.text.empty()) {
        item.type |= MFT_SEPARATOR;
        item.state |= MFS_GRAYED;
    }
    if (item.is_popup) item.items = ReadMenuItems(reader, false, depth + 1);
    return (flags & MF_END) != 0;
}

bool ReadMenuItemEx(TemplateReader& reader, MenuItem& item, int depth) {
    reader.Align();
    item.type = reader.Dword() & kMenuTypes;
    item.state = reader.Dword() & kMenuStates;
    item.id = reader.Dword();
    const uint16_t flags = reader.Word();
    item.is_popup = (flags & kPopupEx) != 0;
    item.text = reader.Text();
    if (item.is_popup) {
        reader.Align();
        reader.Skip(4); // help number
        item.items = ReadMenuItems(reader, true, depth + 1);
    }
    return (flags & MF_END) != 0;
}

std::vector<MenuItem> ReadMenuItems(TemplateReader& reader, bool extended, int depth) {
    std::vector<MenuItem> items;
    if (depth > kDeepestMenu) {
        reader.Fail();
        return items;
    }
    for (bool last = false; !last && reader.Good();) {
        MenuItem item;
        last = extended ? ReadMenuItemEx(reader, item, depth) : ReadMenuItem(reader, item, depth);
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace

std::optional<std::vector<MenuItem>> ReadMenuTemplate(std::span<const uint8_t> bytes) {
    TemplateReader reader(bytes);
    const uint16_t version = reader.Word();
    reader.Skip(reader.Word()); // to the first item
    if (version > 1) return std::nullopt;
    auto items = ReadMenuItems(reader, version == 1, 0);
    if (!reader.Good()) return std::nullopt;
    return items;
}

} // namespace win32host
