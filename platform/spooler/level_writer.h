// How the spooler fills a caller's buffer: with the structures of an information level, followed by
// the texts and blocks that they point to.
#pragma once

#include <windows.h>

#include "spooler/ansi.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// Used twice with the same calls: first without a buffer, to find the size, then to write. Without
// a buffer the pointers it gives are null. Nothing is assumed about the buffer's alignment.
class LevelWriter {
public:
    explicit LevelWriter(LPBYTE buffer = nullptr)
        : buffer_(buffer) {}

    // Reserves room for `count` structures at the start. To be called first.
    template <class Info>
    void Structures(size_t count) {
        used_ = count * sizeof(Info);
    }
    template <class Info>
    void Put(size_t index, const Info& info) {
        if (buffer_) std::memcpy(buffer_ + index * sizeof(Info), &info, sizeof info);
    }

    void Text(LPWSTR& target, std::u16string_view text) { target = Terminated(text); }
    void Text(LPSTR& target, std::u16string_view text) {
        target = Terminated(std::string_view(Ansi(text)));
    }

    // A text whose pointer is null if it is empty.
    template <class Char>
    void OptionalText(Char*& target, std::u16string_view text) {
        target = nullptr;
        if (!text.empty()) Text(target, text);
    }

    // A list of texts: a zero after each and another after the last; two zeros if it is empty.
    template <class Char>
    void Texts(Char*& target, const std::vector<std::u16string>& texts) {
        std::u16string all;
        for (const std::u16string& text : texts) {
            all += text;
            all += u'\0';
        }
        if (texts.empty()) all += u'\0';
        Text(target, all);
    }

    template <class Unit>
    Unit* Block(const void* bytes, size_t size) {
        LPBYTE target = Room<Unit>(size);
        if (target) std::memcpy(target, bytes, size);
        return reinterpret_cast<Unit*>(target);
    }

    size_t used() const { return used_; }

private:
    // The next bytes, aligned for `Unit` if the buffer itself is; null without a buffer.
    template <class Unit>
    LPBYTE Room(size_t size) {
        used_ = (used_ + alignof(Unit) - 1) / alignof(Unit) * alignof(Unit);
        LPBYTE room = buffer_ ? buffer_ + used_ : nullptr;
        used_ += size;
        return room;
    }

    template <class Char>
    Char* Terminated(std::basic_string_view<Char> text) {
        const size_t bytes = text.size() * sizeof(Char);
        LPBYTE target = Room<Char>(bytes + sizeof(Char));
        if (!target) return nullptr;
        std::memcpy(target, text.data(), bytes);
        std::memset(target + bytes, 0, sizeof(Char));
        return reinterpret_cast<Char*>(target);
    }

    LPBYTE buffer_;
    size_t used_ = 0;
};

// Runs `fill` on the caller's buffer and answers as the API does.
template <class Fill>
BOOL FillBuffer(LPBYTE buffer, DWORD size, LPDWORD needed, const Fill& fill) {
    LevelWriter measure;
    fill(measure);
    *needed = static_cast<DWORD>(measure.used());
    if (measure.used() > size) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    if (!buffer && measure.used()) {
        SetLastError(ERROR_INVALID_USER_BUFFER);
        return FALSE;
    }
    LevelWriter writer(buffer);
    fill(writer);
    return TRUE;
}

} // namespace win32host
