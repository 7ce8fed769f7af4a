#include "keys/prtreg.h"

#include <tuple>
#include <utility>

#include "spooler/platform_flags.h"
#include "support/printer_test.h"

namespace {

class TestKeyMap : public prtreg {
public:
    using prtreg::prtreg;

    OString Resolve(const OString& name) {
        OString key;
        OString value = name;
        return GetKeyAndValue(key, value) ? key + " | " + value : OString("nothing");
    }
};

class KeyMap : public PrinterTest {
protected:
    void AddDock() {
        ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
        ASSERT_TRUE(AddPrinter("Dock3", "Model 1"));
    }
};

using ShadowTree = KeyMap;

// Reads, without a key map, a value that was written through one.
int32_t Raw(const char* path) {
    return ORegistry().GetInt(path, -1);
}

} // namespace

TEST_F(KeyMap, ExpandsItsRootsAndPlaceholders) {
    ASSERT_TRUE(AddDriver("Model 1:x", "ZPLQV.DDT"));
    ASSERT_TRUE(AddPrinter("Dock3", "Model 1:x"));
    TestKeyMap map("Dock3");
#define PRINT_KEY "2:SYSTEM/CurrentControlSet/Control/Print"
#define DOCK3_KEY PRINT_KEY "/Printers/Dock3/PrinterDriverData"
    const std::pair<const char*, const char*> cases[] = {
        {"Settings:Network Sharing", DOCK3_KEY "/Settings | Network Sharing"},
        {"SETTINGS:a/b", DOCK3_KEY "/Settings/a | b"},
        {"DATA:v", DOCK3_KEY " | v"},
        {"Cache:v", DOCK3_KEY "/Cache | v"},
        {"Fonts:v", DOCK3_KEY "/Downloaded Fonts | v"},
        {"Presets:v", DOCK3_KEY "/Presets | v"},
        {"Debug:v", DOCK3_KEY "/Development | v"},
        {"Model:v", DOCK3_KEY "/Model | v"},
        {"Stock:v", "2:SOFTWARE/Valdrick/Drivers/Paper Sizes | v"},
        {"UserSettings:Language", "1:SOFTWARE/Valdrick/Drivers/Printers/Dock3/Settings | Language"},
        {"LOCAL:Printers/[PRINTER]/[PRINTER]/v",
         "2:SOFTWARE/Valdrick/Drivers/Printers/Dock3/Dock3 | v"},
        {"LOCAL:[MODEL]/[PORT]/[OEM]/-[SERVER]-/v",
         "2:SOFTWARE/Valdrick/Drivers/Model 1%3Ax/FILE%3A/qv/-- | v"},
        {"Driver_Info:v",
         PRINT_KEY "/Environments/Windows NT x86/Drivers/Version-3/Model 1%3Ax | v"},
        {"1:a/v", "1:a | v"}};
    for (const auto& [name, resolved] : cases)
        EXPECT_STREQ(map.Resolve(name).nstring(), resolved) << name;

    SetPlatformFlags("C:\\2");
    EXPECT_STREQ(map.Resolve("DRIVER_INFO:v").nstring(),
                 PRINT_KEY "/Environments/Windows NT x86/Drivers/Version-2/Model 1%3Ax | v");
    SetPlatformFlags("C:\\SYSTEM");
    EXPECT_STREQ(map.Resolve("DRIVER_INFO:v").nstring(),
                 PRINT_KEY "/Environments/Windows 4.0/Drivers/Model 1%3Ax | v");
    OString key = "DATA";
    map.SubstituteKey(key);
    EXPECT_STREQ(key.nstring(), "DATA");
}

TEST_F(KeyMap, KeepsAPrinterNameOneKey) {
    ASSERT_TRUE(AddDriver("Model 1", "zplqv.ddt"));
    for (const WCHAR* name : {TEXT("A/B"), TEXT("50%/C:D"), TEXT("\u0141\u20AC %41")}) {
        ASSERT_TRUE(AddPrinter(name, "Model 1"));
        prtreg map((OString(name)));
        EXPECT_TRUE(map.SetInt("UserSettings:v", 5));
        EXPECT_TRUE(map.SetInt("Settings:v", 6));
        OStringArray printers;
        ORegistry().EnumKeys("USER:Printers", printers);
        int found = 0;
        for (int i = 0; i < printers.GetSize(); ++i) found += printers[i] == OString(name);
        EXPECT_EQ(found, 1);
        EXPECT_EQ(map.GetInt("Settings:v", 0), 6);
    }
    OStringArray printers;
    EXPECT_EQ(ORegistry().EnumKeys("PRINT:Printers", printers), 3);
}

