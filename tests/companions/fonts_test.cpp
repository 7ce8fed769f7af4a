// Fonts from end to end: sent by the host program through driver, rendering module and spooler to a
// printer on the network, which then lists them.

#include "companions/emulator_test.h"

#include <algorithm>
#include <filesystem>

namespace {

class FontsThreads : public EmulatorTest {
protected:
    Json Fonts(std::vector<std::string> words) const {
        words.insert(words.begin(), "fonts");
        words.push_back("--json");
        const ProgramResult result = Run(words);
        EXPECT_EQ(result.status, 0) << result.errors;
        return Json::parse(result.output, nullptr, false);
    }
    // The "file status" of all fonts that verify or list shows.
    std::string Listed(const char* how) const {
        std::string all;
        for (const Json& font : Fonts({how, "Dock3"}))
            all += font["file"].get<std::string>() + " " + font["status"].get<std::string>() + ";";
        return all;
    }
    bool Holds(const char* file) const {
        const Json files = Query("Dock3", "16")["files"];
        return std::any_of(files.begin(), files.end(), [&](const Json& line) {
            return line.get<std::string>().rfind(file, 0) == 0;
        });
    }
};

TEST_F(FontsThreads, AreSentListedVerifiedSentAgainAndDeleted) {
    Install("Dock3", Port());
    const Json whole = Fonts({"add", "Dock3", "DejaVu Sans", "--memory", "E"});
    const std::vector<std::string> digits = {
        "add",          "Dock3",   "DejaVu Sans", "--weight", "700",    "--bitmap", "10",
        "--characters", "numbers", "--memory",    "R",        "--file", "digits"};
    Fonts(digits);
    const Json numbers = Fonts(digits); // in place of the first
    EXPECT_EQ(whole["file"], "E:DEJAVRFW.FNT");
    EXPECT_EQ(whole["identifier"], "I");
    EXPECT_EQ(numbers["file"], "R:digits.FNT");
    EXPECT_EQ(numbers["identifier"], "K");
    EXPECT_EQ(numbers["points"], 10.0);
    EXPECT_EQ(numbers["characters"], "numbers");
    EXPECT_EQ(Listed("list"), "E:DEJAVRFW.FNT sent;R:digits.FNT sent;");
    EXPECT_TRUE(Holds("E:DEJAVRFW.FNT;"));
    EXPECT_EQ(Listed("verify"), "E:DEJAVRFW.FNT present;R:digits.FNT present;");

    // Another host adds and deletes objects.
    Send("~DGE:LOGO.GRF,1,1,FF~DUE:OTHER.FNT,4,00010000^XA^IDR:DIGITS.FNT^FS^XZ");
    EXPECT_EQ(Listed("verify"), "E:DEJAVRFW.FNT present;R:digits.FNT missing;E:OTHER.FNT present;");
    EXPECT_EQ(Listed("resend"), "E:DEJAVRFW.FNT sent;R:digits.FNT sent;E:OTHER.FNT sent;");
    EXPECT_EQ(Listed("verify"), "E:DEJAVRFW.FNT present;R:digits.FNT present;E:OTHER.FNT present;");

    for (const char* file : {"e:dejavrfw.fnt", "E:OTHER.FNT"})
        EXPECT_EQ(Run({"fonts", "delete", "Dock3", file}).status, 0);
    EXPECT_EQ(Run({"fonts", "delete", "Dock3", "E:OTHER.FNT"}).status, 1);
    EXPECT_EQ(Listed("verify"), "R:digits.FNT present;");
    const std::string notes = StopServer();
    const std::string bytes = std::to_string(whole["bytes"].get<int>());
    EXPECT_NE(notes.find("stored E:DEJAVRFW.FNT, " + bytes + " bytes;"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool"));
}

TEST_F(FontsThreads, AreRefusedWithAReason) {
    Install("Dock3", "FILE:");
    EXPECT_EQ(Run({"install", "Dock4", "--model", "Valdrick X4 600 dpi"}).status, 0);
    EXPECT_EQ(Run({"fonts", "add", "Dock3", "DejaVu Sans", "--file", "mine"}).status, 0);
    const struct {
        std::vector<std::string> words;
        int status;
    } cases[] = {
        {{"add", "Dock3", "No Such Family"}, 1},
        {{"add", "Dock3", "DejaVu Sans", "--memory", "Q"}, 1},
        {{"add", "Dock3", "DejaVu Sans", "--file", "a,b"}, 1},
        {{"add", "Dock3", "DejaVu Sans", "--file", std::string(40, 'a')}, 1},
        {{"add", "Dock3", std::string(32, 'a')}, 1},
        {{"add", "Dock3", "DejaVu Sans", "--bitmap", "200"}, 2},
        {{"add", "Dock3", "DejaVu Sans", "--characters", "numbers"}, 2},
        {{"add", "Dock3", "DejaVu Sans", "--bitmap", "12", "--characters", "few"}, 2},
        {{"add", "Dock3"}, 2},
        {{"forget", "Dock3"}, 2},
        {{"list", "Nowhere"}, 1},
        {{"verify", "Dock3"}, 1},
        {{"add", "Dock4", "DejaVu Sans", "--bitmap", "144"}, 1},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"fonts"};
        words.insert(words.end(), c.words.begin(), c.words.end());
        const ProgramResult result = Run(words);
        EXPECT_EQ(result.status, c.status) << c.words.back();
        EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 1) << result.errors;
    }
    EXPECT_EQ(Listed("list"), "R:mine.FNT sent;") << "nobody could say that it is missing";
    EXPECT_EQ(Run({"fonts", "list", "Dock4"}).output, "");
}

} // namespace
