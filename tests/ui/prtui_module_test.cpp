// The UI object beside the installed module: its version resource.
#include "ui/version_info.h"

#include <filesystem>

#include "spooler/driver_utility.h"
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
