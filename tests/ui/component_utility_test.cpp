// Versions of components and of the system.
#include "ui/component_utility.h"

#include <filesystem>
#include <string>

#include "registry/oregistry.h"
#include "support/build_folders.h"
#include "support/model_test.h"

using ComponentVersions = ModelTest;

TEST_F(ComponentVersions, OfFilesAreComparedAsFarAsTheRequiredOneGoes) {
    std::filesystem::copy_file(Built("/bin/zplui.dll.mui"), OnDriveC("zplui.dll"));
    const OString file("C:\\zplui.dll");
    OTypedArray<int> parts;
    const OString version = GetProductVersion(file, &parts, false);
    ASSERT_EQ(parts.GetSize(), 4);
    ComponentUtility::tagProductVersionInfo info;
    ASSERT_TRUE(ComponentUtility::GetProductVersionInfo(file, &info));
    EXPECT_FALSE(info.file_description.IsEmpty() || info.legal_copyright.IsEmpty());
    EXPECT_EQ(info.product_version, GetProductVersion(file, nullptr, true));

    OString next(FormatInt(parts[0]));
    next << "." << parts[1] + 1;
    const struct {
        OString required;
        int result;
    } cases[] = {{"0.0", 1}, {FormatInt(parts[0]), 0}, {version, 0}, {next, -1}, {"", 1}};
    for (const auto& c : cases)
        EXPECT_EQ(ComponentUtility::CheckVersion(file, c.required), c.result)
            << c.required.nstring();
    EXPECT_EQ(ComponentUtility::CheckVersion("C:\\none.dll", ""), -1);
    EXPECT_FALSE(ComponentUtility::IsInstalled("C:\\none.dll", "0.0"));
    EXPECT_FALSE(ComponentUtility::GetProductVersionInfo("C:\\none.dll", &info));
    EXPECT_EQ(ComponentUtility::CheckVersion("richedit", "1.0"), 1);
}

TEST_F(ComponentVersions, OfTheBrowserAndTheDesignProgramAreFoundThroughTheRegistry) {
    ORegistry registry;
    constexpr char kBrowser[] = "LOCAL_MACHINE:Software/Microsoft/Internet Explorer/Version";
    const OString before = registry.GetString(kBrowser, OString());
    registry.SetString(kBrowser, "6.0.2800");
    EXPECT_EQ(ComponentUtility::GetVersion("HTML Help"), "6.0.2800");
    EXPECT_TRUE(ComponentUtility::IsInstalled("html help", "6.0"));
    EXPECT_FALSE(ComponentUtility::IsInstalled("HTML Help", "6.0.2801"));
    EXPECT_EQ(CheckExplorerVersion(""), 0);
    registry.SetString(kBrowser, before);

    EXPECT_EQ(CheckFablewickVersion("0.0"), -1);
    std::filesystem::copy_file(Built("/bin/zplui.dll.mui"), OnDriveC("fable.exe"));
    registry.SetString("CLASSES_ROOT:.fwk/", "Label.1");
    registry.SetString("CLASSES_ROOT:Label.1/shell/open/command/", "C:\\fable.exe \"%%1\"");
    EXPECT_EQ(ComponentUtility::GetVersion("Fablewick"),
              GetProductVersion("C:\\fable.exe", nullptr, false));
    EXPECT_TRUE(ComponentUtility::IsInstalled("Fablewick", "0.0"));
    registry.Delete("CLASSES_ROOT:.fwk", true);
    registry.Delete("CLASSES_ROOT:Label.1", true);
}

