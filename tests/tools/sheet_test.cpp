// Property sheets driven by scripts: the test sheet of tests/tools/sheet answers the same on every
// host.
#include "support/build_folders.h"
#include "support/labelhost_test.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

const std::string kSheetScripts = Sources("/tests/tools/sheet/");

class Sheet : public Labelhost {
protected:
    ProgramResult PlayFile(const std::string& file) const {
        std::vector<std::string> words = OnMachine(root());
        words.insert(words.end(), {Built("/bin/test_data/sheet.dll"), file});
        return RunProgram("sheet_player", words);
    }
    ProgramResult Play(const std::string& script) const {
        Write("script.txt", script);
        return PlayFile(File("script.txt"));
    }
    static Json Told(const ProgramResult& result) {
        return Json::parse(result.output, nullptr, false);
    }
};

// Places depend on the system's font and frames.
void RemovePlaces(Json& told) {
    if (told.is_object()) {
        told.erase("rect");
        told.erase("client");
    }
    for (Json& part : told)
        if (part.is_structured()) RemovePlaces(part);
}

TEST_F(Sheet, AnswersEveryActTheSameOnEveryHost) {
    WriteFile("sheet\\test.kds", "chosen by the script");
    const ProgramResult result = PlayFile(kSheetScripts + "everything.txt");
    ASSERT_EQ(result.status, 0) << result.errors;
    Json told = Told(result);
    RemovePlaces(told);
    const Json golden = Json::parse(std::ifstream(kSheetScripts + "everything.json"));
    EXPECT_EQ(told["states"].size(), golden["states"].size());
    EXPECT_EQ(told, golden) << Json::diff(golden, told).dump(1);
}

TEST_F(Sheet, ScriptsEndWhereTheyCannotGoOn) {
    const struct {
        const char* script;
        int status;
        const char* reason;
        bool closes = false; // by itself, before it fails
    } cases[] = {
        {"\n# nothing\nfrob", 2, "line 3: 'frob' is no act"},
        {"click", 2, "line 1: the identifier of a control is missing"},
        {"click 0x10", 2, "line 1: '0x10' is not the identifier of a control"},
        {"click 101 CTRL+CTRL", 2, "line 1: 'CTRL+CTRL' are not keys"},
        {"check 105 maybe", 2, "line 1: 'maybe' is not on or off"},
        {"page #-1", 2, "line 1: '#-1' is not a position"},
        {"type 201 \"a\\q\"", 2, "'\\q' is no escape"},
        {"type 201 \"a", 2, "a quotation mark is not closed"},
        {"ok now", 2, "line 1: 'now' is too much"},
        {"key F13", 2, "'F13' is no key"},
        {"answer Maybe", 2, "'Maybe' is no button"},
        {"font Tahoma 0", 2, "'0' is not a font's size"},
        {"click 999", 1, "line 1: there is no control 999"},
        {"click 104", 1, "line 1: control 104 is disabled"},
        {"click 115", 1, "line 1: control 115 is not visible"},
        {"page \"Nowhere\"", 1, "line 1: there is no page 'Nowhere'"},
        {"apply", 1, "line 1: the Apply button is disabled"},
        {"answer OK", 1, "line 1: no message box is open"},
        {"type 101 \"x\"", 1, "line 1: control 101 is not an edit field"},
        {"check 101 on", 1, "line 1: control 101 is not a check box"},
        {"page #1\nslide 207 11", 1, "line 2: there is no position 11"},
        {"page #1\nchoose 204 \"Delta\"", 1, "line 2: there is no item 'Delta'"},
        {"page #1\nspin 201 up", 1, "line 2: control 201 is not a field with arrows"},
        {"click 101\nclick 102", 1, "line 2: there is no control 102"},
        {"click 101\nanswer OK", 1, "line 2: there is no button 'OK'"},
        {"click 113\nfile \"C:\\\\a\" \"C:\\\\b\"", 1,
         "line 2: the folder dialog takes one folder"},
        {"menu 102 402", 1, "line 1: item 402 of the menu is disabled"},
        {"menu 102 406", 1, "line 1: there is no item 406"},
        {"click 102\nclick 101", 1, "line 2: control 101: a menu is open"},
        {"ok\nstate", 1, "line 2: no window is open", true},
    };
    for (const auto& c : cases) {
        const ProgramResult result = Play(c.script);
        EXPECT_EQ(result.status, c.status) << c.script;
        EXPECT_THAT(result.errors, HasSubstr(c.reason)) << c.script;
        // Nothing opens for a script that is not understood; otherwise the sheet is cancelled.
        EXPECT_EQ(result.output.empty(), c.status == 2) << c.script;
        if (c.status == 2) continue;
        EXPECT_EQ(Told(result)["result"], c.closes ? "ok" : "cancel") << c.script;
    }
}

TEST_F(Sheet, WhatIsOpenAtTheEndIsCancelled) {
    for (const char* script : {"", "click 101", "click 102", "click 103\nhelp",
                               "click 110\nclick 110", "click 111", "click 112", "click 113"}) {
        const ProgramResult result = Play(script);
        EXPECT_EQ(result.status, 0) << script << ": " << result.errors;
        EXPECT_EQ(Told(result)["result"], "cancel") << script;
    }
}

TEST_F(Sheet, TellsEveryPageWithoutAScript) {
    const Json told = Told(PlayFile("none"));
    EXPECT_EQ(told["result"], "cancel");
    EXPECT_EQ(told["pages"], (Json{"Buttons", "Fields", "Lists"}));
    ASSERT_EQ(told["states"].size(), 3u);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(told["states"][i]["title"], told["pages"][i]);
        EXPECT_EQ(told["states"][i]["page"], i);
    }
}

} // namespace
