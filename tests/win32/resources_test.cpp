#include "platform/error_of.h"
#include "support/host_test.h"
#include "support/sample_library_test.h"
#include "support/wide.h"

#include <windows.h>

#include <cstring>
#include <string>

namespace {

Wide Text(HMODULE module, UINT id, int size = 100) {
    WCHAR text[100] = {};
    const int length = LoadStringW(module, id, text, size);
    EXPECT_EQ(std::char_traits<WCHAR>::length(text), static_cast<size_t>(length)) << id;
    return text;
}

TEST_F(ModulesResources, AreFoundByNumberAndByNameInAnyCase) {
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(Bytes(MAKEINTRESOURCEW(7), RT_RCDATA), "seven");
    EXPECT_EQ(Bytes(TEXT("#7"), TEXT("#10")), "seven");
    EXPECT_EQ(Bytes(TEXT("named_DATA"), RT_RCDATA), "named");
    EXPECT_EQ(Bytes(MAKEINTRESOURCEW(9), TEXT("OwnType")), "own");
    EXPECT_EQ(Bytes(TEXT("empty"), RT_RCDATA), "");
}

TEST_F(ModulesResources, TellWhatIsMissing) {
    EXPECT_EQ(Bytes(MAKEINTRESOURCEW(8), RT_RCDATA), "error 1814");
    EXPECT_EQ(Bytes(TEXT("seven"), RT_RCDATA), "error 1814");
    EXPECT_EQ(Bytes(MAKEINTRESOURCEW(7), RT_BITMAP), "error 1813");
    EXPECT_EQ(FindResourceExW(module, RT_STRING, MAKEINTRESOURCEW(7), MAKELANGID(0x0C, 1)),
              nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_LANG_NOT_FOUND});
    EXPECT_EQ(ErrorOf(FindResourceW(nullptr, MAKEINTRESOURCEW(1), RT_RCDATA)),
              ERROR_RESOURCE_DATA_NOT_FOUND);
}

TEST_F(ModulesResources, AreListedByType) {
    std::string names;
    const auto list = [](HMODULE, LPCWSTR, LPWSTR name, LONG_PTR to) -> BOOL {
        const bool is_number = reinterpret_cast<uintptr_t>(name) <= 0xFFFF;
        *reinterpret_cast<std::string*>(to) +=
            is_number ? std::to_string(reinterpret_cast<uintptr_t>(name)) : std::string("text");
        return !is_number;
    };
    const auto parameter = reinterpret_cast<LONG_PTR>(&names);
    EXPECT_FALSE(EnumResourceNamesW(module, RT_RCDATA, list, parameter)); // stopped at the number
    EXPECT_EQ(names, "texttext7");
    EXPECT_TRUE(EnumResourceNamesW(
        module, RT_RCDATA, [](HMODULE, LPCWSTR, LPWSTR, LONG_PTR) -> BOOL { return TRUE; }, 0));
    EXPECT_FALSE(EnumResourceNamesW(module, RT_BITMAP, list, parameter));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_TYPE_NOT_FOUND});
}

TEST_F(ModulesResources, HoldTextsInBlocksOfSixteen) {
    EXPECT_EQ(Text(module, 16), TEXT("First text"));
    EXPECT_EQ(Text(module, 17), TEXT("Gr\u00F6\u00DFe: 5 \u00B5m"));
    EXPECT_EQ(Text(module, 31), TEXT("Last of its block"));
    EXPECT_EQ(Text(module, 18), TEXT(""));
    EXPECT_EQ(Text(module, 5000), TEXT(""));
    EXPECT_EQ(Text(module, 16, 6), TEXT("First"));
    EXPECT_EQ(Text(module, 16, 1), TEXT(""));
    EXPECT_EQ(Text(nullptr, 16), TEXT(""));

    LPCWSTR place = nullptr;
    const int length = LoadStringW(module, 16, reinterpret_cast<LPWSTR>(&place), 0);
    ASSERT_EQ(length, 10);
    EXPECT_EQ(Wide(place, 10), TEXT("First text"));
}

} // namespace
