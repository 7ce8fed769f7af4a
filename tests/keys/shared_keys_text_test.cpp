#include "keys/shared_keys_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "core/lz77.h"

namespace {

#define PRINT "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print"
#define DRIVERS "HKEY_LOCAL_MACHINE\\SOFTWARE\\Valdrick\\Drivers"
#define SHADOW "HKEY_CURRENT_USER\\Software\\Valdrick\\Drivers"

std::string Renamed(std::initializer_list<const char*> lines) {
    OStringArray from, to;
    for (const char* line : lines) from.Add(line);
    RenameSharedKeys(from, "Dock3", "D", "L", to);
    std::string text;
    for (int i = 0; i < to.GetSize(); ++i) text += std::string(to[i].nstring()) + '|';
    return text;
}

} // namespace

TEST(SharedKeys, AreThoseOfThePrinterAndOfTheMachine) {
    const struct {
        const char* key;
        const char* renamed;
    } cases[] = {
        {PRINT "\\Printers\\Dock3\\PrinterDriverData\\Settings\\RFID", "D\\Settings\\RFID"},
        {"hkey_local_machine\\system\\currentcontrolset\\control\\print\\printers\\DOCK3\\"
         "printerdriverdata\\Presets",
         "D\\Presets"},
        {DRIVERS "\\Paper Sizes", "L\\Paper Sizes"},
        {SHADOW "\\@SRV1\\PRINT:\\Printers\\Dock3\\PrinterDriverData\\Settings", "D\\Settings"},
        {SHADOW "\\PRINT:\\Printers\\Dock3\\PrinterDriverData\\Settings", "D\\Settings"},
        {SHADOW "\\@SRV1\\LOCAL:\\Paper Sizes", "L\\Paper Sizes"},
        // Not shared.
        {PRINT "\\Printers\\Dock3\\PrinterDriverData", nullptr},
        {PRINT "\\Printers\\Dock3\\PrinterDriverData\\\\", nullptr},
        {PRINT "\\Printers\\Dock4\\PrinterDriverData\\Settings", nullptr},
        {PRINT "\\Printers\\Dock3\\Settings", nullptr},
        {PRINT "\\Environments\\Windows NT x86", nullptr},
        {DRIVERS, nullptr},
        {DRIVERS "X\\Paper Sizes", nullptr},
        {SHADOW "\\@SRV1\\USER:\\Printers", nullptr},
        {SHADOW "\\Printers\\Dock3", nullptr},
        {"HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run", nullptr},
        {"", nullptr},
    };
    for (const auto& c : cases) {
        const std::string key = c.key;
        const std::string one = Renamed({("[" + key + "]").c_str(), "\"v\"=dword:00000001", ""});
        const std::string gone = Renamed({("[-" + key + "]").c_str()});
        const std::string name = c.renamed ? c.renamed : "";
        EXPECT_EQ(one, c.renamed ? "[" + name + "]|\"v\"=dword:00000001||" : "") << key;
        EXPECT_EQ(gone, c.renamed ? "[-" + name + "]|" : "") << key;
    }
}

TEST(SharedKeys, AreToldApartAsTheReaderOfTheTextDoes) {
    // A value before all keys, a key inside another one, and one after a key that is left out.
    EXPECT_EQ(Renamed({"\"stray\"=\"1\"", "[" DRIVERS "\\A]", "\"a\"=hex:01,\\", "  02",
                       "[HKEY_USERS\\X]", "", "[HKEY_USERS\\X]", "\"x\"=\"\"", "",
                       "[-" DRIVERS "\\B]", "[" DRIVERS "\\C]", "\"c\"=\"\""}),
              "[L\\A]|\"a\"=hex:01,\\|  02|[HKEY_USERS\\X]||[-L\\B]||[L\\C]|\"c\"=\"\"|");
}

TEST(SharedKeys, TravelInACompressedList) {
    OStringArray lines, back;
    for (const char* line : {"[a]", "", "\"b\"=\"c\""}) lines.Add(line);
    OBuffer<char> bytes;
    ASSERT_TRUE(PackSharedKeys(lines, bytes));
    EXPECT_EQ(std::string(bytes.GetData(), 4), "ZLIB");
    ASSERT_TRUE(UnpackSharedKeys(bytes, back));
    ASSERT_EQ(back.GetSize(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_STREQ(back[i].nstring(), lines[i].nstring());

    bytes[bytes.GetSize() - 1] ^= 1;
    EXPECT_FALSE(UnpackSharedKeys(bytes, back));
    EXPECT_EQ(back.GetSize(), 3);
    OBuffer<char> many(kMaxSharedKeyLines + 3);
    std::memset(many.GetData(), 0, many.GetSize());
    ASSERT_TRUE(LZ77::Encode(many));
    EXPECT_FALSE(UnpackSharedKeys(many, back)) << many.GetSize() << " bytes";
    // "[a]\0\0..." without head or end, so that lines cannot run into each other.
    OStringArray joined;
    joined.Add("[a]\"b\"=\"c\"");
    EXPECT_NE(SharedKeysChecksum(lines), SharedKeysChecksum(joined));
    EXPECT_EQ(SharedKeysChecksum(OStringArray()), 0u);
}
