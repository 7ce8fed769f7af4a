// The model tables that ship: every printer has valid limits, and no key is misspelt.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_manager.h"
#include "model/symbology_info.h"
#include "settings/preset_list.h"
#include "settings/stock_list.h"
#include "spooler/printer_info.h"
#include "support/build_folders.h"
#include "support/model_test.h"
#include "support/program.h"
#include "zpl/extconfig.h"
#include "zplui.h"

namespace {

class ProductData : public ModelTest {
protected:
    // Installs every model of the product, each as "Printer MODEL". Returns the printers.
    std::vector<std::string> InstallAll() {
        std::vector<std::string> models;
        std::set<std::string> files = {"zplui.dll", "zpl.ddt"};
        std::ifstream in(Built("/product/zplui.inf"));
        for (std::string line; std::getline(in, line);) {
            const size_t end = line.find("\"=Install.");
            if (end == std::string::npos) continue;
            const std::string oem = line.substr(end + 10, 2);
            const std::string data_file = "zpl" + oem + ".ddt";
            files.insert({data_file, "o" + oem + "xxenu.kds", "zpl" + oem.substr(1) + "enu.dll"});
            models.push_back(line.substr(1, end - 1));
            EXPECT_TRUE(AddDriver(models.back().c_str(), data_file.c_str())) << models.back();
        }
        // The made-up drivers' empty files are replaced before anyone loads them.
        WCHAR folder[MAX_PATH] = {};
        DWORD needed = 0;
        GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                   sizeof folder, &needed);
        const OString drivers = OString(folder) + "\\3\\";
        for (const std::string& file : files)
            WriteFile(Text(drivers).substr(3) + file, BytesOf(Built("/product/") + file));
        // The installed tables are those that this test's own module reads.
        WriteFile("WINDOWS\\system32\\zpl.ddt", BytesOf(Built("/product/zpl.ddt")));

        std::vector<std::string> printers;
        const HMODULE module = LoadLibraryW((drivers + "zplui.dll").wstring());
        const auto event = reinterpret_cast<decltype(&DrvPrinterEvent)>(
            reinterpret_cast<void (*)()>(GetProcAddress(module, "DrvPrinterEvent")));
        for (const std::string& model : models) {
            printers.push_back("Printer " + model);
            const OString name(printers.back().c_str());
            EXPECT_TRUE(AddPrinter(name, model.c_str())) << model;
            // Not every spooler tells the driver.
            EXPECT_TRUE(event(const_cast<WCHAR*>(name.wstring()), PRINTER_EVENT_INITIALIZE, 0, 0));
        }
        FreeLibrary(module);
        return printers;
    }

    static std::unique_ptr<extmodel> ModelOf(const std::string& printer) {
        return std::unique_ptr<extmodel>(
            static_cast<extmodel*>(prtmodel::new_ext(PrinterInfo(OString(printer.c_str())))));
    }
};

void ExpectSoundLimits(extmodel* model) {
    const auto microns = [](const Measurement& length) { return length.Microns(); };
    EXPECT_FALSE(model->GetManufacturerName().IsEmpty());
    EXPECT_FALSE(model->GetDriverName().IsEmpty());
    EXPECT_GT(microns(model->GetPaperWidthMin()), 0);
    EXPECT_LE(microns(model->GetPaperWidthMin()), microns(model->GetDefaultLabelWidth()));
    EXPECT_LE(microns(model->GetDefaultPaperWidth()), microns(model->GetPaperWidthMax()));
    EXPECT_LE(microns(model->GetPaperLengthMin()), microns(model->GetDefaultLabelLength()));
    EXPECT_LE(microns(model->GetDefaultLabelLength()), microns(model->GetPaperLengthMax()));
    EXPECT_GT(microns(model->GetPrintableWidth()), 0);
    EXPECT_LE(microns(model->GetPrintableWidth()), microns(model->GetPaperWidthMax()));
    EXPECT_GE(model->GetXResolution(), 203);
    EXPECT_TRUE(model->HasBarCodes());
    EXPECT_TRUE(model->HasDeviceFonts());
    EXPECT_GT(model->GetMaxLineThickness(), 0);

    const CustomData& custom = *model->GetCustomData();
    EXPECT_EQ((custom.flags & CustomData::TEAR_OFF) != 0, model->TearOff());
    EXPECT_LT(model->GetLabelTopMin(), model->GetLabelTopMax());
    EXPECT_EQ(model->TearOff(), model->GetTearOffMin() < model->GetTearOffMax());
    const auto* last = std::begin(custom.speeds);
    while (last != std::end(custom.speeds) && last->value != 0) ++last;
    EXPECT_GT(last - std::begin(custom.speeds), 1);
    EXPECT_EQ(std::count_if(std::begin(custom.speeds), last,
                            [](const CustomData::Speed& speed) { return speed.is_default; }),
              1);
    EXPECT_TRUE(std::is_sorted(std::begin(custom.speeds), last,
                               [](const auto& a, const auto& b) { return a.value < b.value; }));
}