TEST_F(ShadowTree, HoldsTheKeysOfAConnection) {
    ConnectToDock3("SRV1");
    prtreg map("\\\\SRV1\\Dock3");
    EXPECT_TRUE(map.IsRemote());
    EXPECT_TRUE(map.IsShadow());
    EXPECT_STREQ(map.GetServerName().nstring(), "SRV1");
    EXPECT_STREQ(map.GetPrinterPart().nstring(), "Dock3");
    const std::pair<const char*, const char*> cases[] = {
        {"Settings:v",
         "1:Software/Valdrick/Drivers/@SRV1/PRINT::/Printers/Dock3/PrinterDriverData/Settings/v"},
        {"UserSettings:v", "1:Software/Valdrick/Drivers/@SRV1/USER::/Printers/Dock3/Settings/v"},
        {"LOCAL:k/v", "1:Software/Valdrick/Drivers/@SRV1/LOCAL::/k/v"},
        {"GLOBAL:v", "1:Software/Valdrick/Drivers/@SRV1/LOCAL::/Global Settings/v"},
        {"1:Elsewhere/v", "1:Elsewhere/v"}};
    for (const auto& [name, raw] : cases) {
        EXPECT_TRUE(map.SetInt(name, 42)) << name;
        EXPECT_EQ(Raw(raw), 42) << name;
        EXPECT_EQ(map.GetInt(name, 0), 42) << name;
    }
    EXPECT_EQ(Raw("LOCAL:k/v"), -1);
}

TEST_F(ShadowTree, FollowsThePrintersShadowMode) {
    AddDock();
    ConnectToDock3("SRV1");
    const std::tuple<unsigned char, bool, bool> cases[] = {
        {0, false, true}, {1, false, false}, {2, true, true}, {3, false, false}};
    for (const auto& [mode, local, remote] : cases) {
        ASSERT_TRUE(ORegistry().SetByte("LOCAL:Printers/Dock3/Shadow", mode));
        EXPECT_EQ(prtreg("Dock3").IsShadow(), local) << int{mode};
        EXPECT_EQ(prtreg("\\\\SRV1\\Dock3").IsShadow(), remote) << int{mode};
    }
}

TEST_F(KeyMap, ReachesPrinterDataThroughTheSpooler) {
    AddDock();
    prtreg map("Dock3");
    const unsigned char bytes[] = {1, 2, 3};
    ASSERT_TRUE(map.SetPrinterDataW("v", REG_BINARY, bytes, 3));
    EXPECT_EQ(map.GetSize("DATA:v"), 3);
    unsigned char buffer[3] = {};
    EXPECT_TRUE(map.GetPrinterDataW("v", REG_BINARY, buffer, 3));
    EXPECT_EQ(buffer[2], 3);
    EXPECT_FALSE(map.GetPrinterDataW("v", REG_BINARY, buffer, 2));
    EXPECT_FALSE(map.GetPrinterDataW("missing", REG_BINARY, buffer, 3));
    ASSERT_TRUE(map.SetPrinterDataW("empty", REG_BINARY, bytes, 0));
    EXPECT_FALSE(map.GetPrinterDataW("empty", REG_BINARY, buffer, 3));

    ConnectToDock3("SRV1");
    ASSERT_TRUE(prtreg("\\\\SRV1\\Dock3").SetPrinterDataW("v", REG_BINARY, bytes + 1, 1));
    OnServer("SRV1", [&] { EXPECT_EQ(prtreg("Dock3").GetByte("DATA:v", 0), 2); });
}

TEST_F(KeyMap, DeletesADriverDataKeyByItsWholeName) {
    AddDock();
    prtreg map("Dock3");
    map.SetInt("DATA:a//b/v", 1);
    map.SetInt("DATA:a/b/v", 2);
    EXPECT_TRUE(map.DeletePrinterDataKey("a/b"));
    EXPECT_EQ(map.GetInt("DATA:a//b/v", 0), 0);
    EXPECT_EQ(map.GetInt("DATA:a/b/v", 0), 2);
    EXPECT_FALSE(map.DeletePrinterDataKey("a"));
}
