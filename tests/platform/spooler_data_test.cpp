#include "platform/spooler_test.h"

namespace {

class SpoolerData : public SpoolerTest {
protected:
    SpoolerData() {
        AddDriver();
        AddPrinter(u"LABELS");
        printer_ = Open(u"LABELS");
    }
    ~SpoolerData() override { ClosePrinter(printer_); }

    DWORD Set(LPCWSTR name, DWORD type, const std::string& bytes) const {
        std::string copy = bytes;
        return SetPrinterDataW(printer_, Text(name), type, reinterpret_cast<LPBYTE>(copy.data()),
                               static_cast<DWORD>(copy.size()));
    }

    HANDLE printer_ = nullptr;
};

TEST_F(SpoolerData, KeepsTypeAndBytes) {
    const struct {
        LPCWSTR name;
        DWORD type;
        std::string bytes;
    } cases[] = {
        {u"binary", REG_BINARY, std::string("\0\1\2\xFF", 4)},
        {u"empty", REG_BINARY, ""},
        {u"number", REG_DWORD, std::string("\1\0\0\0", 4)},
        {u"text", REG_SZ, std::string("a\0b\0\0\0", 6)},
        {u"no terminator", REG_SZ, std::string("a\0b\0", 4)},
        {u"odd", REG_SZ, "abc"},
        {u"large", REG_BINARY, std::string(70000, 'x')},
        {u"a/b:c%d", 77, "own type"},
    };
    for (const auto& c : cases) ASSERT_EQ(Set(c.name, c.type, c.bytes), DWORD{ERROR_SUCCESS});
    for (const auto& c : cases) {
        DWORD type = 99, needed = 99;
        std::string bytes(c.bytes.size(), 0);
        const auto size = static_cast<DWORD>(bytes.size());
        if (size > 0) {
            EXPECT_EQ(GetPrinterDataW(printer_, Text(c.name), &type, nullptr, 0, &needed),
                      DWORD{ERROR_MORE_DATA});
            EXPECT_EQ(needed, size);
            EXPECT_EQ(GetPrinterDataW(printer_, Text(c.name), &type,
                                      reinterpret_cast<LPBYTE>(bytes.data()), size - 1, &needed),
                      DWORD{ERROR_MORE_DATA});
            EXPECT_EQ(bytes, std::string(size, 0));
        }
        EXPECT_EQ(GetPrinterDataW(printer_, Text(c.name), &type,
                                  reinterpret_cast<LPBYTE>(bytes.data()), size, &needed),
                  DWORD{ERROR_SUCCESS});
        EXPECT_EQ(bytes, c.bytes);
        EXPECT_EQ(needed, size);
        EXPECT_EQ(type, c.type);
    }
}

TEST_F(SpoolerData, TellsWhatIsMissingOrWrong) {
    BYTE byte = 0;
    DWORD needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer_, Text(u"none"), nullptr, &byte, 1, &needed),
              DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(GetPrinterDataA(printer_, const_cast<LPSTR>("none"), nullptr, &byte, 1, &needed),
              DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(DeletePrinterDataW(printer_, Text(u"none")), DWORD{ERROR_FILE_NOT_FOUND});
    EXPECT_EQ(GetPrinterDataW(printer_, nullptr, nullptr, &byte, 1, &needed),
              DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(GetPrinterDataW(printer_, Text(u"none"), nullptr, &byte, 1, nullptr),
              DWORD{ERROR_INVALID_PARAMETER});
    EXPECT_EQ(SetPrinterDataW(printer_, Text(u"x"), REG_BINARY, nullptr, 1),
              DWORD{ERROR_INVALID_PARAMETER});
    ASSERT_EQ(Set(u"x", REG_BINARY, "x"), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(DeletePrinterDataW(printer_, Text(u"X")), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(GetPrinterDataW(printer_, Text(u"x"), nullptr, &byte, 1, &needed),
              DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(SpoolerData, IsReadByUsersAndWrittenByAdministrators) {
    ASSERT_EQ(Set(u"x", REG_BINARY, "x"), DWORD{ERROR_SUCCESS});
    const HANDLE user = Open(u"LABELS", PRINTER_ACCESS_USE);
    BYTE byte = 0;
    DWORD needed = 0;
    EXPECT_EQ(GetPrinterDataW(user, Text(u"x"), nullptr, &byte, 1, &needed), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(SetPrinterDataW(user, Text(u"x"), REG_BINARY, &byte, 1), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(SetPrinterDataA(user, const_cast<LPSTR>("x"), REG_BINARY, &byte, 1),
              DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(DeletePrinterDataW(user, Text(u"x")), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_TRUE(ClosePrinter(user));
}

TEST_F(SpoolerData, ConvertsNamesAndTextsOfTheAnsiFunctions) {
    std::string text("caf\xE9\0", 5);
    std::string name = "Gr\xF6\xDF"
                       "e";
    ASSERT_EQ(
        SetPrinterDataA(printer_, name.data(), REG_SZ, reinterpret_cast<LPBYTE>(text.data()), 5),
        DWORD{ERROR_SUCCESS});
    WCHAR wide[8] = {};
    DWORD type = 0, needed = 0;
    EXPECT_EQ(GetPrinterDataW(printer_, Text(u"Gr\u00f6\u00dfe"), &type,
                              reinterpret_cast<LPBYTE>(wide), sizeof wide, &needed),
              DWORD{ERROR_SUCCESS});
    EXPECT_EQ(needed, 10u);
    EXPECT_EQ(std::u16string(wide), u"caf\u00e9");
    char ansi[8] = {};
    EXPECT_EQ(
        GetPrinterDataA(printer_, name.data(), &type, reinterpret_cast<LPBYTE>(ansi), 4, &needed),
        DWORD{ERROR_MORE_DATA});
    EXPECT_EQ(needed, 5u);
    EXPECT_EQ(
        GetPrinterDataA(printer_, name.data(), &type, reinterpret_cast<LPBYTE>(ansi), 5, &needed),
        DWORD{ERROR_SUCCESS});
    EXPECT_EQ(std::string(ansi), "caf\xE9");
    EXPECT_EQ(type, DWORD{REG_SZ});

    // Bytes stay bytes.
    ASSERT_EQ(SetPrinterDataA(printer_, name.data(), REG_BINARY,
                              reinterpret_cast<LPBYTE>(text.data()), 4),
              DWORD{ERROR_SUCCESS});
    EXPECT_EQ(GetPrinterDataW(printer_, Text(u"Gr\u00f6\u00dfe"), &type,
                              reinterpret_cast<LPBYTE>(ansi), sizeof ansi, &needed),
              DWORD{ERROR_SUCCESS});
    EXPECT_EQ(std::string(ansi, needed), "caf\xE9");
}

} // namespace
