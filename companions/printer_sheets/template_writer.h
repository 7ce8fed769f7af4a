// Writes the template of a dialog in the system's font.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace printer_sheets {

class TemplateWriter {
public:
    using Text = std::basic_string<WCHAR>;

    // A place in dialog units.
    struct Place {
        int x, y, width, height;
    };

    TemplateWriter(const Text& title, int width, int height) {
        Dword(WS_CHILD | WS_CAPTION | DS_CONTROL | DS_SHELLFONT);
        Dword(0);
        Word(0); // the items are counted as they come
        Put({0, 0, width, height});
        Word(0); // no menu
        Word(0); // the usual class
        String(title);
        Word(8);
        String(TEXT("MS Shell Dlg"));
    }

    // A visible item of a class.
    void Add(const Text& window_class, const Text& text, int id, DWORD style, const Place& place) {
        while (bytes_.size() % 4 != 0) bytes_.push_back(0);
        Dword(WS_CHILD | WS_VISIBLE | style);
        Dword(0);
        Put(place);
        Word(static_cast<uint16_t>(id));
        String(window_class);
        String(text);
        Word(0); // no data
        ++bytes_[kCount];
    }

    std::vector<BYTE> Take() { return std::move(bytes_); }

private:
    static constexpr size_t kCount = 8;

    void Word(uint32_t value) {
        bytes_.push_back(static_cast<BYTE>(value));
        bytes_.push_back(static_cast<BYTE>(value >> 8));
    }
    void Dword(uint32_t value) {
        Word(value);
        Word(value >> 16);
    }
    void Put(const Place& place) {
        for (int value : {place.x, place.y, place.width, place.height})
            Word(static_cast<uint32_t>(value));
    }
    void String(const Text& text) {
        for (WCHAR unit : text) Word(unit);
        Word(0);
    }

    std::vector<BYTE> bytes_;
};

} // namespace printer_sheets
