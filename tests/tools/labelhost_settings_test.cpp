// labelhost settings: files that the driver writes and reads.

#include "tools/labelhost_fixture.h"

#include <filesystem>

namespace {

using LabelhostSettings = Labelhost;

} // namespace

TEST_F(LabelhostSettings, GoFromOnePrinterToAnother) {
    Install("One", "Valdrick X4 300 dpi");
    Install("Two", "Valdrick X4 300 dpi");
    Install("Other", "Valdrick M2 Mobile");
    const std::string presets = "HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Two\\"
                                "PrinterDriverData\\Presets";
    const Json written = RunJson({"settings", "export", "One", File("all.kds")})["written"];
    EXPECT_GT(written["stocks"], 20);
    EXPECT_EQ(written["presets"], 3);
    EXPECT_EQ(written["options"], 1);
    ASSERT_EQ(Run({"registry", "delete", presets}).status, 0);
    const Json read = RunJson({"settings", "import", "Two", File("all.kds")});
    EXPECT_EQ(read["before"]["presets"], 0);
    EXPECT_EQ(read["after"]["presets"], 3);
    EXPECT_EQ(read["after"]["stocks"], written["stocks"]);
    EXPECT_EQ(read["options"], true);
    EXPECT_EQ(RunJson({"registry", "dump", presets})["values"]["Total"]["data"], "03000000");
    EXPECT_EQ(RunJson({"settings", "import", "Other", File("all.kds")})["options"], false);

    EXPECT_EQ(RunJson({"settings", "export", "Two", File("some.kds"), "--only",
                       "presets,stocks"})["written"]
                  .size(),
              2u);
    EXPECT_EQ(BytesOf(File("some.kds")).find("<font"), std::string::npos);
}

TEST_F(LabelhostSettings, AreNotLostToBadFiles) {
    Install("Dock", "Valdrick D4 203 dpi");
    ASSERT_EQ(Run({"settings", "export", "Dock", File("good.kds")}).status, 0);
    Write("picture.kds", "\x89PNG\r\n");
    Write("short.kds", "<dr");
    Write("marked.kds", "\xEF\xBB\xBF<driver version='6.6'>\r\n");
    Write("stocks.kfm", "KFM1");
    ExpectRefused({
        {{"settings", "import", "Dock", File("none.kds")}, 1, "No such file"},
        {{"settings", "import", "Dock", root()}, 1, "directory"},
        {{"settings", "import", "Dock", File("picture.kds")}, 1, "is no settings file"},
        {{"settings", "import", "Dock", File("short.kds")}, 1, "is no settings file"},
        {{"settings", "import", "Dock", File("marked.kds")}, 1, "byte order mark"},
        {{"settings", "import", "Dock", File("stocks.kfm"), "--only", "presets"}, 1, "nothing"},
        {{"settings", "import", "Nowhere", File("good.kds")}, 1, "Nowhere"},
        {{"settings", "export", "Dock", File("no/such/folder.kds")}, 1, "folder.kds"},
        {{"settings", "export", "Dock", File("x.kds"), "--only", "fish"}, 2, "fish"},
        {{"settings", "print", "Dock", File("x.kds")}, 2, "print"},
        {{"settings", "export", "Dock"}, 2, "usage"},
    });
    EXPECT_FALSE(std::filesystem::exists(File("none.kds")));
    const std::string good = BytesOf(File("good.kds"));
    ASSERT_EQ(Run({"settings", "export", "Dock", File("good.kds")}).status, 0);
    EXPECT_EQ(BytesOf(File("good.kds")), good);
}
