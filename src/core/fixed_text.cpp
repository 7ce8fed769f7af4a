#include "core/fixed_text.h"

#include <cstring>

void PutFixedText(void* field, const OString& text, int room) {
    const WCHAR* units = text.wstring();
    int length = 0;
    while (length < room - 1 && units[length]) ++length;
    const size_t bytes = static_cast<size_t>(length) * sizeof(WCHAR);
    std::memcpy(field, units, bytes);
    std::memset(static_cast<char*>(field) + bytes, 0,
                static_cast<size_t>(room) * sizeof(WCHAR) - bytes);
}
