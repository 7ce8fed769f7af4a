// Bytes of any code page: the first byte chooses it, the rest is text. The measured size must be
// the size written, and UTF-16 made from valid UTF-8 must convert back to the same bytes.
#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>

#include "target.h"

FUZZ_TARGET(code_pages)(const uint8_t* data, size_t size) {
    static constexpr UINT kCodePages[] = {1252, 1255, 874, 932, 936, 949, 950, 1361, 65001};
    if (size < 2) return 0;
    const UINT code_page = kCodePages[data[0] % std::size(kCodePages)];
    const char* text = reinterpret_cast<const char*>(data + 1);
    const int bytes = static_cast<int>(size - 1);

    const int needed = MultiByteToWideChar(code_page, 0, text, bytes, nullptr, 0);
    if (needed <= 0) std::abort();
    std::u16string wide(static_cast<size_t>(needed), u'\0');
    if (MultiByteToWideChar(code_page, 0, text, bytes, wide.data(), needed) != needed) std::abort();

    const int back =
        WideCharToMultiByte(code_page, 0, wide.data(), needed, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<size_t>(back), '\0');
    if (WideCharToMultiByte(code_page, 0, wide.data(), needed, narrow.data(), back, nullptr,
                            nullptr) != back)
        std::abort();
    const bool valid =
        MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, text, bytes, nullptr, 0) != 0;
    if (code_page == CP_UTF8 && valid && narrow != std::string(text, size - 1)) std::abort();
    return 0;
}
