// labelhost as a person runs it: every shipped model installed and asked, mistakes answered in one
// line, two processes at once.

#include "support/labelhost_test.h"

#include <filesystem>
#include <thread>

namespace {

TEST_F(Labelhost, AnswersForEveryShippedModel) {
    const Json models = RunJson({"models"});
    ASSERT_GE(models.size(), 10u);
    for (const Json& model : models) {
        const std::string printer = "Printer " + model["name"].get<std::string>();
        Install(printer, model["name"]);
        const Json answer = RunJson({"capabilities", printer});
        const int smallest = answer["results"]["4"], largest = answer["results"]["5"];
        EXPECT_GT(largest & 0xFFFF, smallest & 0xFFFF) << printer;
        EXPECT_GT(largest >> 16, smallest >> 16) << printer;
        EXPECT_GE(answer["resolutions"][0][0].get<int>(), 203) << printer;
        EXPECT_GT(answer["paper_names"].size(), 10u) << printer;
    }
    EXPECT_EQ(RunJson({"list"}).size(), models.size());
}

TEST_F(Labelhost, RemovesWhatItInstalled) {
    Install("Dock/3 %41: Ä", "valdrick x4 300 DPI");
    const Json list = RunJson({"list"});
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0]["name"], "Dock/3 %41: Ä");
    EXPECT_EQ(list[0]["driver"], "Valdrick X4 300 dpi");
    EXPECT_EQ(list[0]["port"], "FILE:");
    EXPECT_EQ(Run({"remove", "Dock/3 %41: Ä"}).status, 0);
    EXPECT_TRUE(RunJson({"list"}).empty());
    EXPECT_EQ(Run({"remove", "Dock/3 %41: Ä"}).status, 1);
}

TEST_F(Labelhost, SaysInOneLineWhatWasWrong) {
    Install("Dock", "Valdrick M2 Mobile");
    ExpectRefused({
        {{"capabilities", "Nowhere"}, 1, "Nowhere"},
        {{"event", "Dock", "start"}, 2, "start"},
        {{"install", "New", "--model", "Abacus"}, 1, "Abacus"},
        {{"install", "New", "--model", "Valdrick M2 Mobile", "--oem", "zz"}, 1, "zz"},
        {{"install", "New", "--model", "Valdrick M2 Mobile", "--port", "LPT9:"}, 1, "LPT9:"},
        {{"install", "New", "--model", "x", "--product", "/nowhere"}, 1, "/nowhere"},
        {{"install", "Dock", "--model", "Valdrick M2 Mobile"}, 1, "Dock"},
        {{"install", "New"}, 2, "--model"},
        {{"list", "--colour"}, 2, "--colour"},
        {{"printer-emulator", "--port", "65536"}, 1, "65536"},
        {{"printer-emulator", "--port", "0", "--answers", "/nowhere"}, 1, "/nowhere"},
        {{"dance"}, 2, "dance"},
        {{"demo", "/proc/nothing"}, 1, "/proc/nothing"},
        {{"document", "Dock", "--preset", "None"}, 1, "but these: Draft, High quality, Wristband"},
        {{"document", "Dock", "--preset", "Draft", "--in", "x"}, 2, "usage"},
        {{"document", "Dock", "--save-preset", " Draft"}, 1, "no name for a preset"},
        {{"jobs", "Dock", "--show", "9"}, 1, "no job 9"},
        {{"registry", "dump", "HKEY_NOWHERE\\x"}, 1, "HKEY_NOWHERE"},
        {{"registry", "set", "HKLM\\k", "v", "REG_BINARY", "0x"}, 1, "0x"},
        {{"registry", "set", "HKLM\\k", "v", "REG_COLOUR", "00"}, 1, "REG_COLOUR"},
        {{"registry", "delete", "HKLM"}, 1, "root"},
    });
}

TEST_F(Labelhost, LosesNoSettingsToBadFiles) {
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

TEST_F(Labelhost, ShowsAndChangesTheRegistry) {
    const std::string key = "HKEY_LOCAL_MACHINE\\Software\\A b";
    EXPECT_EQ(Run({"registry", "set", key + "\\Below", "Größe", "REG_DWORD", "2a 00 00 00"}).status,
              0);
    EXPECT_EQ(Run({"registry", "set", key, "", "1", "41000000"}).status, 0);
    EXPECT_EQ(RunJson({"registry", "dump", "hklm\\software\\a B"}),
              Json::parse(R"({"values": {"": {"type": 1, "data": "41000000"}},
                              "keys": {"Below": {"values": {"Größe": {"type": 4, "data": "2a000000"}},
                                                 "keys": {}}}})"));
    EXPECT_EQ(Run({"registry", "dump", key}).output, "[" + key +
                                                         "]\n  (default) (REG_SZ) \"A\"\n[" + key +
                                                         "\\Below]\n  Größe (REG_DWORD) 42\n");
    EXPECT_EQ(Run({"registry", "delete", key + "\\Below", "größe"}).status, 0);
    EXPECT_EQ(Run({"registry", "delete", key}).status, 0);
    EXPECT_EQ(Run({"registry", "dump", key}).status, 1);
}

TEST_F(Labelhost, TwoProcessesAtOnceDoNotDisturbEachOther) {
    const auto install_many = [&](const std::string& prefix) {
        for (int i = 0; i < 4; ++i) {
            Install(prefix + std::to_string(i), "Valdrick X4 203 dpi");
            EXPECT_EQ(Run({"capabilities", prefix + std::to_string(i)}).status, 0);
        }
    };
    std::thread other([&] { install_many("B"); });
    install_many("A");
    other.join();
    EXPECT_EQ(RunJson({"list"}).size(), 8u);
}

} // namespace
