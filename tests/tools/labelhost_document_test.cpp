// labelhost document and convert: DEVMODEs from the spooler and the driver into files and back.

#include "support/labelhost_test.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

class LabelhostDocument : public Labelhost {
protected:
    void SetUp() override {
        Install("Dock3", "Valdrick X4 300 dpi");
        fs::create_directory(File("files"));
    }

    // The output of "document Dock3" with these words.
    Json Document(std::vector<std::string> words) const {
        words.insert(words.begin(), {"document", "Dock3"});
        return RunJson(words);
    }
    // The bytes of the settings that the driver makes with these words.
    std::string Made(std::vector<std::string> words = {}) const {
        words.insert(words.end(), {"--out", File("files/made")});
        Document(words);
        return BytesOf(File("files/made"));
    }
};

} // namespace

TEST_F(LabelhostDocument, ShowsWhatTheDriverMakesOfEdits) {
    const struct {
        std::vector<std::string> edits;
        const char* expected; // of the fields that it names
    } cases[] = {
        {{"dmCopies=3", "dmorientation=2"}, R"({"public": {"dmCopies": 3, "dmOrientation": 2}})"},
        {{"dmCopies=0", "dmOrientation=5"}, R"({"public": {"dmCopies": 1, "dmOrientation": 1}})"},
        {{"dmDeviceName=Other", "dmColor=2"},
         R"({"public": {"dmDeviceName": "Dock3", "dmColor": 1}})"},
        {{"dmPaperSize=9"}, R"({"public": {"dmPaperSize": 9, "dmFields": 125959955}})"},
        {{"dmFormName=Größe", "dmFields=0x10000"},
         R"({"public": {"dmFormName": "Größe", "dmFields": 125959953}})"},
        {{"stock=4 X 6 IN"}, R"({"public": {"dmFormName": "4 x 6 in"}})"},
        {{"print_speed=6", "media_type=1", "user.1=^XA^XZ", "dither.brightness=-20"},
         R"({"configuration": {"print_speed": 6, "media_type": 1, "user": ["", "^XA^XZ", "", ""],
                               "dither": {"brightness": -20}}})"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words;
        for (const std::string& edit : c.edits) words.insert(words.end(), {"--set", edit});
        words.insert(words.end(), {"--out", File("files/edited")});
        const Json shown = Document(words);
        Json merged = shown; // stays the same if it has the expected values
        merged.merge_patch(Json::parse(c.expected));
        EXPECT_EQ(shown, merged) << Json::diff(shown, merged);
        EXPECT_EQ(shown["bytes"], 1508);

        // The same settings come back from the file.
        const Json again = Document({"--in", File("files/edited")});
        EXPECT_EQ(again["configuration"], shown["configuration"]);
        EXPECT_EQ(again["public"]["dmCopies"], shown["public"]["dmCopies"]);
    }
    EXPECT_NE(Run({"document", "Dock3"}).output.find("dmPaperLength             1524  152.4 mm"),
              std::string::npos);
}

TEST_F(LabelhostDocument, SaysInOneLineWhatWasWrongAndWritesNothing) {
    const std::string made = Made();
    Write("files/short", made.substr(0, 1507));
    Write("files/empty", "");
    Write("files/public only", made.substr(0, 70) + std::string(2, 0) + made.substr(72, 148));
    Write("files/none", std::string(300, '\0'));
    Write("files/kept", "before");
    std::vector<BadCommand> commands = {
        {{"document", "Nowhere"}, 1, "Nowhere"},
        {{"document", "Dock3", "--in", "files/absent"}, 1, "absent"},
        {{"document", "Dock3", "--in", "files/short"}, 1, "1507"},
        {{"document", "Dock3", "--in", "files/empty"}, 1, "empty"},
        {{"document", "Dock3", "--in", "files/none"}, 1, "none"},
        {{"document", "Dock3", "--out", "files/no folder/file"}, 1, "no folder/file"},
        {{"document", "Dock3", "--out", "files/kept", "--set", "dmColour=1"}, 1, "dmColour"},
        {{"document", "Dock3", "--set", "dmSize=300"}, 1, "dmSize"},
        {{"document", "Dock3", "--set", "dmCopies=32768"}, 1, "32768"},
        {{"document", "Dock3", "--set", "dmCopies=2x"}, 1, "2x"},
        {{"document", "Dock3", "--set", "print_mode=99999999999999999999"}, 1, "print_mode"},
        {{"document", "Dock3", "--set", "dmFormName=" + std::string(32, 'x')}, 1, "31"},
        {{"document", "Dock3", "--set", "stock=Nobody"}, 1, "Nobody"},
        {{"document", "Dock3", "--set", "dmCopies"}, 2, "dmCopies"},
        {{"convert", "Dock3", "files/made", "files/kept", "--mode", "1", "--out-size", "1507"},
         1,
         "1508"},
        {{"convert", "Dock3", "files/made", "files/kept", "--mode", "1", "--public-size", "71"},
         1,
         "made"},
        {{"convert", "Dock3", "files/kept", "--mode", "default", "--out-size", "9"}, 1, "1508"},
        {{"convert", "Dock3", "files/made", "files/kept", "--mode", "sideways"}, 2, "sideways"},
        {{"convert", "Dock3", "files/made", "files/kept"}, 2, "--mode"},
        {{"convert", "Dock3", "files/kept", "--mode", "1"}, 2, "usage"},
    };
    // Files are named in the folder.
    for (BadCommand& command : commands)
        for (std::string& word : command.words)
            if (word.starts_with("files/")) word = File(word);
    ExpectRefused(commands);
    EXPECT_EQ(BytesOf(File("files/kept")), "before");
    EXPECT_EQ(std::distance(fs::directory_iterator(File("files")), {}), 6)
        << "nothing was left behind";

    // A DEVMODE of another driver, without a configuration, has only fields of its own.
    EXPECT_EQ(Document({"--in", File("files/public only")})["bytes"], 1508);
}
