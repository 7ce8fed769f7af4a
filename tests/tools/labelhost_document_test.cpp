// labelhost document and convert: DEVMODEs from the spooler and the driver into files and back.

#include "tools/labelhost_fixture.h"

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

    // What "document Dock3" with these words shows.
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

std::string Little(int64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 255);
    return text;
}

std::string Numbers(int bytes, std::initializer_list<int64_t> values) {
    std::string text;
    for (const int64_t value : values) text += Little(value, bytes);
    return text;
}

std::string Utf16(const std::string& ascii) {
    std::string text;
    for (const char c : ascii) text += Little(c, 2);
    return text;
}

std::string Padded(std::string text, size_t size) {
    text.resize(size);
    return text;
}

// As "registry set" takes bytes.
std::string Hex(const std::string& bytes) {
    static const char digits[] = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        text += digits[c >> 4 & 15];
        text += digits[c & 15];
    }
    return text;
}

} // namespace

TEST_F(LabelhostDocument, BeginsWithTheDefaultsInTheirLayout) {
    std::string expected =
        Padded(Utf16("Dock3"), 64) + Numbers(2, {0x401, 0x607, 220, 1288}) +
        Numbers(4, {0x780FF1F}) +
        Numbers(2, {1, 256, 1524, 1041, 100, 1, 256, 300, 1, 1, 300, 1, 0}) + Padded("", 64 + 22) +
        Numbers(4, {2, 1, 1, 256, 0, 0, 0, 0}) +
        // the halftone block
        Numbers(2, {164, 1}) + "MDTN" + Numbers(4, {2, 5, 300}) +
        Numbers(4, {6380, 3350, 0, 2345, 6075, 0, 1410, 932, 0}) +
        Numbers(4, {2000, 2450, 0, 5210, 2100, 0, 4750, 5100, 0, 3127, 3290, 0}) +
        Numbers(4, {12500, 12500, 12500, 585, 120, 0, 0, 0, 10000}) +
        Numbers(2, {24, 0, 0, 10000, 10000, 10000, 0, 10000, 0, 0, 0, 0}) +
        // the configuration
        Padded("", 1024) + Numbers(2, {1116, 1028, 0, 0}) + Numbers(4, {6350}) +
        Numbers(2, {2, 0, 0, 0, 0, 0, 2, 2, 0, 18, 16, 0}) + Numbers(2, {-1, -1}) +
        Numbers(4, {0, 0, 4, 4, 4, 0, 0, 0, 12}) + Numbers(2, {-1, 0, 0, 0}) + Numbers(4, {0}) +
        Numbers(2, {0, 0}) + "kvkzpl" + Numbers(2, {1124});
    ASSERT_EQ(expected.size(), 1508u);
    ASSERT_EQ(Run({"convert", "Dock3", File("files/defaults"), "--mode", "default"}).status, 0);
    EXPECT_EQ(BytesOf(File("files/defaults")), expected);

    // The printer was given the same at its installation. Merged with it, a custom paper names its
    // form.
    expected[74] |= 1;
    const std::string made = Made();
    ASSERT_EQ(made.size(), 1508u);
    for (size_t i = 0; i < made.size(); ++i) ASSERT_EQ(int(made[i]), int(expected[i])) << i;
}

