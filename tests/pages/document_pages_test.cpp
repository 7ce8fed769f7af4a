// The pages of document settings in a sheet: page setup and label material.
#include <windows.h>

#include <commctrl.h>
#include <compstui.h>
#include <win32host/control.h>

#include <string>
#include <vector>

#include "pages/page_setup/pp_paper_stock.h"
#include "support/job_test.h"
#include "support/sheet_of_pages.h"
#include "ui/prtpage.h"
#include "ui/uwindow.h"
#include "zpl/extconfig.h"

namespace {

std::vector<HPROPSHEETPAGE> g_inserted;

// Common property sheets that only take the pages.
LONG_PTR CALLBACK TakePages(HANDLE, UINT function, LPARAM, LPARAM second) {
    if (function != CPSFUNC_INSERT_PSUIPAGEW) return 0;
    g_inserted.push_back(reinterpret_cast<HPROPSHEETPAGE>(
        reinterpret_cast<const INSERTPSUIPAGE_INFO*>(second)->dwData1));
    return static_cast<LONG_PTR>(g_inserted.size());
}

constexpr int ADMINISTRATION = 614; // of the tools
constexpr int LICENSE = 110;        // of the page about the driver

// Controls of page setup that are used here.
enum : int {
    STOCKS = 512,
    PRESETS = 514,
    LANDSCAPE = 356,
    DELETE_STOCK = 383,
    MIRROR = 352,
    PREVIEW = 362
};
class DocumentPages : public JobTest {
protected:
    void SetUp() override {
        CustomData data = {};
        data.flags = CustomData::CUTTER | CustomData::TEAR_OFF | CustomData::BACKFEED_PERCENTAGE;
        data.label_top_min = data.tear_off_min = -100;
        data.label_top_max = data.tear_off_max = 100;
        Install({.model = "Resolution=203\nStock.Minimum.X=4 mm\nStock.Minimum.Y=10 mm\n"
                          "Stock.Maximum.X=104 mm\nStock.Maximum.Y=500 mm\n"
                          "Stock.Default.X=100 mm\nStock.Default.Y=150 mm\n"
                          "Stock.Printable.X=104 mm\nStock.Tracking=Center\n",
                 .drawing = "Transform.Mirror=1\n",
                 .method = "Copies.Limit=500\n",
                 .custom_data = CustomDataLines(data)});
        InstallLanguage();
    }
    void OpenDevice() {
        ui = OpenUI();
        info_.pfnComPropSheet = TakePages;
        g_inserted.clear();
        const DEVICEPROPERTYHEADER header = {};
        ASSERT_EQ(ui->InitDevSheets(&info_, &header), 1);
        sheet = std::make_unique<SheetOfPages>(g_inserted);
    }
    void Open(const DEVMODEW* in = nullptr) {
        ui = OpenUI(in, DM_UPDATE | (in ? DM_IN_BUFFER : 0));
        ui->locale.SetNewUnits(prtlocale::MILLIMETRES);
        info_.pfnComPropSheet = TakePages;
        header_.fMode = ui->fmode;
        g_inserted.clear();
        ASSERT_EQ(ui->InitDocSheets(&info_, &header_), 1);
        sheet = std::make_unique<SheetOfPages>(g_inserted);
    }
    // Opens a dialog over the current page that does not wait.
    HWND OpenDialog(const char* name, DLGPROC procedure) const {
        auto* const page = reinterpret_cast<prtpage*>(GetWindowLongPtrW(sheet->Page(), DWLP_USER));
        return page->DialogModeless(name, procedure);
    }
    static void Type(HWND dialog, int id, const WCHAR* text) {
        SetDlgItemTextW(dialog, id, text);
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, EN_KILLFOCUS),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
    }
    static std::string Shown(HWND dialog, int id) {
        return Text(TextOfWindow(GetDlgItem(dialog, id)));
    }
    // Goes to the page with this control.
    bool HasPageWith(int control) const {
        for (int page = 0; page < sheet->PageCount(); ++page) {
            sheet->Show(page);
            if (sheet->Item(control)) return true;
        }
        return false;
    }
    void GoTo(int control) const { ASSERT_TRUE(HasPageWith(control)) << control; }
    std::string Shown(int id) const { return Text(TextOfWindow(sheet->Item(id))); }
    bool IsEnabled(int id) const { return IsWindowEnabled(sheet->Item(id)) != FALSE; }
    // The items of a combo box, the selected one in brackets.
    std::string Items(int id) const {
        const HWND list = sheet->Item(id);
        const auto selected = SendMessageW(list, CB_GETCURSEL, 0, 0);
        std::string all;
        for (WPARAM i = 0; i < static_cast<WPARAM>(SendMessageW(list, CB_GETCOUNT, 0, 0)); ++i) {
            WCHAR text[200] = {};
            SendMessageW(list, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text));
            const std::string item = Text(OString(text));
            all += static_cast<LRESULT>(i) == selected ? "[" + item + "]" : "(" + item + ")";
        }
        return all;
    }

    std::unique_ptr<prtui> ui;
    std::unique_ptr<SheetOfPages> sheet;

