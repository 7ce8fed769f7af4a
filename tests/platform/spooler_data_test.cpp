#include "platform/spooler_test.h"

namespace {

class SpoolerData : public SpoolerTest {
protected:
    SpoolerData() {
        AddDriver();
        AddPrinter(u"LABELS");
        printer_ = Open(u"LABELS");
    }

    static DWORD Set(HANDLE printer, LPCWSTR name, DWORD type, std::string bytes) {
        return SetPrinterDataW(printer, Text(name), type, reinterpret_cast<LPBYTE>(bytes.data()),
                               static_cast<DWORD>(bytes.size()));
    }
    // Fills what it is given, from the start.
    static DWORD Get(HANDLE printer, LPCWSTR name, std::string& bytes, size_t size, DWORD* type,
                     DWORD* needed) {
        return GetPrinterDataW(printer, Text(name), type, reinterpret_cast<LPBYTE>(bytes.data()),
                               static_cast<DWORD>(size), needed);
    }

    HANDLE printer_ = nullptr;
    DWORD type_ = 99, needed_ = 99;
    BYTE byte_ = 0;
};

TEST_F(SpoolerData, ForgetsAndTellsWhatIsMissing) {
    const LPWSTR x = Text(u"x");
    ASSERT_EQ(Set(printer_, x, REG_BINARY, "x"), 0u);
    EXPECT_EQ(DeletePrinterDataW(printer_, Text(u"X")), 0u);
    for (DWORD answer :
         {GetPrinterDataA(printer_, const_cast<LPSTR>("x"), nullptr, &byte_, 1, &needed_),
          DeletePrinterDataW(printer_, x)})
        EXPECT_EQ(answer, DWORD{ERROR_FILE_NOT_FOUND});
    for (DWORD answer : {GetPrinterDataW(printer_, nullptr, nullptr, &byte_, 1, &needed_),
                         GetPrinterDataW(printer_, x, nullptr, &byte_, 1, nullptr),
                         SetPrinterDataW(printer_, x, REG_BINARY, nullptr, 1)})
        EXPECT_EQ(answer, DWORD{ERROR_INVALID_PARAMETER});
}

TEST_F(SpoolerData, IsReadByUsersAndWrittenByAdministrators) {
    const LPWSTR x = Text(u"x");
    ASSERT_EQ(Set(printer_, x, REG_BINARY, "x"), 0u);
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    EXPECT_EQ(GetPrinterDataW(user, x, nullptr, &byte_, 1, &needed_), 0u);
    EXPECT_EQ(byte_, 'x');
    for (DWORD answer : {SetPrinterDataW(user, x, REG_BINARY, &byte_, 1),
                         SetPrinterDataA(user, const_cast<LPSTR>("x"), REG_BINARY, &byte_, 1),
                         DeletePrinterDataW(user, x)})
        EXPECT_EQ(answer, DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SpoolerData, ConvertsNamesAndTextsOfTheAnsiFunctions) {
    constexpr LPCWSTR kWide = u"Gr\u00f6\u00dfe";
    std::string name = "Gr\xF6\xDF\x65", text("caf\xE9\0", 5), ansi(8, '\0'), wide(16, '\0');
    const auto set = [&](DWORD type, DWORD size) {
        return SetPrinterDataA(printer_, name.data(), type, reinterpret_cast<LPBYTE>(text.data()),
                               size);
    };
    const auto get = [&](DWORD size) {
        return GetPrinterDataA(printer_, name.data(), &type_, reinterpret_cast<LPBYTE>(ansi.data()),
                               size, &needed_);
    };
    ASSERT_EQ(set(REG_SZ, 5), 0u);
    EXPECT_EQ(Get(printer_, kWide, wide, 16, &type_, &needed_), 0u);
    EXPECT_EQ(wide.substr(0, needed_), std::string("c\0a\0f\0\xE9\0\0\0", 10));
    EXPECT_EQ(get(4), DWORD{ERROR_MORE_DATA});
    EXPECT_EQ(needed_, 5u);
    EXPECT_EQ(get(5), 0u);
    EXPECT_STREQ(ansi.c_str(), "caf\xE9");
    EXPECT_EQ(type_, DWORD{REG_SZ});

    ASSERT_EQ(set(REG_BINARY, 4), 0u);
    EXPECT_EQ(Get(printer_, kWide, wide, 16, &type_, &needed_), 0u);
    EXPECT_EQ(wide.substr(0, needed_), "caf\xE9") << "bytes stay bytes";
}

} // namespace
