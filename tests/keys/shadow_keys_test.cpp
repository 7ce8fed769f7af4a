#include "keys/shadow_keys.h"

#include <win32host/clock_control.h>
#include <win32host/control.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/crc.h"
#include "keys/prtreg.h"
#include "keys/shared_keys_text.h"
#include "support/printer_test.h"

namespace {

const char kRemote[] = "\\\\SRV1\\Dock3";
#define DATA_KEY                                                                                   \
    "HKEY_LOCAL_"                                                                                  \
    "MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Dock3\\PrinterDriverData"

// A server without a companion: its answers are printer data prepared under the names of the
// questions at one tick.
class ShadowKeys : public PrinterTest {
protected:
    ShadowKeys() {
        win32host::SetTickCount(77);
        ConnectToDock3("SRV1");
        // The user's copy, with one key of each kind.
        prtreg copy(kRemote);
        copy.SetInt("Settings:v", 1);
        copy.SetInt("STOCK:v", 2);
    }
    ~ShadowKeys() override { win32host::UseRealTickCount(); }

    static void Share() {
        const unsigned char yes = 1;
        EXPECT_TRUE(prtreg(kRemote).SetPrinterDataW("Network Sharing77", REG_BINARY, &yes, 1));
    }

    static uint32_t ChecksumOf(const OString& key) {
        OStringArray lines;
        prtreg(kRemote).Export(key, lines);
        return SharedKeysChecksum(lines);
    }

    // The question that the current copy leads to.
    static OString Question(const char* action, bool with_checksums) {
        OString question = "<xpml><registry action='";
        question << action << "' name='Dock3' tick='77'>";
        for (const char* key : {"DATA:Settings", "LOCAL:Paper Sizes"}) {
            const uint32_t checksum = with_checksums ? ChecksumOf(key) : 0;
            OString digits;
            digits.Hex(&checksum, 4);
            question << "\"" << key << "\"," << digits << ";";
        }
        return question << "</registry></xpml>";
    }

    // Prepares the server's answer to the question for its settings.
    static void Answer(uint32_t size, const OBuffer<char>& bytes) {
        prtreg server(kRemote);
        EXPECT_TRUE(server.SetPrinterDataW(Question("export", true), REG_DWORD, &size, 4));
        EXPECT_TRUE(
            server.SetPrinterDataW(kSharedKeyData, REG_BINARY, bytes.GetData(), bytes.GetSize()));
    }

    static OBuffer<char> Packed(std::initializer_list<const char*> lines) {
        OStringArray text;
        for (const char* line : lines) text.Add(line);
        OBuffer<char> bytes;
        EXPECT_TRUE(PackSharedKeys(text, bytes));
        return bytes;
    }

    static int32_t Copied(const char* name) { return prtreg(kRemote).GetInt(name, -1); }

    // Reads the server's printer data of that name, or only its size.
    static int32_t OnServerSize(const OString& name) {
        prtreg server(kRemote);
        server.SetShadow(false);
        OBuffer<char> bytes(65536);
        HANDLE printer = nullptr;
        WCHAR full_name[] = TEXT("\\\\SRV1\\Dock3");
        EXPECT_TRUE(OpenPrinterW(full_name, &printer, nullptr));
        DWORD type = 0, needed = 0;
        const DWORD error =
            GetPrinterDataW(printer, const_cast<WCHAR*>(name.wstring()), &type,
                            reinterpret_cast<BYTE*>(bytes.GetData()), bytes.GetSize(), &needed);
        ClosePrinter(printer);
        return error == ERROR_SUCCESS ? static_cast<int32_t>(needed) : -1;
    }
};

using ShadowKeyFailures = ShadowKeys;

} // namespace

TEST_F(ShadowKeys, AreReplacedByWhatTheServerSends) {
    Share();
    const OBuffer<char> bytes =
        Packed({"[" DATA_KEY "\\Settings]", "\"new\"=hex:05,00,00,00", "",
                "[HKEY_CURRENT_USER\\Software\\Other]", "\"v\"=dword:00000001", ""});
    const uint32_t before = ChecksumOf("DATA:Settings");
    Answer(bytes.GetSize(), bytes);
    CreateShadow(kRemote);
    EXPECT_EQ(Copied("Settings:new"), 5);
    EXPECT_EQ(Copied("Settings:v"), -1) << "the whole key is replaced";
    EXPECT_EQ(Copied("STOCK:v"), 2) << "the server did not send it";
    EXPECT_FALSE(ORegistry().GetKeyInfo("CURRENT_USER:Software/Other", nullptr, nullptr))
        << "nothing but shared keys is taken from another machine";
    // The checksums of the question are stored beside the keys.
    EXPECT_EQ(prtreg(kRemote).GetDWORD("DATA:Settings CRC32", 0), before);
    EXPECT_EQ(prtreg(kRemote).GetDWORD("LOCAL:Paper Sizes CRC32", 0),
              ChecksumOf("LOCAL:Paper Sizes"));
    EXPECT_EQ(ORegistry().GetDWORD("1:Software/Valdrick/Drivers/@SRV1/PRINT%3A/Printers/Dock3/"
                                   "PrinterDriverData/Settings CRC32",
                                   0),
              before);
}

