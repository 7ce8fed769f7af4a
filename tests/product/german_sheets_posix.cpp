// A German user sees German: what the sheets show in both languages is compared.
#include "support/labelhost_test.h"

#include <cctype>
#include <set>

namespace {

constexpr const char* kPrinter = "Sprachen";

// Windows that the driver shows. Those of the system follow the user's locale, not the driver's
// setting.
constexpr struct {
    const char* kind;
    const char* script;
} kVisits[] = {
    {"--document", "state\nclick 384\nstate\ncancel\nclick 513\nstate\ncancel\n"
                   "click 506\nstate\nclick 666\nstate\nkey ESC\npage #1\nstate\ncancel\n"
                   "page #1\nstate\nclick 1322\nclick 340\n"
                   "state\ncancel\nclick 1323\nclick 340\nstate\ncancel\nclick 1324\nclick 340\n"
                   "state\ncancel\nclick 339\nstate\ncancel\npage #2\nstate\npage #3\nstate\n"
                   "page #4\nstate\n"},
    {"--device", "page #1\nstate\nselect 801 #0\nstate\nclick 803\nstate\nkey ESC\nclick 804\n"
                 "state\nkey ESC\nclick 805\nstate\nkey ESC\nmenu 803 812\nstate\ncancel\n"
                 "menu 804 818\nstate\ncancel\nmenu 804 815\nstate\nanswer Cancel\n"
                 "page #2\nstate\nclick 611\nstate\nkey ESC\nclick 612\nstate\nkey ESC\n"
                 "click 613\nstate\nkey ESC\nclick 614\nstate\npage #1\nstate\npage #2\nstate\n"
                 "click 624\nstate\nanswer Cancel\ncancel\npage #3\nstate\n"},
};

// What is the same in both languages.
const std::set<std::string> kCommon = {
    // Words that are.
    "&Name:", "Na&me:", "Normal", "Position", "Standard", "&Version...", "203 dpi x 203 dpi",
    // Sheets, which the system calls so.
    "Sprachen Properties",
    // Names of stored presets, and of methods and formats.
    "Draft", "High quality", "Wristband", "Floyd-Steinberg", "Jarvis", "ASCII", "I-CODE1",
    "Picotag", "RFID", "SGLN-64", "SGTIN-64", "SSCC-64", "Tag-It HF", "THAI", "USER", "VIET",
    // Names of fonts.
    "Barcode Aztec", "Barcode Codabar", "Barcode Code 11", "Barcode Code 128", "Barcode Code 39",
    "Barcode Code 49", "Barcode Code 93", "Barcode Data Matrix", "Barcode DataBar",
    "Barcode DataBar Composite", "Barcode EAN-13", "Barcode EAN-8", "Barcode Interleaved 2 of 5",
    "Barcode MSI", "Barcode MaxiCode", "Barcode MicroPDF417", "Barcode PDF417", "Barcode PLANET",
    "Barcode POSTNET", "Barcode QR Code", "Barcode UPC-A", "Barcode UPC-E", "RFID EPC-64",
    "RFID EPC-96", "RFID I-CODE1", "RFID ISO 15693", "RFID Picotag", "RFID SGLN-64",
    "RFID SGTIN-64", "RFID SSCC-64", "RFID Tag-it"};

class GermanSheets : public Labelhost {
protected:
    Json Visit(const char* kind, const char* script, const char* language) const {
        Write("visit", script);
        const std::string settings =
            std::string("HKCU\\SOFTWARE\\Valdrick\\Drivers\\Printers\\") + kPrinter + "\\Settings";
        Run({"registry", "set", settings, "Language", "1", language});
        Run({"registry", "set", settings, "Measurement System", "3", "01000000"});
        return RunJson({"sheet", kPrinter, kind, "--run", File("visit")});
    }

    // All texts in it, in their order.
    static void AddTexts(const Json& told, std::vector<std::string>& texts) {
        if (told.is_string()) texts.push_back(told);
        if (told.is_structured())
            for (const auto& [name, value] : told.items())
                if (name != "class" && name != "window" && name != "icon" && name != "buttons" &&
                    name != "name")
                    AddTexts(value, texts);
    }
};

bool MayBeEnglish(const std::string& text) {
    if (kCommon.contains(text) || text.starts_with("Copyright ©")) return false;
    const auto is_letter = [](unsigned char c) { return std::isalpha(c) != 0; };
    return std::count_if(text.begin(), text.end(), is_letter) > 3;
}

} // namespace

TEST_F(GermanSheets, ShowNoEnglish) {
    Install(kPrinter, "Valdrick R4 RFID");
    std::set<std::string> same;
    for (const auto& visit : kVisits) {
        std::vector<std::string> english, german;
        AddTexts(Visit(visit.kind, visit.script, "65006e0075000000")["states"], english);
        AddTexts(Visit(visit.kind, visit.script, "6400650075000000")["states"], german);
        ASSERT_EQ(english.size(), german.size()) << visit.kind;
        for (size_t i = 0; i < english.size(); ++i)
            if (english[i] == german[i] && MayBeEnglish(german[i])) same.insert(german[i]);
    }
    EXPECT_TRUE(same.empty()) << Json(same).dump(1);
}
