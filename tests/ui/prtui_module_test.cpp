// The UI object beside the module as it is installed: version resource, capabilities.
#include "ui/version_info.h"

#include <filesystem>

#include "spooler/driver_utility.h"
#include "spooler/open_printer.h"
#include "support/build_folders.h"
#include "support/staged_driver_test.h"
#include "ui/prtui.h"

namespace {

class UIObjectOfTheModule : public StagedDriverTest {
protected:
    ~UIObjectOfTheModule() override { DriverUtility::SetModuleHandle(nullptr); }
};

} // namespace

TEST_F(UIObjectOfTheModule, ReadsItsVersionResource) {
    Install({});
    const std::string folder = std::string(DriverFolder().nstring()).substr(3);
    std::filesystem::copy_file(Built("/bin/zplui.dll.mui"), OnDriveC(folder + "\\zplui.dll.mui"));
    const std::unique_ptr<prtui> ui(prtui::new_ext());
    DriverUtility::SetModuleHandle(nullptr);
    EXPECT_FALSE(ui->LoadFileVersionInfo());
    EXPECT_TRUE(ui->GetBuildDate().IsEmpty());
    EXPECT_EQ(ui->GetCopyrightStart(), 0);

    const HMODULE module = LoadLibraryW((DriverFolder() + "\\zplui.dll").wstring());
    DriverUtility::SetModuleHandle(module);
    OString version, tag;
    ui->GetVersionInfo(version);
    ui->GetVersionTag(tag);
    EXPECT_EQ(Text(version).find_first_not_of("0123456789."), std::string::npos);
    EXPECT_FALSE(version.IsEmpty() || tag.IsEmpty() || ui->GetBuildDate().IsEmpty() ||
                 ui->GetSCMBranch().IsEmpty() || ui->GetSCMRevision().IsEmpty());
    // English, in the western code page.
    const std::string notice = Text(ui->GetCopyright());
    EXPECT_EQ(notice.rfind("Copyright \xA9", 0), 0u) << notice;
    EXPECT_EQ(notice.find("(c)"), std::string::npos);
    EXPECT_GT(ui->GetCopyrightStart(), 2000);
    EXPECT_EQ(ui->GetCopyrightEnd(), ui->GetCopyrightStart());
    FreeLibrary(module);
}

TEST_F(UIObjectOfTheModule, AsksTheSystemForCapabilities) {
    Install({.method = "Copies.Limit=500\n"});
    const OpenPrinter printer("Dock 3", PRINTER_ACCESS_USE);
    const std::unique_ptr<prtui> ui(prtui::new_ext());
    ui->init(printer.Get(), nullptr, 0);
    EXPECT_EQ(ui->DeviceCapabilitiesW(DC_COPIES, nullptr), 500u);
}

TEST(CopyrightNotice, TellsItsYears) {
    const struct {
        const char* text;
        int32_t start, end;
    } cases[] = {{"(c) 2001-2004 Maker", 2001, 2004},
                 {"(c) 2004 Maker", 2004, 2004},
                 {"1999-20", 1999, 20},
                 {"2004-", 2004, 0},
                 {"19", 19, 19},
                 {"Maker", 0, 0},
                 {"", 0, 0},
                 {"v3 1998, 2004", 1998, 1998}};
    for (const auto& c : cases) {
        const CopyrightYears years = ReadCopyrightYears(c.text);
        EXPECT_EQ(years.start, c.start) << c.text;
        EXPECT_EQ(years.end, c.end) << c.text;
    }
}
