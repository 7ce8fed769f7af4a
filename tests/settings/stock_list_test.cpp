// A printer's stocks: order, storage, exchange and the system's view of them.
#include "settings/stock_list.h"

#include <new>
#include <string>
#include <vector>

#include "support/dev_mode_test.h"
#include "support/wide.h"
#include "win32host/registry_control.h"

namespace {

class Stocks : public DevModeTest {
protected:
    void SetUp() override {
        Install(Tables("Stock.Maximum.X=110 mm\nStock.Maximum.Y=990 mm\n"));
        model_ = Model();
        list_.init(model_.get());
    }

    Stock* Add(const char* name, uint32_t flags = Stock::GLOBAL, int32_t width = 50000) {
        auto* stock = new (std::nothrow) Stock;
        stock->SetName(name);
        stock->width = width;
        stock->length = 25000;
        stock->flags = flags;
        list_.AddTail(stock);
        return stock;
    }

    // "name:paper id" of every stock.
    static std::string Order(const StockList& list) {
        return Joined(list, [](const Stock& stock) {
            return Text(stock.GetName()) + ":" + std::to_string(stock.paper_id);
        });
    }

    std::string Stored() {
        StockList list(model_.get());
        list.Load(model_.get());
        return Order(list);
    }

    int Imported(const std::string& bytes, bool binary = false) {
        return Taken(bytes, [&](OFile& file) {
            return binary ? list_.ImportKFM1(file) : list_.Import(file, 0);
        });
    }

    static std::string Block(const std::string& name, const std::string& data) {
        return "<stock>\r\nName=" + name + "\r\nData=" + data + "\r\n</stock>\r\n\r\n";
    }
    static std::string Record(int32_t width, uint32_t flags = 0, size_t size = 28) {
        StockRecord record[2] = {{width, 25000, 0, 0, 0, 0, flags}, {}};
        return Encoded(record, size);
    }

    struct ImportCase {
        const char* what;
        std::string bytes;
        int count;
        const char* order;
    };
    void ExpectImported(const std::vector<ImportCase>& cases, bool binary = false) {
        for (const auto& c : cases) {
            list_.Clear();
            list_.init(model_.get());
            EXPECT_EQ(Imported(c.bytes, binary), c.count) << c.what;
            list_.Validate();
            EXPECT_EQ(Order(list_), c.order) << c.what;
        }
    }

    std::unique_ptr<extmodel> model_;
    StockList list_;
};

} // namespace

TEST_F(Stocks, AreSortedByCaseAndNumberedWhereThePrinterCanPrintThem) {
    for (const char* name : {"b", "a", "B", "wide", "c"})
        Add(name, Stock::GLOBAL, name[0] == 'w' ? 110001 : 110000);
    list_.Validate();
    EXPECT_EQ(Order(list_), "USER:256 B:257 a:258 b:259 c:260 wide:0");
    list_.Find("c")->length = 990001;
    list_.Validate();
    EXPECT_EQ(Order(list_), "USER:256 B:257 a:258 b:259 c:0 wide:0");
    EXPECT_EQ(list_.Find("c"), nullptr) << "hidden";
}

TEST_F(Stocks, KeepOneOfEachName) {
    const uint32_t g = Stock::GLOBAL, p = Stock::PREDEFINED, s = Stock::SERVER, u = Stock::USER;
    const struct {
        std::vector<uint32_t> flags;
        int32_t kept; // which of them, from 1
    } cases[] = {{{g, g}, 2}, {{g, p}, 2},    {{p, g}, 1},    {{p, p}, 1},
                 {{p, s}, 2}, {{s, g}, 1},    {{s, s}, 2},    {{g, p, g, p}, 2},
                 {{p, u}, 2}, {{g, u, g}, 2}, {{u, s, g}, 2}, {{s | g, g}, 1}};
    for (const auto& c : cases) {
        list_.Clear();
        int32_t number = 0;
        for (const uint32_t flags : c.flags) Add("x", flags, ++number);
        Add("w");
        list_.Validate();
        ASSERT_NE(list_.Find("x"), nullptr);
        EXPECT_EQ(list_.Find("x")->width, c.kept) << ::testing::PrintToString(c.flags);
        EXPECT_EQ(list_.GetNext(list_.GetNext(list_.GetNext(nullptr))), nullptr);
    }
}

