// ddtpack: it lists what it has packed, and names what it does not understand.

#include "support/host_test.h"
#include "support/program.h"

#include <filesystem>

namespace {

class Ddtpack : public HostTest {
protected:
    std::string Put(const std::string& name, const std::string& bytes) const {
        WriteFile(name, bytes);
        return OnDriveC(name);
    }

    ProgramResult Run(const std::vector<std::string>& words) const {
        return RunProgram("ddtpack", words);
    }

    // A text that cannot be packed, and the message about it.
    struct BadText {
        const char *text, *says;
        const char* name = "a.keys";
    };
    void ExpectRefused(const char* command, const char* file,
                       std::initializer_list<BadText> texts) {
        for (const BadText& bad : texts) {
            const ProgramResult result = Run({command, OnDriveC(file), Put(bad.name, bad.text)});
            EXPECT_EQ(result.status, 1) << bad.text;
            EXPECT_NE(result.errors.find(bad.says), std::string::npos) << result.errors;
            EXPECT_FALSE(std::filesystem::exists(OnDriveC(file)));
        }
    }
};

TEST_F(Ddtpack, ShowsWhatItPacked) {
    const std::string table = Put("Model.d", "[A]\nResolution=203\n");
    const std::string empty = Put("Empty.d", "");
    const std::string out = OnDriveC("x.ddt");
    ASSERT_EQ(Run({"pack", out, table, empty}).status, 0);
    EXPECT_EQ(Run({"show", out, "Model"}).output, "[A]\nResolution=203\n");
    EXPECT_EQ(Run({"list", out}).output, "      19  Model.d\n       0  Empty.d\n");
    EXPECT_EQ(Run({"show", out, "Font"}).status, 1);
}

TEST_F(Ddtpack, BuildsTheCustomDataFromItsKeys) {
    const std::string keys = Put("~CustomData.keys", "! two facts and two speeds\n"
                                                     "[M]\n"
                                                     "Cutter=yes\n"
                                                     "TearOff = yes\n"
                                                     "Media.DirectOnly=no\n"
                                                     "LabelTop.Min=-2\n"
                                                     "Speed=2,\"2\"\n"
                                                     "Speed=10,\"10\",default\n");
    const std::string out = OnDriveC("x.ddt");
    const ProgramResult packed = Run({"pack", out, keys});
    ASSERT_EQ(packed.status, 0) << packed.errors;
    // Flags 0x402, the label top minimum at byte 20, the speeds from byte 36 on.
    EXPECT_EQ(Run({"show", out, "~CustomData"}).output,
              "[M]\nData.Length=196\nData=AgQAAAAAAAAAAAAAAAAAAAAAAAD+////"
              "AAAAAAAAAAAAAAAAAgAAADIAAAAKAAAA"
              "MTAAAQ" +
                  std::string(192, 'A') + "==\n");
}

TEST_F(Ddtpack, NamesWhatItDoesNotUnderstand) {
    ExpectRefused("pack", "x.ddt",
                  {{"[M]\nCuter=yes\n", "line 2: no such key"},
                   {"[M]\nCutter=maybe\n", "yes or no"},
                   {"[M]\nLabelTop.Min=3 mm\n", "whole number"},
                   {"[M]\nSpeed=4\n", "VALUE"},
                   {"[M]\nSpeed=4,\"ABC\"\n", "one or two characters"},
                   {"Cutter=yes\n", "before the first section"},
                   {"", "neither a table", "a.txt"}});
    EXPECT_EQ(Run({"pack"}).status, 2);
    EXPECT_EQ(Run({"list", OnDriveC("missing.ddt")}).status, 1);
}

TEST_F(Ddtpack, RefusesFilesThatAreNotSound) {
    const std::string cases[] = {
        std::string("\xFF\x00\x00\x00", 4),
        std::string("\x04\x00\x00\x00", 4),
        std::string("\x10\x00\x00\x00\x20\x00\x00\x00longer..", 16),
        std::string("\x14\x00\x00\x00\x09\x00\x00\x00NZLIB......", 20),
    };
    for (const std::string& bytes : cases) {
        const ProgramResult result = Run({"list", Put("bad.ddt", bytes)});
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.errors.find("record 1"), std::string::npos) << result.errors;
    }
}

TEST_F(Ddtpack, MakesASettingsFileOfStocksAndPresetsInWords) {
    const std::string stocks = Put("a.txt", "! labels\n[Stocks]\n"
                                            "Größe 1 = 4 in, 101.6 mm, 3 mm\n");
    const std::string presets = Put("b.txt", "[Preset Dark]\nDescription=x = y\nDarkness=30\n");
    const std::string out = OnDriveC("x.kds");
    const ProgramResult made = Run({"settings", out, stocks, presets});
    ASSERT_EQ(made.status, 0) << made.errors;
    // 101600, 101600, liner 1270 twice, gap 0 and 3000, flags 6.
    const std::string head = "<driver version='6.6'>\r\n\r\n<stock>\r\nName=Größe 1\r\nData=";
    const std::string text = BytesOf(out);
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_NE(text.find("<preset>\r\nName=Dark\r\nDescription=x = y\r\nData="), std::string::npos);
}

TEST_F(Ddtpack, NamesTheSettingsThatItDoesNotUnderstand) {
    ExpectRefused("settings", "x.kds",
                  {{"A=1 in,1 in,0 mm\n", "line 1: a key before"},
                   {"[Papers]\n", "[RFID fonts]"},
                   {"[Bar code fonts]\nA=Code39\n", "line 2: a bar code font is"},
                   {"[Bar code fonts]\nA=Code39,thin\n", "a bar code font is"},
                   {"[Bar code fonts]\nA=Code 39,13\n", "no such symbology"},
                   {"[Bar code fonts]\nA=Code39,13,left\n", "none, above or below"},
                   {"[Bar code fonts]\n=Code39,13\n", "a font has a name"},
                   {"[Bar code fonts]\nA=Code39,13\n[RFID fonts]\na=EPC64\n", "already"},
                   {"[RFID fonts]\n01234567890123456789012345678901=EPC64\n", "at most 31"},
                   {"[RFID fonts]\nA=EPC32\n", "no such tag"},
                   {"[RFID fonts]\nA=EPC96,SGTIN-64\n", "no such format"},
                   {"[Stocks]\n\nA=1 in,1 in\n", "line 3: a stock is"},
                   {"[Stocks]\nA=1,1 in,0 mm\n", "with units"},
                   {"[Stocks]\nA=1 in,1 in,-1 mm\n", "not negative"},
                   {"[Stocks]\nA=1 in,1 in,0 mm\nA=1 in,1 in,0 mm\n", "already"},
                   {"[Preset A]\nStock=B\n", "no stock of that name"},
                   {"[Preset A]\nDarkness=31\n", "-30 to 30"},
                   {"[Preset A]\nDarkness=high\n", "-30 to 30"},
                   {"[Preset A]\nOrientation=up\n", "portrait or landscape"},
                   {"[Preset A]\nColour=red\n", "no such key"}});
    EXPECT_EQ(Run({"settings", OnDriveC("x.kds")}).status, 2);
    EXPECT_EQ(Run({"settings", "/nowhere/x.kds", Put("s.txt", "")}).status, 1);
}

} // namespace
