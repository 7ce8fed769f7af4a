#include "window/menu_template.h"

namespace win32host {
namespace {

constexpr int kDeepestMenu = 32;

// Flags of an item in a standard template; kLast is the same in an extended one.
constexpr uint16_t kPopup = 0x10;
constexpr uint16_t kLast = 0x80;
constexpr uint16_t kPopupEx = 0x01;

class Reader {
public:
    explicit Reader(std::span<const uint8_t> bytes)
        : bytes_(bytes) {}

    bool Good() const { return good_; }
    void Fail() { good_ = false; }

    uint16_t Word() {
        if (!Has(2)) return 0;
        at_ += 2;
        return static_cast<uint16_t>(bytes_[at_ - 2] | bytes_[at_ - 1] << 8);
    }

    uint32_t Dword() {
        const uint32_t low = Word();
        return low | static_cast<uint32_t>(Word()) << 16;
    }

    std::u16string Text() {
        std::u16string text;
        for (uint16_t unit = Word(); unit != 0 && good_; unit = Word())
            text += static_cast<char16_t>(unit);
        return text;
    }

    void Skip(size_t count) {
        if (Has(count)) at_ += count;
    }

    // Moves on to the next multiple of four from the template's start.
    void Align() { Skip((4 - at_ % 4) % 4); }

private:
    bool Has(size_t count) { return good_ = good_ && bytes_.size() - at_ >= count; }

    std::span<const uint8_t> bytes_;
    size_t at_ = 0;
    bool good_ = true;
};

std::vector<MenuItem> ReadItems(Reader& reader, bool extended, int depth);

// True if the item was its menu's last.
bool ReadItem(Reader& reader, MenuItem& item, int depth) {
    const uint16_t flags = reader.Word();
    item.is_popup = (flags & kPopup) != 0;
    if (!item.is_popup) item.id = reader.Word();
    item.text = reader.Text();
    if (item.is_popup) item.items = ReadItems(reader, false, depth + 1);
    return (flags & kLast) != 0;
}

bool ReadItemEx(Reader& reader, MenuItem& item, int depth) {
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

std::vector<MenuItem> ReadItems(Reader& reader, bool extended, int depth) {
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
    Reader reader(bytes);
    const uint16_t version = reader.Word();
    reader.Skip(reader.Word()); // to the first item
    if (version > 1) return std::nullopt;
    auto items = ReadItems(reader, version == 1, 0);
    if (!reader.Good()) return std::nullopt;
    return items;
}

} // namespace win32host