private:
    PROPSHEETUI_INFO info_ = {};
    DOCUMENTPROPERTYHEADER header_ = {};
};

} // namespace

TEST_F(DocumentPages, AreUnchangedHoweverTheyAreLookedAt) {
    DevMode odd;
    odd.CreateDefault(Model().get());
    odd.GetDevMode()->dmPaperSize = DMPAPER_USER;
    odd.GetDevMode()->dmPaperWidth = 572; // in whole tenths of a millimetre, unlike a stock
    odd.GetDevMode()->dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH | DM_PAPERSIZE;
    extconfig& settings = *extconfig::get_cfg(odd.GetDevMode());
    settings.print_mode = extconfig::PRINT_REWIND;
    settings.setting_flags |= extconfig::SETTING_TEAR_OFF;
    settings.stock_count = 0;
    settings.stock_option = 1;
    Open(odd.GetDevMode());
    ASSERT_GE(sheet->PageCount(), 5);
    for (int round = 0; round < 2; ++round)
        for (int page = sheet->PageCount() - 1; page >= 0; --page) {
            sheet->Show(page);
            EXPECT_FALSE(sheet->CanApply()) << round << " " << page;
        }
    EXPECT_TRUE(sheet->Apply());
    sheet->Close();
}

TEST_F(DocumentPages, OfADeviceAreThoseThatAnotherProgramWants) {
    constexpr char kWanted[] = "DATA:FW Message";
    prtreg registry = Registry();
    const struct {
        uint32_t wanted;
        bool tools;
    } cases[] = {{0, true}, {1, true}, {4, false}};
    for (const auto& c : cases) {
        registry.SetDWORD(kWanted, c.wanted);
        OpenDevice();
        EXPECT_EQ(registry.GetDWORD(kWanted, 9), 0u);
        EXPECT_EQ(HasPageWith(ADMINISTRATION), c.tools) << c.wanted;
        sheet->Show(sheet->PageCount() - 1);
        EXPECT_NE(sheet->Item(LICENSE), nullptr) << "the last page is about the driver";
        sheet.reset();
    }
}

TEST_F(DocumentPages, ChooseStockAndOrientation) {
    Open();
    GoTo(STOCKS);
    const auto preview = [&] { return GetPropW(sheet->Item(PREVIEW), TEXT("bitmap")); };
    EXPECT_EQ(preview(), reinterpret_cast<HANDLE>(INT_PTR{208}));
    sheet->Click(LANDSCAPE);
    sheet->Click(MIRROR);
    EXPECT_EQ(preview(), reinterpret_cast<HANDLE>(INT_PTR{208 + 1 + 4}));
    EXPECT_EQ(ui->devmode.GetOrientation(), 1);
    EXPECT_EQ(Items(PRESETS), "[Current Settings](Default Settings)");
    EXPECT_TRUE(sheet->CanApply());
    sheet->Choose(PRESETS, 1);
    EXPECT_EQ(ui->devmode.GetOrientation(), 0);
    EXPECT_EQ(Items(PRESETS), "(Current Settings)[Default Settings]");
    sheet->Choose(PRESETS, 0);
    EXPECT_EQ(ui->devmode.GetOrientation(), 1) << "the settings of the moment come back";
    sheet->Click(LANDSCAPE - 1);
    sheet->Click(MIRROR);

    // A stock is added and chosen.
    auto* const stock = new Stock;
    stock->SetName("Shelf");
    stock->width = stock->length = 50000;
    ui->stocks.AddTail(stock);
    ui->stocks.Validate();
    EXPECT_TRUE(sheet->Show(1));
    GoTo(STOCKS);
    SendMessageW(sheet->window(), PSM_QUERYSIBLINGS, prtpage::REFRESH_ALL, 0);
    EXPECT_NE(Items(STOCKS).find("(Shelf (50.0 mm x 50.0 mm))"), std::string::npos)
        << Items(STOCKS);
    sheet->Choose(STOCKS, 1);
    EXPECT_EQ(ui->devmode.GetDevMode()->dmPaperSize, stock->paper_id);
    EXPECT_TRUE(IsEnabled(DELETE_STOCK));
    EXPECT_TRUE(sheet->Apply());
    EXPECT_FALSE(sheet->CanApply());
    EXPECT_NE(OpenUI()->stocks.Find("Shelf"), nullptr) << "it was stored";
}

