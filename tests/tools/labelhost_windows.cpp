// labelhost on Windows, where it works on the machine that it runs on.

#include "support/labelhost_test.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

class LabelhostOnWindows : public Labelhost {
protected:
    // The registry of the machine is not that of the test.
    ~LabelhostOnWindows() override {
        Run({"remove", kPrinter});
        for (const char* key : {"HKLM\\SYSTEM\\CurrentControlSet\\Control\\Print\\Environments\\"
                                "Windows x64\\Drivers\\Version-3\\Valdrick X4 300 dpi",
                                "HKLM\\SOFTWARE\\Valdrick", "HKCU\\SOFTWARE\\Valdrick"})
            Run({"registry", "delete", key});
    }

    static constexpr const char* kPrinter = "Stück 1";
};

TEST_F(LabelhostOnWindows, InstallsAPrinterAndHasItsDriverWork) {
    Install(kPrinter, "Valdrick X4 300 dpi");
    ASSERT_EQ(RunJson({"list"}).size(), 1u);
    EXPECT_EQ(RunJson({"list"})[0]["name"], kPrinter);
    EXPECT_EQ(Run({"upgrade", kPrinter}).output, std::string(kPrinter) + ": upgraded\n");

    const std::string file = root() + "/Maße 漢.kds";
    const Json written = RunJson({"settings", "export", kPrinter, file})["written"];
    EXPECT_GT(written["stocks"], 20);
    EXPECT_EQ(written["presets"], 3);
    EXPECT_EQ(RunJson({"settings", "import", kPrinter, file})["after"]["presets"], 3);
    EXPECT_EQ(RunJson({"convert", kPrinter, root() + "/ß.dm", "--mode", "default"})["bytes"], 1508);
    const Json made = RunJson({"document", kPrinter, "--in", root() + "/ß.dm", "--set",
                               "print_speed=6", "--out", root() + "/ß.dm"});
    EXPECT_EQ(made["configuration"]["print_speed"], 6);
    EXPECT_THAT(Run({"actions", kPrinter}).output, HasSubstr(" 12  Configuration Label\n"));
    EXPECT_EQ(RunJson({"event", kPrinter, "5"})["result"], 1);

    // The system's spooler opens the driver's sheet, and a program gets what was confirmed in it.
    Write("script.txt", "click 356\nstate\nok");
    const Json sheet = RunJson(
        {"sheet", kPrinter, "--run", File("script.txt"), "--out", root() + "/landscape.dm"});
    EXPECT_EQ(sheet["result"], "ok");
    EXPECT_EQ(sheet["states"][0]["title"], "Page Setup");
    EXPECT_EQ(RunJson({"document", kPrinter, "--in",
                       root() + "/landscape.dm"})["public"]["dmOrientation"],
              2);
}

TEST_F(LabelhostOnWindows, SaysInOneLineWhatItCannotDoThere) {
    ExpectRefused({
        {{"--root", "C:\\machine", "list"}, 2, "--root: on Windows"},
        {{"demo"}, 1, "the demo needs machines of its own"},
        {{"connect", "\\\\SERVER\\Dock", "--server", "C:\\x"}, 2, "--server: on Windows"},
        {{"capabilities", "Größe"}, 1, "'Größe'"},
        {{"models", "--product", "C:\\漢"}, 1, "C:\\漢\\zplui.inf"},
        {{"settings", "import", "Dock", "C:\\none.kds"}, 1, "none.kds': No such file"},
    });
}

} // namespace