void ExpectDefaultStocksAndPresetsOnce(extmodel* model) {
    StockList stocks(model);
    stocks.Load(model);
    std::set<std::string> names;
    int valid = 0;
    for (const Stock* stock = stocks.GetNext(nullptr); stock; stock = stocks.GetNext(stock)) {
        EXPECT_TRUE(names.insert(Text(stock->GetName())).second) << Text(stock->GetName());
        EXPECT_NE(stock->is_user(), stock->is_predefined());
        if (stock->paper_id != 0) ++valid;
    }
    EXPECT_EQ(names.size(), 30u);
    EXPECT_GT(valid, 10);

    PresetList presets;
    presets.Load(model);
    std::string all;
    for (Preset* preset = presets.GetNext(nullptr); preset; preset = presets.GetNext(preset)) {
        all += Text(preset->GetName()) + ";";
        const DevMode settings(preset->GetDevMode().GetDevMode());
        EXPECT_EQ(presets.Find(settings), preset);
        const auto* config = extconfig::get_cfg(settings.GetDevMode());
        ASSERT_NE(config, nullptr);
        extconfig sound = *config;
        sound.Validate(model);
        const bool has_speed = (config->setting_flags & extconfig::SETTING_SPEEDS) != 0;
        EXPECT_TRUE(!has_speed || sound.print_speed == config->print_speed);
        EXPECT_EQ(sound.GetDarkness(), config->GetDarkness());
    }
    EXPECT_EQ(all, "Draft;High quality;Wristband;");
    auto* band = static_cast<Preset*>(presets.NameList::Find("Wristband"));
    ASSERT_NE(band, nullptr);
    const Stock* stock = stocks.Find(band->GetDevMode().GetDevMode());
    const bool fits = stocks.Find("Wristband 1 x 11 in") != nullptr;
    EXPECT_EQ(Text(stock->GetName()), fits ? "Wristband 1 x 11 in" : "USER");
    EXPECT_EQ(stock->width, 25400);
    EXPECT_EQ(band->GetDevMode().GetOrientation(), 1);
}

void ExpectADataFontForEachSymbologyAndTag(extmodel* model) {
    // A second variant, symbologies that only follow other bar codes, and one without fonts.
    const std::set<int> left_out = {SymbologyInfo::CODE39_VARIANT, SymbologyInfo::SUPPLEMENTAL_2,
                                    SymbologyInfo::SUPPLEMENTAL_5, SymbologyInfo::CODABLOCK};
    std::set<int> printed;
    for (int i = 0; i < KVCapabilitiesData::SYMBOLOGIES; ++i)
        if (model->GetCapabilitiesData()->symbologies[i].flags && !left_out.count(i))
            printed.insert(i);
    DataFontManager fonts;
    fonts.Load(model);
    std::set<int> symbologies;
    int tags = 0;
    for (int i = 0; i < fonts.GetSize(); ++i) {
        if (fonts[i]->IsRFID()) ++tags;
        if (!fonts[i]->IsBarCode()) continue;
        const auto& font = static_cast<const DataFont_BarCode&>(*fonts[i]);
        EXPECT_TRUE(symbologies.insert(font.get_symbology()).second);
        EXPECT_EQ(font.resolution, model->GetXResolution());
        EXPECT_GE(font.get_x(), 2);
    }
    EXPECT_EQ(symbologies, printed);
    EXPECT_EQ(tags, model->HasRFID() ? 9 : 0);
}

