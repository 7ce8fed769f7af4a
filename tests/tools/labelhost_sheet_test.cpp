// labelhost sheet on a printer with the driver. What scripts do in windows is in sheet_test.cpp.
#include "support/labelhost_test.h"

#include <filesystem>

namespace {

class LabelhostSheet : public Labelhost {
protected:
    LabelhostSheet() { Install("P1", "Valdrick X4 203 dpi"); }

    // Plays a script with the sheet that `words` name.
    ProgramResult Play(const std::string& script, std::vector<std::string> words) const {
        Write("script.txt", script);
        words.insert(words.begin(), {"sheet", "P1", "--run", File("script.txt"), "--json"});
        return Run(words);
    }
    Json Settings() const { return RunJson({"document", "P1"})["public"]; }
};

TEST_F(LabelhostSheet, GivesAProgramWhatWasConfirmedOrApplied) {
    const struct {
        const char* script;
        const char* result;
        bool applied, written;
    } cases[] = {
        {"click 356\nok", "ok", false, true},
        {"click 356\nkey ENTER", "ok", false, true},
        {"click 356\ncancel", "cancel", false, false},
        {"click 356\nkey ESC", "cancel", false, false},
        {"click 356", "cancel", false, false},
        {"click 356\napply\nclick 355\ncancel", "cancel", true, true},
    };
    for (const auto& c : cases) {
        const std::string out = File("out.dm");
        const ProgramResult result = Play(c.script, {"--out", out});
        ASSERT_EQ(result.status, 0) << c.script << ": " << result.errors;
        const Json told = Json::parse(result.output);
        EXPECT_EQ(told["result"], c.result) << c.script;
        EXPECT_EQ(told.contains("applied"), c.applied) << c.script;
        ASSERT_EQ(std::filesystem::remove(out), c.written) << c.script;
    }
    Play("click 356\nok", {"--out", File("landscape.dm")});
    EXPECT_EQ(RunJson({"document", "P1", "--in", File("landscape.dm")})["public"]["dmOrientation"],
              2);
    const Json again = Json::parse(Play("state", {"--in", File("landscape.dm")}).output);
    for (const Json& control : again["states"][0]["controls"])
        EXPECT_TRUE(control["id"] != 356 || control["checked"] == 1);
    EXPECT_EQ(Settings()["dmOrientation"], 1);
}

TEST_F(LabelhostSheet, OpensDefaultsAndPropertiesToo) {
    EXPECT_EQ(Play("click 356\nok", {"--defaults"}).status, 0);
    EXPECT_EQ(Settings()["dmOrientation"], 2);

    const ProgramResult device = Play("click 3007\ncancel", {"--device"});
    EXPECT_EQ(Json::parse(device.output)["pages"][0], "General");
    EXPECT_EQ(RunJson({"jobs", "P1"})[0]["name"], "Printer Test");
}

TEST_F(LabelhostSheet, TakesAPictureOfEveryPage) {
    const std::string folder = File("new/pictures");
    const Json told = RunJson({"sheet", "P1", "--pictures", folder});
    EXPECT_EQ(told["states"].size(), told["pages"].size());
    size_t pictures = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        ++pictures;
        const std::string bytes = BytesOf(entry.path().string());
        // The header: eight bits, colours without a palette, not interlaced.
        EXPECT_EQ(bytes.substr(24, 5), std::string("\x08\x02\0\0\0", 5)) << entry.path();
    }
    EXPECT_EQ(pictures, told["pages"].size());
    EXPECT_NE(BytesOf(folder + "/document-1-page-setup.png"), "");
}

TEST_F(LabelhostSheet, SaysWhyItCannotGoOn) {
    const ProgramResult result = Play("state\nclick 9999", {});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "labelhost: line 2: there is no control 9999\n");
    EXPECT_EQ(Json::parse(result.output)["states"].size(), 1u);

    Write("bad.txt", "frob");
    ExpectRefused({
        {{"sheet"}, 2, "usage: labelhost sheet"},
        {{"sheet", "P1", "--defaults", "--device"}, 2, "usage: labelhost sheet"},
        {{"sheet", "P1", "--device", "--out", "x"}, 2, "--in and --out"},
        {{"sheet", "P1", "--run", File("bad.txt")}, 2, "line 1: 'frob' is no act"},
        {{"sheet", "P1", "--run", File("none.txt")}, 1, "cannot read script"},
        {{"sheet", "Nobody"}, 1, "no such printer"},
    });
}

} // namespace
