// The data fonts of a printer: stored, exchanged, and installed with it.
#include "fonts/data_font_manager.h"

#include <memory>
#include <string>

#include "core/crc.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "spooler/driver_utility.h"
#include "support/model_test.h"

namespace {

constexpr char kRfidModel[] = "Resolution=203\n~RFID.TagTypes=EPC64,ISO15693\n";

class DataFonts : public ModelTest {
protected:
    void SetUp() override {
        Install({.model = kRfidModel,
                 .barcode = "Code39=yes\nCode128=yes\nQRCode=yes\n"
                            "QRCode.Model=2\nDataMatrix=no\n"});
        model_ = Model();
    }

    static DataFont_BarCode* BarCode(const char* name, int symbology = 3) {
        auto* font = new DataFont_BarCode;
        font->SetFontName(name);
        font->change_symbology(symbology);
        return font;
    }
    static DataFont_RFID* Rfid(const char* name, uint32_t tag = DataFont_RFID::EPC_64) {
        auto* font = new DataFont_RFID;
        font->SetFontName(name);
        font->SetDefaults(tag);
        return font;
    }

    // "name:type" of every font.
    static std::string Order(const DataFontManager& fonts) {
        std::string all;
        for (int i = 0; i < fonts.GetSize(); ++i)
            all += (i ? " " : "") + Text(fonts[i]->GetFontName()) + ":" +
                   std::to_string(fonts[i]->GetType());
        return all;
    }
    std::string Stored() {
        DataFontManager fonts;
        EXPECT_TRUE(fonts.Load(model_.get()));
        return Order(fonts);
    }

    template <class Storage, class Font>
    static std::string Blob(const Font& font) {
        Storage blob;
        font.Save(blob);
        return {reinterpret_cast<const char*>(&blob), sizeof blob};
    }
    static std::string BarCodeBlob(int symbology, const char* name = "blob") {
        const std::unique_ptr<DataFont_BarCode> font(BarCode(name, symbology));
        font->set_mils(10);
        return Blob<DataFontStorage_BarCode>(*font);
    }
    static std::string RfidBlob(uint32_t tag) {
        const std::unique_ptr<DataFont_RFID> font(Rfid("blob", tag));
        return Blob<DataFontStorage_RFID>(*font);
    }
    static std::string Block(const std::string& kind, const std::string& blob,
                             const std::string& name = "a") {
        return "<font type='" + kind + "'>\r\nName=" + name +
               "\r\nData=" + Encoded(blob.data(), blob.size()) + "\r\n</font>\r\n\r\n";
    }

    enum Kind { BAR_CODES, RFIDS, BINARY };
    int Imported(const std::string& bytes, Kind kind = BAR_CODES) {
        return Taken(bytes, [&](OFile& file) {
            return kind == BINARY  ? fonts_.ImportKBF1(file, model_.get())
                   : kind == RFIDS ? fonts_.ImportRFID(file, model_.get())
                                   : fonts_.ImportBarFont(file, model_.get());
        });
    }

    std::unique_ptr<extmodel> model_;
    DataFontManager fonts_;
};

} // namespace

TEST_F(DataFonts, OfOneNameReplaceEachOtherInPlace) {
    for (const char* name : {"One", "Two", "Three"}) fonts_.AddTail(BarCode(name));
    fonts_.AddTail(Rfid("tWO"));
    fonts_.AddTail(nullptr);
    EXPECT_EQ(Order(fonts_), "One:1 tWO:3 Three:1");
    DataFont* const taken = fonts_[1];
    fonts_.Remove(taken);
    fonts_.Remove(taken);
    EXPECT_EQ(Order(fonts_), "One:1 Three:1");
    fonts_.AddTail(taken);
    fonts_.AddTail(taken);
    EXPECT_EQ(Order(fonts_), "One:1 Three:1 tWO:3");
}

