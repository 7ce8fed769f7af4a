// Settings shared between print servers and their clients, from end to end: the driver's client
// side, the spooler, and the status monitor as the server.
#include "qstmon/shadow_server.h"

#include <win32host/control.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "keys/prtreg.h"
#include "keys/shadow_keys.h"
#include "keys/shadow_request.h"
#include "keys/shared_keys_text.h"
#include "support/build_folders.h"
#include "support/printer_test.h"

namespace {

namespace fs = std::filesystem;

class SharedSettings : public PrinterTest {
protected:
    SharedSettings() { UseUser(u"ann", 1001); }

    static void UseUser(const char16_t* name, DWORD rid) {
        win32host::SetUser({name,
                            u"DESK7",
                            u"DESK7",
                            {{win32host::Group::Builtin, u"Administrators", u"", 544}},
                            rid});
    }

    // A server with the printer Dock3, which this user is connected to.
    void Connect(const std::string& server) {
        ConnectToDock3(server, PRINTER_ATTRIBUTE_SHARED | PRINTER_ATTRIBUTE_ENABLE_BIDI);
        // The driver's monitor, which the made-up driver lacks.
        ORegistry().SetString("PRINT:Environments/Windows NT x86/Drivers/Version-3/Model 1/Monitor",
                              "qstmon");
        fs::copy_file(Built("/bin/qstmon.dll"),
                      OnDriveC("WINDOWS\\system32\\spool\\drivers\\w32x86\\3\\qstmon.dll"),
                      fs::copy_options::overwrite_existing);
    }
    static OString Printer(const std::string& server) {
        return OString("\\\\") << server.c_str() << "\\Dock3";
    }

    // Values in the user's copy, and in the server's own settings.
    static int32_t Copied(const char* name, const std::string& server = "SRV1") {
        return prtreg(Printer(server)).GetInt(name, -1);
    }
    static void SetCopied(const char* name, int32_t value, const std::string& server = "SRV1") {
        prtreg(Printer(server)).SetInt(name, value);
    }
    int32_t Served(const char* name, const std::string& server = "SRV1") {
        int32_t value = 0;
        OnServer(server, [&] { value = prtreg("Dock3").GetInt(name, -1); });
        return value;
    }
    void SetServed(const char* name, int32_t value, const std::string& server = "SRV1") {
        OnServer(server, [&] { prtreg("Dock3").SetInt(name, value); });
    }

    // The lines prepared on the server, and their keys by the ends of their names.
    OStringArray Prepared() {
        OStringArray lines;
        OnServer("SRV1", [&] {
            prtreg registry("Dock3");
            OBuffer<char> bytes(
                static_cast<uint32_t>(std::max(registry.GetSize("DATA:Shadow Key Data"), 0)));
            registry.GetBinary("DATA:Shadow Key Data", bytes.GetData(), bytes.GetSize());
            UnpackSharedKeys(bytes, lines);
        });
        return lines;
    }
    std::string Ready() {
        std::string keys;
        const OStringArray lines = Prepared();
        for (int i = 0; i < lines.GetSize(); ++i) {
            const std::string line = lines[i].nstring();
            if (line.rfind('[', 0) == 0) keys += line.substr(line.rfind('\\') + 1);
        }
        return keys;
    }

    // Leaves lines on the server as a client does, without asking for the takeover.
    static void Leave(std::initializer_list<const char*> lines, int32_t more_size = 0) {
        OStringArray text;
        for (const char* line : lines) text.Add(line);
        OBuffer<char> bytes;
        ASSERT_TRUE(PackSharedKeys(text, bytes));
        prtreg server(Printer("SRV1"));
        const int32_t size = static_cast<int32_t>(bytes.GetSize()) + more_size;
        EXPECT_TRUE(
            server.SetPrinterDataW(kSharedKeyData, REG_BINARY, bytes.GetData(), bytes.GetSize()));
        EXPECT_TRUE(server.SetPrinterDataW(kSharedKeySize, REG_DWORD, &size, sizeof size));
    }
    static std::optional<uint32_t> Ask(ShadowRequest::Action action, const char* name = "Dock3") {
        ShadowRequest request;
        request.action = action;
        request.printer = name;
        const OString document = request.Text();
        return AnswerShadowRequest(Printer("SRV1").wstring(), document.nstring());
    }
};

#define DATA_KEY(PRINTER)                                                                          \
    "HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\" PRINTER            \
    "\\PrinterDriverData"

} // namespace

TEST_F(SharedSettings, ComeFromTheServerAsFarAsTheyDiffer) {
    Connect("SRV1");
    SetServed("Settings:v", 1);
    SetServed("STOCK:v", 2);
    SetServed("Presets:v", 3);
    SetCopied("Settings:mine", 4);
    SetCopied("Cache:v", 5);
    CreateShadow(Printer("SRV1"));
    EXPECT_EQ(Copied("Settings:v"), 1);
    EXPECT_EQ(Copied("Settings:mine"), -1);
    EXPECT_EQ(Copied("STOCK:v"), 2);
    EXPECT_EQ(Copied("Presets:v"), 3);
    EXPECT_EQ(Copied("Cache:v"), -1) << "the server has no such key";
    EXPECT_EQ(Ready(), "Settings]Presets]Paper Sizes]Cache]");

    SetServed("Presets:v", 6);
    CreateShadow(Printer("SRV1"));
    EXPECT_EQ(Copied("Presets:v"), 6);
    EXPECT_EQ(Ready(), "Presets]") << "all others are up to date";
    EXPECT_EQ(ORegistry().GetInt("LOCAL:Paper Sizes/v", -1), -1) << "in the user's tree only";
}