TEST_F(LabelhostDocument, ShowsWhatTheDriverMakesOfEdits) {
    const struct {
        std::vector<std::string> edits;
        const char* expected; // of the fields that it names
    } cases[] = {
        {{"dmCopies=3", "dmorientation=2"}, R"({"public": {"dmCopies": 3, "dmOrientation": 2}})"},
        {{"dmCopies=0", "dmOrientation=5", "dmScale=50", "dmDuplex=2"},
         R"({"public": {"dmCopies": 1, "dmOrientation": 1, "dmScale": 100, "dmDuplex": 1}})"},
        {{"dmPrintQuality=-4"}, R"({"public": {"dmPrintQuality": 300, "dmYResolution": 300}})"},
        {{"dmDeviceName=Other", "dmColor=2"},
         R"({"public": {"dmDeviceName": "Dock3", "dmColor": 1}})"},
        {{"dmPaperSize=9"}, R"({"public": {"dmPaperSize": 9, "dmFields": 125959955}})"},
        {{"dmFormName=Größe", "dmFields=0x10000"},
         R"({"public": {"dmFormName": "Größe", "dmFields": 125959953}})"},
        {{"stock=user"}, R"({"public": {"dmPaperSize": 256, "dmFormName": "USER"}})"},
        {{"print_speed=6", "media_type=1", "user.1=^XA^XZ", "dither.brightness=-20"},
         R"({"configuration": {"print_speed": 6, "media_type": 1, "user": ["", "^XA^XZ", "", ""],
                               "dither": {"brightness": -20}}})"},
        {{"relative_darkness=45"}, R"({"configuration": {"relative_darkness": 45}})"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words;
        for (const std::string& edit : c.edits) words.insert(words.end(), {"--set", edit});
        words.insert(words.end(), {"--out", File("files/edited")});
        const Json shown = Document(words);
        Json merged = shown; // stays the same when it holds what is expected
        merged.merge_patch(Json::parse(c.expected));
        EXPECT_EQ(shown, merged) << Json::diff(shown, merged);
        EXPECT_EQ(shown["bytes"], 1508);

        // The same comes back from the file, and the file is made the same again.
        const Json again = Document({"--in", File("files/edited"), "--out", File("files/again")});
        EXPECT_EQ(again["configuration"], shown["configuration"]);
        EXPECT_EQ(again["public"]["dmCopies"], shown["public"]["dmCopies"]);
        EXPECT_EQ(Made({"--in", File("files/again")}), BytesOf(File("files/again")));
    }
    EXPECT_NE(Run({"document", "Dock3"}).output.find("dmPaperLength             1524  152.4 mm"),
              std::string::npos);
}

TEST_F(LabelhostDocument, TakesAStockByItsName) {
    const std::string key = "HKLM\\SOFTWARE\\Valdrick\\Drivers\\Paper Sizes";
    const std::string stock = Numbers(4, {100000, 50000, 0, 0, 0, 0, 4});
    for (const std::vector<std::string>& value : std::vector<std::vector<std::string>>{
             {"Total", "REG_DWORD", "01000000"},
             {"Form 01: Name", "REG_SZ", Hex(Utf16("Shelf") + Little(0, 2))},
             {"Form 01: Data", "REG_BINARY", Hex(stock)}})
        ASSERT_EQ(Run({"registry", "set", key, value[0], value[1], value[2]}).status, 0);
    const Json papers = RunJson({"capabilities", "Dock3"});
    const auto& names = papers["paper_names"];
    const auto at = std::find(names.begin(), names.end(), "Shelf") - names.begin();
    ASSERT_LT(at, static_cast<std::ptrdiff_t>(names.size()));

    const Json shown = Document({"--set", "stock=shelf"})["public"];
    EXPECT_EQ(shown["dmFormName"], "Shelf");
    EXPECT_EQ(shown["dmPaperSize"], papers["papers"][static_cast<size_t>(at)]);
    EXPECT_EQ(shown["dmPaperWidth"], 1000);
    EXPECT_EQ(shown["dmPaperLength"], 500);
    EXPECT_EQ(shown["dmFields"], 0x781FF13) << "known by number and name, not by length and width";
}

TEST_F(LabelhostDocument, ConvertsBetweenLayouts) {
    const std::string made = Made({"--set", "dmCopies=3", "--set", "print_speed=6"});
    const std::string private_part = made.substr(220);
    const auto versions = [&](int spec, int size) { return Numbers(2, {spec, 0x607, size, 1288}); };
    const struct {
        std::vector<std::string> options;
        std::string expected;
    } cases[] = {
        {{"--mode", "1"}, made},
        {{"--mode", "convert351"},
         made.substr(0, 64) + versions(0x320, 188) + made.substr(72, 116) + private_part},
        {{"--mode", "convert", "--public-size", "156", "--spec-version", "0x400"},
         made.substr(0, 64) + versions(0x400, 156) + made.substr(72, 84) + private_part},
        {{"--mode", "convert", "--public-size", "224", "--out-size", "1512"},
         made.substr(0, 64) + versions(0x401, 224) + made.substr(72, 148) + Little(0, 4) +
             private_part},
    };
    for (const auto& c : cases) {
        std::vector<std::string> words = {"convert", "Dock3", File("files/made"),
                                          File("files/converted")};
        words.insert(words.end(), c.options.begin(), c.options.end());
        const Json answer = RunJson(words);
        EXPECT_EQ(answer["bytes"], c.expected.size());
        EXPECT_EQ(BytesOf(File("files/converted")), c.expected) << c.options.back();
        EXPECT_EQ(Made({"--in", File("files/converted")}), made)
            << "the settings are in every layout";
    }
}