TEST_F(DocumentPages, KeepStocksWithinTheModelsLimits) {
    Open();
    GoTo(STOCKS);
    Stock stock;
    stock.SetName("Shelf");
    stock.width = stock.length = 50000;
    ui->edit_stock = &stock;
    const HWND dialog = OpenDialog("*:PAGE_SETUP/^EDIT_STOCK", ppPaperStock::WinProc);
    ASSERT_NE(dialog, nullptr);
    Type(dialog, 388, TEXT("1.5 mm"));
    EXPECT_EQ(Shown(dialog, 392), "1.5 mm") << "both liners of a centred label are equal";
    EXPECT_TRUE(stock.liner_left == 1500 && stock.liner_right == 1500);
    const struct {
        int field;
        const WCHAR* text;
        int32_t Stock::*size;
        int32_t microns;
    } cases[] = {{393, TEXT("110 mm"), &Stock::width, 101000},
                 {393, TEXT("1 mm"), &Stock::width, 4000},
                 {386, TEXT("1 mm"), &Stock::length, 6350},
                 {388, TEXT("90 mm"), &Stock::liner_left, 50000}};
    for (const auto& c : cases) {
        Type(dialog, c.field, c.text);
        EXPECT_EQ(stock.*c.size, c.microns) << c.field;
        EXPECT_EQ(Shown(dialog, c.field), Text(ui->locale.microns_to_string(c.microns)));
    }
    Type(dialog, 389, TEXT("  Shelf 2 "));
    EXPECT_EQ(Text(stock.GetName()), "Shelf 2");
    DestroyWindow(dialog);
}

TEST_F(DocumentPages, ShowListsWithTheColumnWidthsThatTheUserGaveThem) {
    constexpr int kObjects = 661;
    const OString value("USERSETTINGS:Cache Contents/Column Widths");
    const auto width = [&] {
        return SendMessageW(sheet->Item(kObjects), LVM_GETCOLUMNWIDTH, 1, 0);
    };
    const auto open = [&] {
        sheet.reset();
        Registry().SetDWORD("DATA:FW Message", 4);
        OpenDevice();
        GoTo(kObjects);
    };
    open();
    const LRESULT usual = width();
    sheet.reset();
    std::vector<int32_t> widths(5);
    const auto size = static_cast<uint32_t>(widths.size() * sizeof widths[0]);
    EXPECT_LT(Registry().GetBinary(value, widths.data(), size), 0) << "nothing was changed";
    open();
    SendMessageW(sheet->Item(kObjects), LVM_SETCOLUMNWIDTH, 1, usual + 33);
    open();
    EXPECT_EQ(width(), usual + 33);
    ASSERT_EQ(Registry().GetBinary(value, widths.data(), size), static_cast<int32_t>(size));
    EXPECT_EQ(widths[1], usual + 33);
    for (const int32_t nonsense : {-1, 40000}) {
        widths[1] = nonsense;
        Registry().SetBinary(value, widths.data(), size);
        open();
        EXPECT_EQ(width(), usual) << nonsense;
    }
}

TEST_F(DocumentPages, SayOnceWhatCouldNotBeStored) {
    win32host::AnswerMessageBoxes(IDOK);
    Open();
    GoTo(STOCKS);
    for (const char* name : {"stock", "preset"}) {
        ui->stocks.KeepStored();
        if (*name == 'p') ui->presets.KeepStored();
        auto* const stock = new Stock;
        stock->SetName(name);
        ui->stocks.AddTail(stock);
        auto* const preset = new Preset;
        preset->SetName(name);
        preset->SetDevMode(ui->devmode.GetDevMode());
        ui->presets.AddTail(preset);
        EXPECT_FALSE(sheet->Apply());
        const auto shown = win32host::TakeMessageBoxes();
        ASSERT_EQ(shown.size(), 1u);
        const std::string text = Text(OString(shown[0].text.c_str()));
        EXPECT_NE(text.find("Label Sizes"), std::string::npos) << text;
        EXPECT_EQ(text.find("Presets") != std::string::npos, *name == 'p') << text;
        EXPECT_TRUE(sheet->CanApply()) << "the page is still changed";
    }
}