TEST_F(SharedSettings, AreThoseOfAllUsersOfAServerAndOfNoOtherServer) {
    Connect("SRV1");
    Connect("SRV2");
    SetServed("Settings:v", 1, "SRV1");
    SetServed("Settings:v", 2, "SRV2");
    for (const char* server : {"SRV1", "SRV2"}) CreateShadow(Printer(server));
    SetCopied("Settings:v", 10, "SRV1");
    SetCopied("STOCK:v", 11, "SRV1");
    CommitShadow(Printer("SRV1"));
    EXPECT_EQ(Served("Settings:v", "SRV1"), 10);
    EXPECT_EQ(Served("STOCK:v", "SRV1"), 11);
    EXPECT_EQ(Served("Settings:v", "SRV2"), 2);
    EXPECT_EQ(Copied("Settings:v", "SRV2"), 2);

    UseUser(u"bob", 1002);
    WCHAR name[] = TEXT("\\\\SRV1\\Dock3");
    ASSERT_TRUE(AddPrinterConnectionW(name));
    EXPECT_EQ(Copied("Settings:v", "SRV1"), -1);
    CreateShadow(Printer("SRV1"));
    EXPECT_EQ(Copied("Settings:v", "SRV1"), 10);
    SetCopied("Settings:v", 20, "SRV1");
    CommitShadow(Printer("SRV1"));
    UseUser(u"ann", 1001);
    CreateShadow(Printer("SRV1"));
    EXPECT_EQ(Copied("Settings:v", "SRV1"), 20);
}

TEST_F(SharedSettings, StayApartWhenTheServerDoesNotShareThem) {
    Connect("SRV1");
    SetServed("Settings:v", 1);
    OnServer("SRV1", [] { prtreg("Dock3").SetByte("Settings:Network Sharing", 0); });
    SetCopied("Settings:v", 2);
    CreateShadow(Printer("SRV1"));
    CommitShadow(Printer("SRV1"));
    EXPECT_EQ(Copied("Settings:v"), 2);
    EXPECT_EQ(Served("Settings:v"), 1);
    EXPECT_EQ(Ask(ShadowRequest::EXPORT), std::nullopt);
    EXPECT_EQ(AnswerShadowRequest(TEXT("\\\\SRV1\\None"), "<xpml></xpml>"), std::nullopt);
}

TEST_F(SharedSettings, AreNotHarmedByClientsThatLeaveNonsense) {
    Connect("SRV1");
    SetServed("Settings:v", 1);
    EXPECT_EQ(Ask(ShadowRequest::IMPORT), 0u) << "nobody has left anything";
    Leave({"[" DATA_KEY("Dock3") "\\Settings]", "\"v\"=hex:02,00,00,00", ""}, 1);
    EXPECT_EQ(Ask(ShadowRequest::IMPORT), 0u) << "half of it";
    EXPECT_EQ(Served("Settings:v"), 1);
    Leave({"[" DATA_KEY("Other") "\\Settings]", "\"v\"=hex:03,00,00,00", "",
           "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]", "\"v\"=hex:03,00,00,00", "",
           "[" DATA_KEY("Dock3") "]", "\"v\"=hex:03,00,00,00", ""});
    EXPECT_EQ(Ask(ShadowRequest::IMPORT), 1u);
    EXPECT_EQ(Served("Settings:v"), 1);
    EXPECT_EQ(Served("DATA:v"), -1);
    EXPECT_EQ(Served("LOCAL_MACHINE:SOFTWARE/Other/v"), -1);
    EXPECT_EQ(Served("PRINT:Printers/Other/PrinterDriverData/Settings/v"), -1);
}

TEST_F(SharedSettings, AreNotLostWhenAnotherUserAsksFirst) {
    Connect("SRV1");
    SetServed("Settings:v", 1);
    Leave({"[" DATA_KEY("Dock3") "\\Settings]", "\"v\"=hex:02,00,00,00", ""});
    CreateShadow(Printer("SRV1"));
    EXPECT_EQ(Served("Settings:v"), 2);
    EXPECT_EQ(Copied("Settings:v"), 2);
    EXPECT_EQ(Ask(ShadowRequest::IMPORT), 0u) << "taken once";
    EXPECT_EQ(Served("Settings:v"), 2);
}

TEST_F(SharedSettings, AreNamedAsTheClientNamesItsPrinter) {
    Connect("SRV1");
    SetServed("Settings:v", 1);
    ASSERT_GT(Ask(ShadowRequest::EXPORT, "SHARE").value_or(0), 0u);
    EXPECT_STREQ(Prepared()[0].nstring(), "[" DATA_KEY("SHARE") "\\Settings]");
    Leave({"[" DATA_KEY("SHARE") "\\Settings]", "\"v\"=hex:05,00,00,00", ""});
    EXPECT_EQ(Ask(ShadowRequest::IMPORT, "SHARE"), 1u);
    EXPECT_EQ(Served("Settings:v"), 5);
}
