// Dialog templates in memory, of either form.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

class DialogBuilder {
public:
    using Text = std::basic_string<WCHAR>;

    // `style` besides the font; position and size in dialog units.
    DialogBuilder(bool extended, DWORD style, int x, int y, int width, int height,
                  const Text& title = TEXT("a dialog"))
        : extended_(extended) {
        style |= DS_SETFONT;
        if (extended) {
            Word(1);
            Word(0xFFFF);
            Dword(0);
            Dword(0);
            Dword(style);
        } else {
            Dword(style);
            Dword(0);
        }
        count_ = bytes_.size();
        Word(0);
        Place(x, y, width, height);
        Word(0); // no menu
        Word(0); // the usual class
        String(title);
        Word(8);
        if (extended) {
            Word(FW_NORMAL);
            Word(0x0100); // upright, the usual character set
        }
        String(TEXT("MS Shell Dlg"));
    }

    // A visible child.
    void Add(const Text& window_class, const Text& text, uint32_t id, DWORD style, int x, int y,
             int width, int height, DWORD extended_style = 0) {
        while (bytes_.size() % 4 != 0) bytes_.push_back(0);
        style |= WS_CHILD | WS_VISIBLE;
        if (extended_) {
            Dword(0);
            Dword(extended_style);
            Dword(style);
        } else {
            Dword(style);
            Dword(extended_style);
        }
        Place(x, y, width, height);
        if (extended_)
            Dword(id);
        else
            Word(static_cast<uint16_t>(id));
        String(window_class);
        String(text);
        Word(0);
        ++bytes_[count_];
    }

    const std::vector<uint8_t>& Bytes() const { return bytes_; }
    LPCDLGTEMPLATEW Get() const { return reinterpret_cast<LPCDLGTEMPLATEW>(bytes_.data()); }

private:
    void Word(uint16_t value) {
        bytes_.push_back(static_cast<uint8_t>(value));
        bytes_.push_back(static_cast<uint8_t>(value >> 8));
    }
    void Dword(uint32_t value) {
        Word(static_cast<uint16_t>(value));
        Word(static_cast<uint16_t>(value >> 16));
    }
    void Place(int x, int y, int width, int height) {
        for (int value : {x, y, width, height}) Word(static_cast<uint16_t>(value));
    }
    void String(const Text& text) {
        for (WCHAR unit : text) Word(static_cast<uint16_t>(unit));
        Word(0);
    }

    bool extended_;
    size_t count_ = 0;
    std::vector<uint8_t> bytes_;
};