TEST_F(LabelhostDocument, SaysInOneLineWhatWasWrongAndWritesNothing) {
    const std::string made = Made();
    Write("files/short", made.substr(0, 1507));
    Write("files/empty", "");
    Write("files/public only", made.substr(0, 70) + Little(0, 2) + made.substr(72, 148));
    Write("files/none", std::string(300, '\0'));
    Write("files/kept", "before");
    std::vector<BadCommand> commands = {
        {{"document", "Nowhere"}, 1, "Nowhere"},
        {{"document", "Dock3", "--in", "absent"}, 1, "absent"},
        {{"document", "Dock3", "--in", ""}, 1, "files"}, // a folder
        {{"document", "Dock3", "--in", "short"}, 1, "1507"},
        {{"document", "Dock3", "--in", "empty"}, 1, "empty"},
        {{"document", "Dock3", "--in", "none"}, 1, "none"},
        {{"document", "Dock3", "--out", "no folder/file"}, 1, "no folder/file"},
        {{"document", "Dock3", "--out", "kept", "--set", "dmColour=1"}, 1, "dmColour"},
        {{"document", "Dock3", "--set", "dmSize=300"}, 1, "dmSize"},
        {{"document", "Dock3", "--set", "dmCopies=32768"}, 1, "32768"},
        {{"document", "Dock3", "--set", "dmCopies=2x"}, 1, "2x"},
        {{"document", "Dock3", "--set", "dmCopies="}, 1, "dmCopies"},
        {{"document", "Dock3", "--set", "print_mode=99999999999999999999"}, 1, "print_mode"},
        {{"document", "Dock3", "--set", "dmFormName=" + std::string(32, 'x')}, 1, "31"},
        {{"document", "Dock3", "--set", "user.0=" + std::string(257, 'x')}, 1, "256"},
        {{"document", "Dock3", "--set", "stock=Nobody"}, 1, "Nobody"},
        {{"document", "Dock3", "--set", "dmCopies"}, 2, "dmCopies"},
        {{"document"}, 2, "usage"},
        {{"convert", "Dock3", "made", "kept", "--mode", "1", "--out-size", "1507"}, 1, "1508"},
        {{"convert", "Dock3", "made", "kept", "--mode", "3"}, 1, "mode 3"},
        {{"convert", "Dock3", "made", "kept", "--mode", "1", "--public-size", "71"}, 1, "made"},
        {{"convert", "Dock3", "short", "kept", "--mode", "1"}, 1, "short"},
        {{"convert", "Dock3", "kept", "--mode", "default", "--out-size", "9"}, 1, "1508"},
        {{"convert", "Dock3", "made", "kept", "--mode", "sideways"}, 2, "sideways"},
        {{"convert", "Dock3", "made", "kept"}, 2, "--mode"},
        {{"convert", "Dock3", "kept", "--mode", "1"}, 2, "usage"},
    };
    for (auto& [words, status, names] : commands) {
        for (size_t i = 2; i < words.size(); ++i) {
            const bool named = words[i - 1] == "--in" || words[i - 1] == "--out";
            const bool of_convert = words[0] == "convert" && i < 4 && words[i].rfind("--", 0) != 0;
            if (named || (of_convert && words[i - 1] != "--mode"))
                words[i] = File("files/" + words[i]);
        }
    }
    ExpectRefused(commands);
    EXPECT_EQ(BytesOf(File("files/kept")), "before");
    EXPECT_EQ(std::distance(fs::directory_iterator(File("files")), {}), 6)
        << "nothing was left behind";

    // A DEVMODE of others, without a configuration, has fields of its own only.
    EXPECT_EQ(Document({"--in", File("files/public only")})["bytes"], 1508);
}