TEST_F(ComponentVersions, OfSystemsHaveNamesAndEditions) {
    constexpr WORD kPersonal = 0x200, kEnterprise = 2, kDatacenter = 0x80, kBlade = 0x400;
    struct Case {
        DWORD platform, major, minor, build;
        const char* pack;
        WORD suites;
        BYTE product;
        const char* text;
    };
    const Case kServicePack6 = {2,
                                4,
                                0,
                                1381,
                                "service pack 6",
                                0,
                                1,
                                "Windows NT 4.0|Workstation|service pack 6 (Build 1381)"};
    const Case cases[] = {
        {1, 4, 0, 0, " C", 0, 0, "Windows 95||OSR2"},
        {1, 4, 0, 0, " B", 0, 0, "Windows 95||OSR2"},
        {1, 4, 0, 0, " A", 0, 0, "Windows 95||"},
        {1, 4, 10, 0, " A", 0, 0, "Windows 98||Second Edition"},
        {1, 4, 10, 0, "A", 0, 0, "Windows 98||"},
        {1, 4, 90, 0, " A", 0, 0, "Windows Me||"},
        {1, 4, 20, 0, "", 0, 0, "||"},
        {1, 5, 0, 0, "", 0, 0, "||"},
        {0, 4, 0, 0, "x", 0, 1, "||"},
        {2, 3, 51, 1057, "x", 0, 1, "Windows NT 3.51||x (Build 1057)"},
        kServicePack6,
        {2, 4, 0, 1381, "x", kEnterprise, 3,
         "Windows NT 4.0|Server (Enterprise Edition)|x (Build 1381)"},
        {2, 4, 0, 1381, "x", kDatacenter, 3, "Windows NT 4.0|Server|x (Build 1381)"},
        {2, 5, 0, 0x12340893, "x", 0, 1, "Windows 2000|Professional|x (Build 2195)"},
        {2, 5, 0, 1, "x", kDatacenter | kEnterprise, 2,
         "Windows 2000|Datacenter Server|x (Build 1)"},
        {2, 5, 0, 1, "x", kEnterprise, 3, "Windows 2000|Advanced Server|x (Build 1)"},
        {2, 5, 0, 1, "x", kBlade, 3, "Windows 2000|Server|x (Build 1)"},
        {2, 5, 1, 2600, "", kPersonal, 1, "Windows XP|Home Edition| (Build 2600)"},
        {2, 5, 1, 2600, "", kEnterprise, 1, "Windows XP|Professional| (Build 2600)"},
        {2, 5, 1, 1, "x", kEnterprise, 3, "Windows XP|Server (Enterprise Edition)|x (Build 1)"},
        {2, 5, 2, 1, "x", kDatacenter | kBlade, 3,
         "Windows Server 2003|Datacenter Edition|x (Build 1)"},
        {2, 5, 2, 1, "x", kBlade | kEnterprise, 3,
         "Windows Server 2003|Enterprise Edition|x (Build 1)"},
        {2, 5, 2, 1, "x", kBlade, 3, "Windows Server 2003|Web Edition|x (Build 1)"},
        {2, 5, 2, 1, "x", kBlade | 0x10, 3, "Windows Server 2003|Standard Edition|x (Build 1)"},
        {2, 5, 3, 1, "x", 0, 2, "Windows NT 5.3|Server|x (Build 1)"},
        {2, 6, 1, 1, "x", kPersonal, 1, "Windows NT 6.1||x (Build 1)"},
        {2, 6, 1, 1, "x", kEnterprise, 2, "Windows NT 6.1|Server (Enterprise Edition)|x (Build 1)"},
    };
    const auto describe = [](const Case& c, bool extended) {
        OSVERSIONINFOEXW system = {};
        system.dwPlatformId = c.platform;
        system.dwMajorVersion = c.major;
        system.dwMinorVersion = c.minor;
        system.dwBuildNumber = c.build;
        for (int i = 0; c.pack[i]; ++i) system.szCSDVersion[i] = static_cast<WCHAR>(c.pack[i]);
        system.wSuiteMask = c.suites;
        system.wProductType = c.product;
        OString name, edition, pack;
        DescribeSystem(system, extended, name, edition, pack);
        return Text(name + "|" + edition + "|" + pack);
    };
    for (const auto& c : cases) EXPECT_EQ(describe(c, true), c.text);

    // The registry of Windows NT 4.0 knows its edition, and a hotfix after the service pack.
    ORegistry registry;
    constexpr char kType[] = "2:SYSTEM/CurrentControlSet/Control/ProductOptions/ProductType";
    constexpr char kHotfixes[] =
        "LOCAL_MACHINE:SOFTWARE/Microsoft/Windows NT/CurrentVersion/Hotfix";
    const OString before = registry.GetString(kType, OString());
    registry.SetDWORD(OString(kHotfixes) + "/Q246009/Installed", 1);
    const char* const types[][2] = {{"WinNT", "Workstation"},
                                    {"SERVERNT", "Server"},
                                    {"LANMANNT", "Server (Enterprise Edition)"},
                                    {"other", ""}};
    for (const auto& [type, edition] : types) {
        registry.SetString(kType, type);
        EXPECT_EQ(describe(kServicePack6, false),
                  std::string("Windows NT 4.0|") + edition + "|Service Pack 6a (Build 1381)");
    }
    registry.SetString(kType, before);
    registry.Delete(kHotfixes, true);
}