TEST_F(Stocks, AreStoredInTheirThreePlaces) {
    Add("own");
    Add("family", Stock::PREDEFINED);
    Add("too wide", Stock::GLOBAL, 200000);
    list_.Validate();
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::UNCHANGED);
    prtreg registry = Registry();
    EXPECT_EQ(Text(registry.GetString("Settings:User Form:: Name", "")), "USER");
    EXPECT_EQ(registry.GetDWORD("Stock:Total", 9), 2u);
    EXPECT_EQ(Text(registry.GetString("Stock:Form 01:: Name", "")), "own");
    EXPECT_EQ(registry.GetDWORD("Stock:oqv/Total", 9), 1u);
    EXPECT_EQ(Text(registry.GetString("Stock:oqv/Form 01:: Name", "")), "family");
    EXPECT_EQ(registry.GetSize("Stock:oqv/Form 01:: Data"), 28);
    EXPECT_EQ(Stored(), "USER:256 family:257 own:258 too wide:0");

    delete list_.Find("own");
    list_.Validate();
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(registry.GetSize("Stock:Form 02:: Name"), -1) << "no longer in use";
    EXPECT_EQ(Stored(), "USER:256 family:257 too wide:0");
}

TEST_F(Stocks, ThatTheRegistryRefusedAreWrittenByTheNextSave) {
    const auto lock = [](bool on) {
        return win32host::SetKeyReadOnly(HKEY_LOCAL_MACHINE,
                                         TEXT("SOFTWARE\\Valdrick\\Drivers\\Paper Sizes"), on);
    };
    Add("a");
    ASSERT_TRUE(lock(true));
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::FAILED);
    EXPECT_EQ(Stored(), "USER:256");
    ASSERT_TRUE(lock(false));
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Stored(), "USER:256 a:257");
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::UNCHANGED);
}

TEST_F(Stocks, WithNamesInAnyScriptAreToldApart) {
    const WCHAR names[][3] = {{0x416, 0}, {0x417, 0}, {0xD83D, 0xDE00, 0}, {0xFF21, 0}};
    for (const WCHAR* name : names) Add("")->SetName(OString(name));
    list_.Validate();
    EXPECT_EQ(list_.enum_paper_id(nullptr), 5);
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    Stock* last = list_.Find(OString(names[3]));
    ASSERT_NE(last, nullptr);
    const WCHAR other[] = {0xFF22, 0};
    last->SetName(OString(other));
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    list_.Load(model_.get());
    EXPECT_EQ(list_.Find(int16_t{260})->GetName(), OString(other));
}

TEST_F(Stocks, AreLoadedOnceHoweverOften) {
    for (int i = 0; i < 120; ++i) Add(("s" + std::to_string(i)).c_str());
    list_.Validate();
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Text(Registry().GetString("Stock:Form 120:: Name", "")), "s99");
    const std::string all = Order(list_);
    list_.Load(model_.get());
    list_.Load(model_.get());
    EXPECT_EQ(Order(list_), all);
    EXPECT_EQ(list_.Save(model_.get()), SaveResult::UNCHANGED);
    StockList copy;
    copy = list_;
    EXPECT_EQ(Order(copy), all);
    EXPECT_EQ(copy.Save(model_.get()), SaveResult::UNCHANGED);
}