TEST_F(ShadowKeys, HaveTheChecksumOfTheirLinesWithTerminators) {
    const char text[] = "[" DATA_KEY "\\Settings]\0\"v\"=hex:01,00,00,00\0";
    EXPECT_EQ(ChecksumOf("DATA:Settings"), CRC32(text, sizeof text, 0));

    // It is the same whether the lines are gathered first or not.
    prtreg copy(kRemote);
    const OString beyond(TEXT("na\u00EFve \u4E2D \\ \"x\""));
    copy.SetString(OString("Settings:Sub/") << beyond, beyond);
    const std::vector<char> bytes(9000, 'x');
    copy.SetBinary("Settings:Sub/long", bytes.data(), 9000);
    copy.SetString("Settings:", std::string(3000, 'y').c_str());
    EXPECT_EQ(SharedKeysChecksum(copy, "DATA:Settings"), ChecksumOf("DATA:Settings"));
    EXPECT_EQ(SharedKeysChecksum(copy, "none"), 0u);
}

TEST_F(ShadowKeys, AreSentWhenTheyAreCommittedUnlessTheirTextWouldBeLost) {
    Share();
    prtreg copy(kRemote);
    copy.SetString("Settings:lost", TEXT("\u0436"));
    copy.SetInt(TEXT("Settings:\u0436"), 1);
    copy.SetInt(TEXT("STOCK:\u0436/v"), 1);
    CommitShadow(kRemote);
    OBuffer<char> bytes(static_cast<uint32_t>(OnServerSize("Shadow Key Data")));
    prtreg server(kRemote);
    ASSERT_TRUE(
        server.GetPrinterDataW("Shadow Key Data", REG_BINARY, bytes.GetData(), bytes.GetSize()));
    uint32_t size = 0;
    ASSERT_TRUE(server.GetPrinterDataW("Shadow Key Size", REG_DWORD, &size, 4));
    EXPECT_EQ(size, bytes.GetSize());
    OStringArray lines;
    ASSERT_TRUE(UnpackSharedKeys(bytes, lines));
    const char* const expected[] = {
        "[" DATA_KEY "\\Settings]",
        "\"v\"=hex:01,00,00,00",
        "",
        "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Valdrick\\Drivers\\Paper Sizes]",
        "\"v\"=hex:02,00,00,00",
        ""};
    ASSERT_EQ(lines.GetSize(), 6);
    for (int i = 0; i < 6; ++i) EXPECT_STREQ(lines[i].nstring(), expected[i]);
}

TEST_F(ShadowKeyFailures, LeaveTheCopyAsItIs) {
    Share();
    OBuffer<char> damaged = Packed({"[" DATA_KEY "\\Settings]", ""});
    damaged[damaged.GetSize() - 1] ^= 1;
    OBuffer<char> nonsense;
    nonsense.Assign("nonsense", 8);
    const OBuffer<char> sound = Packed({"[" DATA_KEY "\\Settings]", ""});
    const struct {
        const char* what;
        uint32_t size;
        const OBuffer<char>& bytes;
    } cases[] = {
        {"nothing to send", 0, sound},
        {"less room than data", sound.GetSize() - 1, sound},
        {"more than anyone sends", 0xFFFFFFFF, sound},
        {"damaged", damaged.GetSize(), damaged},
        {"no container", 8, nonsense},
        {"shorter than announced", 5000, nonsense},
    };
    for (const auto& c : cases) {
        Answer(c.size, c.bytes);
        CreateShadow(kRemote);
        EXPECT_EQ(Copied("Settings:v"), 1) << c.what;
        EXPECT_EQ(Copied("STOCK:v"), 2) << c.what;
    }
}

TEST_F(ShadowKeyFailures, AreAServerThatIsGoneAndAUserWhoMayNotAdminister) {
    Share();
    const OBuffer<char> bytes = Packed({"[" DATA_KEY "\\Settings]", ""});
    Answer(bytes.GetSize(), bytes);
    win32host::SetUser({TEXT("gus"),
                        TEXT("DESK7"),
                        TEXT("DESK7"),
                        {{win32host::Group::Builtin, TEXT("Users"), TEXT(""), 545}}});
    prtreg guests_copy(kRemote);
    guests_copy.SetInt("Settings:v", 3);
    CreateShadow(kRemote);
    CommitShadow(kRemote);
    EXPECT_EQ(guests_copy.GetInt("Settings:v", -1), 3);
    win32host::UseProcessUser();

    const uint32_t before = static_cast<uint32_t>(OnServerSize("Shadow Key Data"));
    EXPECT_EQ(before, bytes.GetSize());
    std::filesystem::remove(root() + "/servers/SRV1");
    CreateShadow(kRemote);
    CommitShadow(kRemote);
    EXPECT_EQ(ORegistry().GetInt("1:Software/Valdrick/Drivers/@SRV1/PRINT%3A/Printers/Dock3/"
                                 "PrinterDriverData/Settings/v",
                                 -1),
              1);
}
