// Any bytes as a private profile (sections with key=value lines): it can be listed and read, and
// what is written to it can be read back.
#include <windows.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "fuzz_host.h"
#include "input.h"
#include "target.h"

namespace {

using Wide = std::basic_string<WCHAR>;
constexpr const WCHAR* kProfile = TEXT("C:\\in.ini");

// The texts of a list, each with a zero after it.
std::vector<Wide> List(const WCHAR* section, const WCHAR* key, DWORD room) {
    std::vector<WCHAR> buffer(room);
    const DWORD length =
        GetPrivateProfileStringW(section, key, nullptr, buffer.data(), room, kProfile);
    Check(length < room);
    std::vector<Wide> texts;
    for (size_t at = 0; at < length;) {
        texts.emplace_back(buffer.data() + at);
        at += texts.back().size() + 1;
    }
    return texts;
}

Wide Value(const WCHAR* section, const WCHAR* key) {
    WCHAR text[64];
    const DWORD length = GetPrivateProfileStringW(section, key, TEXT("?"), text, 64, kProfile);
    Check(length < 64 && text[length] == 0);
    return text;
}

} // namespace

FUZZ_TARGET(profile_text)(const uint8_t* data, size_t size) {
    static const FuzzHost host(UsualModelData());
    std::ofstream(host.OnDriveC("in.ini"), std::ios::binary)
        .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));

    for (const DWORD room : {2u, 20u, 2000u})
        for (const Wide& section : List(nullptr, nullptr, room))
            for (const Wide& key : List(section.c_str(), nullptr, room))
                Value(section.c_str(), key.c_str());

    for (const WCHAR* value : {TEXT("one"), TEXT("two words")}) {
        Check(WritePrivateProfileStringW(TEXT("s"), TEXT("k"), value, kProfile));
        Check(Value(TEXT("s"), TEXT("k")) == value);
    }
    Check(WritePrivateProfileStringW(TEXT("s"), TEXT("k"), nullptr, kProfile));
    Check(WritePrivateProfileStringW(TEXT("s"), nullptr, nullptr, kProfile));
    return 0;
}