TEST_F(Stocks, WithoutANameOrARecordAreNotLoaded) {
    prtreg registry = Registry();
    const char bytes[29] = {};
    registry.SetDWORD("Stock:Total", 0xFFFFFFFF);
    registry.SetBinary("Stock:Form 01:: Data", bytes, 28);
    registry.SetString("Stock:Form 02:: Name", "short");
    registry.SetBinary("Stock:Form 02:: Data", bytes, 27);
    registry.SetString("Stock:Form 03:: Name", "long");
    registry.SetBinary("Stock:Form 03:: Data", bytes, 29);
    registry.SetString("Stock:Form 05:: Name", "good");
    registry.SetBinary("Stock:Form 05:: Data", bytes, 28);
    registry.SetString("Stock:Form 40000:: Name", "Far");
    registry.SetBinary("Stock:form 40000:: Data", bytes, 28);
    registry.SetString("Stock:Form 007:: Name", "no number of that form");
    registry.SetBinary("Stock:Form 007:: Data", bytes, 28);
    EXPECT_EQ(Stored(), "USER:256 Far:257 good:258");

    StockList list(model_.get());
    list.Load(model_.get());
    delete list.Find("Far");
    EXPECT_EQ(list.Save(model_.get()), SaveResult::STORED);
    EXPECT_EQ(Stored(), "USER:256 good:257");
    EXPECT_EQ(registry.GetSize("Stock:Form 40000:: Name"), -1) << "no longer in use";
    EXPECT_GT(registry.GetSize("Stock:Form 007:: Name"), 0) << "not the list's";
}

TEST_F(Stocks, AreImportedFromBlocks) {
    const std::string good = Record(60000);
    ExpectImported({
        {"plain Base64", Block("a", good), 1, "USER:256 a:257"},
        {"blanks around lines", "\t<stock> \n  Name=a\n Data=" + good + "\n </stock>", 1,
         "USER:256 a:257"},
        {"lines outside", "Name=b\n</stock>\n" + Block("a", good) + "x", 1, "USER:256 a:257"},
        {"a line without a key", "<stock>\nName=a\n=\nx\nData=" + good + "\n</stock>", 1,
         "USER:256 a:257"},
        {"an equals sign in the name", Block("a=b", good), 1, "USER:256 a=b:257"},
        {"no end", "<stock>\nName=a\nData=" + good, 0, "USER:256"},
        {"the end missing once", "<stock>\nName=a\n" + Block("b", good), 1, "USER:256 b:257"},
        {"a short record", Block("a", Record(1, 0, 27)) + Block("b", good), 1, "USER:256 b:257"},
        {"a long record", Block("a", Record(1, 0, 29)), 0, "USER:256"},
        {"the same twice", Block("a", good) + Block("a", good), 2, "USER:256 a:257"},
        {"names that cannot be stored", Block("", good) + Block(std::string(4096, 'a'), good), 0,
         "USER:256"},
    });
}

TEST_F(Stocks, AreProtectedFromTheLineThatSaysSoOn) {
    const std::string data = "Data=" + Record(60000, Stock::GLOBAL) + "\n";
    Imported("<stock>\nName=a\n" + data + "Protected=true\n</stock>\n" + "<stock>\nName=b\n" +
             data + "</stock>\n<stock>\nName=c\nProtected=no\n" + data + "</stock>\n");
    EXPECT_TRUE(list_.Find("a")->is_global());
    EXPECT_FALSE(list_.Find("b")->is_global());
    EXPECT_TRUE(list_.Find("c")->is_global());
}

