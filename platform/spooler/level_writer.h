// How the spooler fills a caller's buffer: the structures of an information level at its start, and
// behind them the texts and blocks that they point to.
#pragma once

#include <windows.h>

#include "spooler/ansi.h"

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace win32host {

// Used twice with the same calls, first without a buffer to learn the size, then to write. Without
// a buffer the pointers it gives are null. Nothing is assumed about the buffer's alignment.
class LevelWriter {
public:
    explicit LevelWriter(LPBYTE buffer = nullptr)
        : buffer_(buffer) {}

    // Room for `count` structures at the start; comes first.
    template <class Info>
    void Structures(size_t count) {
        used_ = count * sizeof(Info);
    }
    template <class Info>
    void Put(size_t index, const Info& info) {
        if (buffer_) std::memcpy(buffer_ + index * sizeof(Info), &info, sizeof info);
    }

    void Text(LPWSTR& target, std::u16string_view text) {
        const std::u16string terminated(text);
        target = Block<WCHAR>(terminated.c_str(), (terminated.size() + 1) * sizeof(WCHAR));
    }
    void Text(LPSTR& target, std::u16string_view text) {
        const std::string terminated = Ansi(text);
        target = Block<CHAR>(terminated.c_str(), terminated.size() + 1);
    }

    // A text that points to nothing when it is empty.
    template <class Char>
    void OptionalText(Char*& target, std::u16string_view text) {
        target = nullptr;
        if (!text.empty()) Text(target, text);
    }

    // A list of texts: a zero behind each and one behind the last; two zeros when it is empty.
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

    // Aligned for `Unit` as far as the buffer itself is.
    template <class Unit>
    Unit* Block(const void* bytes, size_t size) {
        used_ = (used_ + alignof(Unit) - 1) / alignof(Unit) * alignof(Unit);
        void* target = buffer_ ? buffer_ + used_ : nullptr;
        if (target) std::memcpy(target, bytes, size);
        used_ += size;
        return static_cast<Unit*>(target);
    }

    size_t used() const { return used_; }

private:
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
