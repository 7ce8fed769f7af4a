#include "window/menu_template.h"

#include "window/template_reader.h"

namespace win32host {
namespace {

constexpr int kDeepestMenu = 32;

// Flags of an item in a standard template; kLast is the same in an extended one.
constexpr uint16_t kPopup = 0x10;
constexpr uint16_t kLast = 0x80;
constexpr uint16_t kPopupEx = 0x01;

std::vector<MenuItem> ReadItems(TemplateReader& reader, bool extended, int depth);

// True if the item was its menu's last.
bool ReadItem(TemplateReader& reader, MenuItem& item, int depth) {
    const uint16_t flags = reader.Word();
    item.is_popup = (flags & kPopup) != 0;
    if (!item.is_popup) item.id = reader.Word();
    item.text = reader.Text();
    if (item.is_popup) item.items = ReadItems(reader, false, depth + 1);
    return (flags & kLast) != 0;
}

bool ReadItemEx(TemplateReader& reader, MenuItem& item, int depth) {
    reader.Align();
    reader.Skip(8); // type and state
    item.id = reader.Dword();
    const uint16_t flags = reader.Word();
    item.is_popup = (flags & kPopupEx) != 0;
    item.text = reader.Text();
    if (item.is_popup) {
        reader.Align();
        reader.Skip(4); // help number
        item.items = ReadItems(reader, true, depth + 1);
    }
    return (flags & kLast) != 0;
}

std::vector<MenuItem> ReadItems(TemplateReader& reader, bool extended, int depth) {
    std::vector<MenuItem> items;
    if (depth > kDeepestMenu) {
        reader.Fail();
        return items;
    }
    for (bool last = false; !last && reader.Good();) {
        MenuItem item;
        last = extended ? ReadItemEx(reader, item, depth) : ReadItem(reader, item, depth);
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
    auto items = ReadItems(reader, version == 1, 0);
    if (!reader.Good()) return std::nullopt;
    return items;
}

} // namespace win32host