TEST_F(Stocks, AreReadFromTheBinaryFilesOfOldDrivers) {
    const auto record = [](const std::string& name, size_t size) {
        const StockRecord content = {60000, 25000, 0, 0, 0, 0, Stock::PREDEFINED};
        std::string bytes(reinterpret_cast<const char*>(&content), sizeof content);
        bytes += name;
        bytes.resize(size);
        return bytes;
    };
    ExpectImported(
        {
            {"two", "KFM1" + Bytes4(40) + record("a", 40) + record("b", 40), 2,
             "USER:256 a:257 b:258"},
            {"a name without an end", "KFM1" + Bytes4(30) + record("abc", 30), 1,
             "USER:256 ab:257"},
            {"half a record", "KFM1" + Bytes4(40) + record("a", 40) + record("b", 39), 1,
             "USER:256 a:257"},
            {"another signature", "KFM2" + Bytes4(40) + record("a", 40), 0, "USER:256"},
            {"records that are too short", "KFM1" + Bytes4(27) + record("a", 40), 0, "USER:256"},
            {"records of all sizes", "KFM1" + Bytes4(0xFFFFFFFF) + record("a", 40), 0, "USER:256"},
            {"one without a name", "KFM1" + Bytes4(30) + record("", 30), 0, "USER:256"},
        },
        true);
    Imported("KFM1" + Bytes4(40) + record("a", 40), true);
    EXPECT_EQ(list_.Find("a")->flags, uint32_t{Stock::GLOBAL});
}

TEST_F(Stocks, AreFoundByWhatADevModeSays) {
    Add("small");
    Add("Form 2");
    list_.Validate();
    const struct {
        const char* what;
        DWORD fields;
        SHORT paper;
        const char* form;
        const char* found;
        int32_t width;
    } cases[] = {
        {"a number", DM_PAPERSIZE, 258, "", "small", 50000},
        {"a number and a name", DM_PAPERSIZE | DM_FORMNAME, 258, "Form 2", "small", 50000},
        {"an unknown number", DM_PAPERSIZE, 300, "small", "USER", 101600},
        {"a number of the system's", DM_PAPERSIZE, 9, "", "USER", 97460},
        {"a negative number", DM_PAPERSIZE, -1, "", "USER", 97460},
        {"a name", DM_FORMNAME, 258, "Form 2", "Form 2", 100000},
        {"a name in another case", DM_FORMNAME, 258, "form 2", "USER", 97460},
    };
    for (const auto& c : cases) {
        StockList list;
        list = list_;
        ForeignDevMode mode(220, 0);
        mode->dmFields = c.fields;
        mode->dmPaperSize = c.paper;
        mode->dmPaperWidth = 1000;
        const OString form(c.form);
        for (int i = 0; form.wstring()[i]; ++i) mode->dmFormName[i] = form.wstring()[i];
        const Stock* found = list.Find(mode.dev_mode());
        ASSERT_NE(found, nullptr) << c.what;
        EXPECT_EQ(Text(found->GetName()), c.found) << c.what;
        EXPECT_EQ(found->width, c.width) << c.what;
    }
    EXPECT_EQ(list_.Find(static_cast<const DEVMODEW*>(nullptr)), nullptr);
    ForeignDevMode nothing(0, 0);
    EXPECT_EQ(list_.Find(nothing.dev_mode()), list_.GetNext(nullptr));
    list_.Clear();
    EXPECT_EQ(list_.Find(nothing.dev_mode()), nullptr);
}

TEST_F(Stocks, AreTheSystemsFormsWhenTheyAreValid) {
    Add("hidden", Stock::GLOBAL, 200000);
    Add(std::string(70, 'n').c_str());
    list_.Validate();
    uint16_t ids[2];
    POINT sizes[2];
    std::vector<WCHAR> names(128, 'x');
    EXPECT_EQ(NumberList({list_.enum_paper_id(nullptr), list_.enum_paper_id(ids),
                          list_.enum_paper_size(sizes), list_.enum_paper_name(names.data())}),
              NumberList({2, 2, 2, 2}));
    EXPECT_EQ(NumberList({ids[0], ids[1], sizes[0].x, sizes[1].y}),
              NumberList({256, 257, 1041, 250}));
    EXPECT_EQ(Text(OString(names.data())), "USER");
    EXPECT_EQ(Text(OString(names.data() + 64)), std::string(63, 'n'));
}