TEST_F(DataFonts, AreStoredAsOneBlobEach) {
    fonts_.AddTail(BarCode("50%/%5C:", 0)); // sorted, as some registries list them
    fonts_.AddTail(BarCode("50%/\\:", 0));
    fonts_.AddTail(BarCode("QR", 18));
    fonts_.AddTail(Rfid("Tag"));
    fonts_.AddTail(BarCode(""));
    prtreg registry = Registry();
    registry.SetBinary("DATA:Data Fonts/Old/Data", "x", 1);
    EXPECT_TRUE(fonts_.IsModified());
    EXPECT_EQ(fonts_.Save(model_.get()), SaveResult::STORED);
    EXPECT_FALSE(fonts_.IsModified());
    EXPECT_EQ(registry.GetSize("DATA:Data Fonts/QR/Data"), 168);
    EXPECT_EQ(registry.GetSize("DATA:Data Fonts/Tag/Data"), 228);
    EXPECT_EQ(registry.GetSize("DATA:Data Fonts/Old/Data"), -1) << "no longer in the list";
    EXPECT_EQ(Stored(), "50%/%5C::1 50%/\\::1 QR:2 Tag:3") << "one without a name has no key";

    const std::string blob = RfidBlob(DataFont_RFID::EPC_64);
    DataFontManager one;
    one.AddTail(Rfid("blob"));
    EXPECT_EQ(one.GetCRC32(5), CRC32(blob.data(), static_cast<uint32_t>(blob.size()), 5));

    DataFontManager copy;
    copy.AddTail(BarCode("gone"));
    copy = fonts_;
    EXPECT_EQ(Order(copy), Order(fonts_));
    EXPECT_FALSE(copy.IsModified());
    copy[0]->SetFontName("new");
    EXPECT_TRUE(copy.IsModified());
    EXPECT_FALSE(fonts_.IsModified()) << "copies are deep";
}

TEST_F(DataFonts, AreLoadedFromWhatIsAFontInTheRegistry) {
    prtreg registry = Registry();
    const auto store = [&](const char* key, std::string blob, int type, size_t size) {
        if (type >= 0) blob[44] = static_cast<char>(type);
        registry.SetBinary(OString("DATA:Data Fonts/") << key << "/Data", blob.data(),
                           static_cast<uint32_t>(size));
    };
    store("good", BarCodeBlob(0, "Good"), -1, 168);
    store("no type", BarCodeBlob(0, "x"), 0, 168);
    store("a later type", BarCodeBlob(0, "x"), 4, 168);
    store("cut", BarCodeBlob(0, "x"), -1, 100);
    store("other key", BarCodeBlob(16, "MATRIX"), -1, 72 + 72);
    store("same", BarCodeBlob(0, "gOOD"), -1, 168);
    registry.SetString("DATA:Data Fonts/no blob/Name", "x");
    fonts_.AddTail(BarCode("gone"));
    EXPECT_TRUE(fonts_.Load(model_.get()));
    EXPECT_EQ(Order(fonts_), "gOOD:1 MATRIX:2") << "supported or not";
    EXPECT_FALSE(fonts_.IsModified());
}

