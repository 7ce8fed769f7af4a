#include "ui/settings_file.h"

#include <cstring>
#include <new>
#include <sstream>
#include <string>

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "support/dev_mode_test.h"

namespace {

constexpr char kFile[] = "C:\\settings.kds";
constexpr char kOffset[] = "Settings:RFID/Transponder Offset";

class SettingsFiles : public DevModeTest {
protected:
    SettingsFiles() {
        Install(Model1());
        model_ = Model();
        stocks_.init(model_.get());
    }

    static ModelTables Model1(const char* rfid = "~RFID.TagTypes=EPC64\n") {
        ModelTables tables = Tables("Stock.Maximum.X=110 mm\nStock.Maximum.Y=990 mm\n");
        tables.model += rfid;
        tables.barcode = "Code128=yes\n";
        return tables;
    }

    void AddFonts() {
        auto* bar = new (std::nothrow) DataFont_BarCode;
        bar->SetFontName("Bars");
        bar->change_symbology(3);
        fonts_.AddTail(bar);
        auto* rfid = new (std::nothrow) DataFont_RFID;
        rfid->SetFontName("Tags");
        rfid->SetDefaults(DataFont_RFID::EPC_64);
        fonts_.AddTail(rfid);
    }
    void AddStock(const char* name) {
        auto* stock = new (std::nothrow) Stock;
        stock->SetName(name);
        stocks_.AddTail(stock);
    }
    void AddPreset(const char* name) {
        auto* preset = new (std::nothrow) Preset;
        preset->SetName(name);
        preset->SetToDefaultDevMode(model_.get());
        presets_.AddTail_ReplaceName(preset);
    }
    // One of the driver settings.
    static void SetOffset(uint32_t offset) { Registry().SetDWORD(kOffset, offset); }
    static uint32_t Offset() { return Registry().GetDWORD(kOffset, 0); }

    SettingsFileLists Lists() { return {*model_, stocks_, presets_, fonts_}; }
    std::string Exported(int flags) { return Told(ExportSettingsFile(kFile, flags, Lists())); }
    std::string Imported(int flags) { return Told(ImportSettingsFile(kFile, flags, Lists())); }
    std::string Imported(const std::string& bytes, int flags) {
        WriteFile("settings.kds", bytes);
        return Imported(flags);
    }

    // "stocks presets bar fonts RFID fonts options"
    static std::string Told(const KDSettingsResult& result) {
        std::string text;
        for (const int number : {int{result.stocks}, int{result.presets}, int{result.bar_fonts},
                                 int{result.rfid_fonts}, int{result.options}})
            text += (text.empty() ? "" : " ") + std::to_string(number);
        return text;
    }
    // The names of stocks, presets and fonts.
    std::string Lists_() const {
        const auto name = [](const NameNode& node) { return Text(node.GetName()); };
        std::string text = Joined(stocks_, name) + "|" + Joined(presets_, name) + "|";
        for (int i = 0; i < fonts_.GetSize(); ++i) text += Text(fonts_[i]->GetFontName()) + ' ';
        return text;
    }
    // The tags and keys of a file.
    std::string Shape() const {
        std::istringstream lines(BytesOf(OnDriveC("settings.kds")));
        std::string shape, line;
        while (std::getline(lines, line)) shape += line.substr(0, line.find_first_of("=\r")) + '|';
        return shape;
    }

    std::unique_ptr<extmodel> model_;
    StockList stocks_;
    PresetList presets_;
    DataFontManager fonts_;
};

} // namespace

TEST_F(SettingsFiles, HaveTheirHeadAndWhatWasAskedForInOrder) {
    EXPECT_EQ(Imported(0x10F), "0 0 0 0 0");
    EXPECT_FALSE(OFile::Exists(kFile)) << "one that is not there is not made";
    AddStock("4 x 6");
    AddStock("Tag");
    AddPreset("Draft");
    SetOffset(7);
    AddFonts();
    EXPECT_EQ(Exported(SETTINGS_RFID_FONTS | SETTINGS_BAR_FONTS), "0 0 1 1 0");
    EXPECT_EQ(Shape(), "<driver version||<font type|Name|Data|</font>||<font type|Name|Data|"
                       "</font>||");
    EXPECT_EQ(Exported(SETTINGS_PRESETS | SETTINGS_STOCKS), "2 1 0 0 0");
    const std::string stock = "<stock>|Name|Data|</stock>||";
    EXPECT_EQ(Shape(),
              "<driver version||" + stock + stock + "<preset>|Name|Description|Data|</preset>||");
    EXPECT_EQ(BytesOf(OnDriveC("settings.kds")).substr(0, 29), "<driver version='6.6'>\r\n\r\n<st");
    // A shorter file replaces a longer one.
    EXPECT_EQ(Exported(SETTINGS_OPTIONS), "0 0 0 0 1");
    EXPECT_EQ(Shape().substr(0, 34), "<driver version||<options model|[D");
    EXPECT_EQ(Exported(0), "0 0 0 0 0");
    EXPECT_EQ(Shape(), "<driver version||");
    EXPECT_EQ(Told(ExportSettingsFile("C:\\no\\such\\folder.kds", 0x10F, Lists())), "0 0 0 0 0");
}

