#include "spooler/ansi.h"

#include <windows.h>

namespace win32host {

std::string Ansi(std::u16string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::u16string FromAnsi(std::string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::u16string units(static_cast<size_t>(size), u'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, units.data(), size);
    return units;
}

} // namespace win32host