TEST_F(DataFonts, AreImportedFromBlocksAndBinaryFiles) {
    const std::string bar = "Bar Code", good = BarCodeBlob(3);
    const std::string data = "Data=" + Encoded(good.data(), good.size()) + "\n";
    const std::string one = BarCodeBlob(3, "one"), two = BarCodeBlob(18, "two");
    std::string long_record = good, not_bar_code = good;
    long_record[72] = 97;
    not_bar_code[44] = 3;
    const struct {
        const char* what;
        std::string text;
        Kind kind;
        int count;
        const char* order;
    } cases[] = {
        {"plain Base64", Block(bar, good), BAR_CODES, 1, "blob:1"},
        {"a name behind the data", "<font type='Bar Code'>\n" + data + "Name=b\n</font>", BAR_CODES,
         1, "b:1"},
        {"a short blob", Block(bar, good.substr(1)), BAR_CODES, 1, "a:1"},
        {"a record that is too long", Block(bar, long_record), BAR_CODES, 1, "a:1"},
        {"a blob of another type", Block(bar, not_bar_code), BAR_CODES, 1, "a:1"},
        {"a symbology that is not printed", Block(bar, BarCodeBlob(16)) + Block(bar, good),
         BAR_CODES, 1, "blob:1"},
        {"no end", "<font type='Bar Code'>\nName=b\n" + Block(bar, good), BAR_CODES, 1, "blob:1"},
        {"lines of no meaning",
         "Name=x\n</font>\n<font type='Bar Code'>\nName=b\nProtected=true\n=\nName\n</font>\n",
         BAR_CODES, 1, "b:1"},
        {"the other kind", Block("RFID", RfidBlob(1)), BAR_CODES, 0, ""},
        {"RFID", Block("RFID", RfidBlob(8)) + Block(bar, good), RFIDS, 1, "blob:3"},
        {"RFID of another size", Block("RFID", good), RFIDS, 1, "a:3"},
        {"a tag that is not written", Block("RFID", RfidBlob(16)), RFIDS, 0, ""},
        {"no name", "<font type='Bar Code'>\nName=\"\"\n</font>\n", BAR_CODES, 0, ""},
        // Binary files of old drivers.
        {"two", "KBF1" + Bytes4(168) + one + two, BINARY, 2, "one:1 two:2"},
        {"longer records", "KBF1" + Bytes4(170) + one + "xx" + two + "xx", BINARY, 2,
         "one:1 two:2"},
        {"half a record", "KBF1" + Bytes4(168) + one + two.substr(1), BINARY, 1, "one:1"},
        {"one that is not printed", "KBF1" + Bytes4(168) + BarCodeBlob(16) + two, BINARY, 1,
         "two:2"},
        {"one that is none", "KBF1" + Bytes4(168) + std::string(168, 0) + two, BINARY, 1, "two:2"},
        {"short records", "KBF1" + Bytes4(167) + one, BINARY, 0, ""},
        {"records of all sizes", "KBF1" + Bytes4(0xFFFFFFFF) + one, BINARY, 0, ""},
        {"another signature", "KFM1" + Bytes4(168) + one, BINARY, 0, ""},
    };
    for (const auto& c : cases) {
        fonts_.Clear();
        EXPECT_EQ(Imported(c.text, c.kind), c.count) << c.what;
        EXPECT_EQ(Order(fonts_), c.order) << c.what;
    }
    ASSERT_EQ(Imported(Block(bar, good)), 1);
    const auto* font = static_cast<const DataFont_BarCode*>(fonts_[0]);
    EXPECT_EQ(font->resolution, 203);
    EXPECT_EQ(font->get_x(), 2) << "3 dots of 300 dpi: the printed width stays";
    Replace({.model = "Resolution=203\n", .barcode = "Code128=yes\n"});
    model_ = Model();
    EXPECT_EQ(Imported(Block("RFID", RfidBlob(1)), RFIDS), 0) << "a printer without RFID";
}

TEST_F(DataFonts, OfTheDefaultSettingsFileJoinThePrinters) {
    fonts_.AddTail(BarCode("BLOB"));
    fonts_.AddTail(BarCode("mine"));
    EXPECT_EQ(fonts_.Save(model_.get()), SaveResult::STORED);
    model_->InstallDefault_BarFonts();
    EXPECT_EQ(Stored(), "BLOB:1 mine:1") << "there is no such file";
    const std::string folder = Text(DriverUtility::GetDriverDirectory()).substr(3);
    std::string tag = RfidBlob(8);
    tag.replace(12, 4, "tags");
    WriteFile(folder + "\\oqvxxenu.kds", Block("RFID", tag) + Block("Bar Code", BarCodeBlob(18)));
    model_->InstallDefault_BarFonts();
    EXPECT_EQ(Stored(), "blob:2 mine:1 tags:3");
}