TEST_F(SettingsFiles, BringBackWhatWasExported) {
    AddStock(reinterpret_cast<const char*>("Caf\xE9"));
    AddPreset("Draft");
    AddFonts();
    SetOffset(7);
    EXPECT_EQ(Exported(0x10F), "1 1 1 1 1");
    EXPECT_NE(BytesOf(OnDriveC("settings.kds")).find("Name=Caf\xC3\xA9\r\n"), std::string::npos)
        << "files are UTF-8";
    stocks_.Clear();
    presets_.Clear();
    fonts_.Clear();
    SetOffset(9);
    EXPECT_EQ(Imported(SETTINGS_PRESETS), "0 1 0 0 0");
    EXPECT_EQ(Lists_(), "|Draft|");
    EXPECT_EQ(Offset(), 9u);
    EXPECT_EQ(Imported(0x10F), "1 1 1 1 1");
    EXPECT_EQ(Lists_(), "Caf\xE9|Draft|Bars Tags ");
    EXPECT_EQ(Offset(), 7u);
}

TEST_F(SettingsFiles, ForAnotherModelBringNoDriverSettings) {
    const uint32_t mark = Registry().GetDWORD("DATA:Model Synchronization", 0);
    const std::string head = "<driver version='6.6'>\r\n\r\n<options model='";
    const std::string body = "'>\r\n[DATA:\\Settings\\RFID]\r\n\"Transponder Offset\"="
                             "dword:00000005\r\n</options>\r\n";
    EXPECT_EQ(Imported(head + "Model 2" + body, SETTINGS_OPTIONS), "0 0 0 0 0");
    EXPECT_EQ(Offset(), 0u);
    EXPECT_EQ(Registry().GetDWORD("DATA:Model Synchronization", 0), mark);
    EXPECT_EQ(Imported(head + "Model 1" + body, SETTINGS_OPTIONS), "0 0 0 0 1");
    EXPECT_EQ(Offset(), 5u);
    EXPECT_NE(Registry().GetDWORD("DATA:Model Synchronization", 0), mark)
        << "they may change what the model can do";
}

TEST_F(SettingsFiles, OfOtherKindsAreReadWhenTheirKindIsAskedFor) {
    const auto bytes = [](const auto& record) {
        return std::string(reinterpret_cast<const char*>(&record), sizeof record);
    };
    const StockRecord stock = {50000, 25000, 0, 0, 0, 0, 0};
    const std::string kfm1 = "KFM1" + Bytes4(32) + bytes(stock) + std::string("Tag\0", 4);
    DevMode settings;
    settings.CreateDefault(model_.get());
    const std::string kpr1 =
        "DM32" + Bytes4(1508) +
        std::string(reinterpret_cast<const char*>(settings.GetDevMode()), 1508);
    AddFonts();
    DataFontStorage_BarCode blob;
    static_cast<DataFont_BarCode*>(fonts_[0])->Save(blob);
    fonts_.Clear();
    const std::string kbf1 = "KBF1" + Bytes4(168) + bytes(blob);

    const struct {
        const char* what;
        std::string bytes;
        int flags;
        const char* result;
    } cases[] = {
        {"stocks", kfm1, SETTINGS_STOCKS, "1 0 0 0 0"},
        {"stocks for presets", kfm1, SETTINGS_PRESETS | SETTINGS_OPTIONS, "0 0 0 0 0"},
        {"presets", kpr1, 0x10F, "0 1 0 0 0"},
        {"fonts", kbf1, SETTINGS_BAR_FONTS, "0 0 1 0 0"},
        {"fonts for fonts of another kind", kbf1, SETTINGS_RFID_FONTS, "0 0 0 0 0"},
        {"no head", "\r\n<stock>\r\nName=a\r\n</stock>\r\n", 0x10F, "0 0 0 0 0"},
        {"three bytes", "<dr", 0x10F, "0 0 0 0 0"},
    };
    for (const auto& c : cases) EXPECT_EQ(Imported(c.bytes, c.flags), c.result) << c.what;
    // A single preset is named after its file.
    EXPECT_EQ(Lists_(), "USER Tag|settings|Bars ");
}

TEST_F(SettingsFiles, OfAnyLengthWithAnyLineEndsAreRead) {
    AddStock("Tag");
    Exported(SETTINGS_STOCKS);
    std::string block = BytesOf(OnDriveC("settings.kds"));
    block = block.substr(block.find("<stock>"));
    std::string text = "<driver version='6.6'>\n<fish>\r\n<stock>\nName=not closed\r\r\n";
    for (int i = 0; i < 100000; ++i) text += i % 2 ? "Name=x\n" : "Weight=1\r\n";
    text += "</fish>\r\n" + block + block.substr(0, block.size() - 4); // without a last end
    stocks_.Clear();
    EXPECT_EQ(Imported(text, SETTINGS_STOCKS), "2 0 0 0 0");
    EXPECT_EQ(Lists_(), "Tag||");
    // Only the first bytes decide what a file is.
    EXPECT_EQ(Imported("\xEF\xBB\xBF" + text, SETTINGS_STOCKS), "0 0 0 0 0");
}
