#include "window/dialog_template.h"

#include "window/template_reader.h"

namespace win32host {
namespace {

constexpr uint16_t kNumberFollows = 0xFFFF;
constexpr uint32_t kSetFont = 0x40; // DS_SETFONT

TemplateName ReadName(TemplateReader& reader) {
    TemplateName name;
    const uint16_t first = reader.Word();
    if (first == 0) return name;
    if (first == kNumberFollows) {
        name.number = reader.Word();
        return name;
    }
    name.text = static_cast<char16_t>(first);
    name.text += reader.Text();
    return name;
}

int16_t ReadShort(TemplateReader& reader) {
    return static_cast<int16_t>(reader.Word());
}

template <class T>
void ReadPlace(TemplateReader& reader, T& to) {
    to.x = ReadShort(reader);
    to.y = ReadShort(reader);
    to.width = ReadShort(reader);
    to.height = ReadShort(reader);
}

DialogItem ReadDialogItem(TemplateReader& reader, bool extended) {
    DialogItem item;
    reader.Align();
    if (extended) reader.Skip(4); // help number
    const uint32_t first = reader.Dword();
    const uint32_t second = reader.Dword();
    item.style = extended ? second : first;
    item.extended_style = extended ? first : second;
    ReadPlace(reader, item);
    item.id = extended ? reader.Dword() : reader.Word();
    item.window_class = ReadName(reader);
    item.title = ReadName(reader);
    const uint16_t size = reader.Word();
    if (size == 0) return item;
    // In the standard form the size counts itself.
    const size_t count = extended ? size : size >= 2 ? size - 2u : 0u;
    const auto data = reader.Bytes(count);
    item.data = {static_cast<uint8_t>(size), static_cast<uint8_t>(size >> 8)};
    item.data.insert(item.data.end(), data.begin(), data.end());
    return item;
}

} // namespace

std::optional<DialogTemplate> ReadDialogTemplate(std::span<const uint8_t> bytes) {
    DialogTemplate read;
    TemplateReader reader(bytes);
    const uint32_t head = reader.Dword();
    read.extended = head == 0xFFFF0001;
    if (read.extended) {
        read.help = reader.Dword();
        read.extended_style = reader.Dword();
        read.style = reader.Dword();
    } else {
        read.style = head;
        read.extended_style = reader.Dword();
    }
    const uint16_t count = reader.Word();
    ReadPlace(reader, read);
    read.menu = ReadName(reader);
    read.window_class = ReadName(reader);
    read.title = reader.Text();
    read.has_font = (read.style & kSetFont) != 0;
    if (read.has_font) {
        read.points = reader.Word();
        if (read.extended) {
            read.weight = reader.Word();
            read.italic = reader.Byte() != 0;
            read.charset = reader.Byte();
        }
        read.face = reader.Text();
    }
    for (uint16_t i = 0; i < count && reader.Good(); ++i)
        read.items.push_back(ReadDialogItem(reader, read.extended));
    if (!reader.Good()) return std::nullopt;
    return read;
}

std::u16string_view StandardClass(uint16_t number) {
    switch (number) {
    case 0x80:
        return u"Button";
    case 0x81:
        return u"Edit";
    case 0x82:
        return u"Static";
    case 0x83:
        return u"ListBox";
    case 0x84:
        return u"ScrollBar";
    case 0x85:
        return u"ComboBox";
    default:
        return u"";
    }
}

} // namespace win32host