TEST_F(ProductData, IsSoundForEveryPrinter) {
    const std::vector<std::string> printers = InstallAll();
    ASSERT_GE(printers.size(), 10u);
    for (const std::string& printer : printers) {
        SCOPED_TRACE(printer);
        const auto model = ModelOf(printer);
        ExpectSoundLimits(model.get());
        ExpectDefaultStocksAndPresetsOnce(model.get());
        ExpectADataFontForEachSymbologyAndTag(model.get());
    }
}

TEST_F(ProductData, HasOnePrinterOfEachKindAndASecondBrand) {
    std::map<std::string, std::string> expected = {
        {"Valdrick D4 203 dpi", ""},       {"Valdrick X4 600 dpi", "applicator "},
        {"Valdrick M2 Mobile", "power "},  {"Valdrick R4 RFID", "applicator rfid "},
        {"Valdrick P4 PPLZ", "pplz "},     {"Valdrick C4 Spot Color", "applicator color "},
        {"Valdrick J2 Center", "center "},
    };
    for (const std::string& printer : InstallAll()) {
        const auto found = expected.find(printer.substr(8));
        if (found == expected.end()) continue;
        const auto model = ModelOf(printer);
        std::string kind;
        if (model->HasPowerOptions()) kind += "power ";
        if (model->HasApplicatorMode()) kind += "applicator ";
        if (model->HasRFID()) kind += "rfid ";
        if (model->IsPPLZ()) kind += "pplz ";
        if (model->ColorSupport(255)) kind += "color ";
        if (model->IsCenterTracked()) kind += "center ";
        EXPECT_EQ(kind, found->second) << printer;
        expected.erase(found);
    }
    EXPECT_TRUE(expected.empty());
    EXPECT_EQ(Text(ModelOf("Printer TT X4 203 dpi")->GetManufacturerName()), "TT");
    EXPECT_EQ(Text(ModelOf("Printer Valdrick X4 203 dpi")->GetManufacturerName()), "Valdrick");
}

// All sources of the module.
std::string AllSources() {
    std::string all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Sources("/src"))) {
        std::ifstream file(entry.path(), std::ios::binary);
        if (entry.is_regular_file()) all.append(std::istreambuf_iterator<char>(file), {});
    }
    return all;
}

// A key of the bar code table without the name of its symbology, which comes first.
std::string WithoutSymbology(const std::string& key) {
    std::string rest = key;
    for (int number = 0; number < KVCapabilitiesData::SYMBOLOGIES; ++number) {
        const std::string name = Text(SymbologyInfo(number).GetName());
        if (key == name) return "";
        if (key.starts_with(name + ".")) rest = key.substr(name.size() + 1);
    }
    return rest;
}

// Nobody reads a key that no source names, so it is misspelt.
TEST_F(ProductData, HasOnlyKeysThatAreRead) {
    const std::string sources = AllSources();
    int keys = 0;
    for (const char* table : {"BarCode", "CodePages", "Drawing", "Driver", "Features", "Font",
                              "Manufacturer", "Method", "Model", "~CustomData"}) {
        const ProgramResult shown =
            RunProgram("ddtpack", {"show", Built("/product/zpl.ddt"), table});
        ASSERT_EQ(shown.status, 0) << shown.errors;
        std::istringstream in(shown.output);
        for (std::string line; std::getline(in, line);) {
            if (line.empty() || line[0] == '!' || line[0] == '[') continue;
            std::string key = line.substr(0, line.find_first_of("+=("));
            if (table == std::string("BarCode")) key = WithoutSymbology(key);
            EXPECT_TRUE(key.empty() || sources.find('"' + key + '"') != std::string::npos)
                << table << ": " << line;
            ++keys;
        }
    }
    EXPECT_GT(keys, 100);
}

} // namespace
