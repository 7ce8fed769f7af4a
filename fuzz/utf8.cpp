// The UTF-8 coder on any bytes, and any UTF-16 units to UTF-8 and back.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/locale_utility.h"
#include "core/ostring.h"
#include "target.h"

FUZZ_TARGET(utf8)(const uint8_t* data, size_t size) {
    OBuffer<char> bytes;
    bytes.Assign(reinterpret_cast<const char*>(data), static_cast<uint32_t>(size));
    OBuffer<WCHAR> units;
    LocaleUtility::ConvertUTF8(bytes, units);
    if (units.GetSize() == 0 || units.GetSize() > size + 1 || units[units.GetSize() - 1] != 0)
        std::abort();

    // A string is converted the same way.
    OString text;
    text.SetCodePage(1208);
    text = std::string(reinterpret_cast<const char*>(data), size).c_str();
    const std::basic_string<WCHAR> decoded(text.wstring());
    if (decoded != units.GetData()) std::abort();
    text << WCHAR{'x'};
    if (text.wstring() != decoded + WCHAR{'x'}) std::abort();

    OBuffer<WCHAR> raw(static_cast<uint32_t>(size / 2));
    if (raw.GetSize() != 0) std::memcpy(raw.GetData(), data, raw.GetSize() * sizeof(WCHAR));
    LocaleUtility::ConvertUTF8(raw, bytes);
    LocaleUtility::ConvertUTF8(bytes, units);
    for (uint32_t i = 0; i < raw.GetSize() && raw[i] != 0; ++i)
        if (units[i] != raw[i]) std::abort();
    return 0;
}
