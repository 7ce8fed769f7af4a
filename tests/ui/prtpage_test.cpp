// The protocol of pages, and their helpers.
#include "ui/prtpage.h"

#include <commctrl.h>
#include <richedit.h>

#include <string>
#include <utility>

#include "locale/text_numbers.h"
#include "support/job_test.h"
#include "support/sheet_of_pages.h"
#include "ui/ucombo_box.h"
#include "ui/uedit.h"
#include "ui/ulist_box.h"
#include "ui/uradio_button.h"
#include "ui/uslider.h"
#include "window/dialog_builder.h"

namespace {

enum : int { FIELD = 100, LIST = 101, LABEL = 102, OPTIONS = 103, SLIDER = 104, RADIO = 105 };

// What the pages did since the last look, and how they answer.
std::string g_noted;
std::string TakeNoted() {
    return std::exchange(g_noted, {});
}

// Edits the number of copies in a field.
class SamplePage : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<SamplePage>;

    SamplePage() { ++alive; }
    ~SamplePage() override { --alive; }

    void Init() override {
        prtpage::Init();
        field.Bind(this, FIELD);
        last = this;
    }
    void Refresh(bool all) override {
        g_noted += all ? "refresh " : "r ";
        // Its notification is no act of the user.
        if (all || rounded_) EM_SetInt(FIELD, devmode_.GetCopies());
        rounded_ = false;
    }
    bool Command(uint16_t id, uint16_t code, LPARAM) override {
        if (code != EN_SETFOCUS) g_noted += "command" + std::to_string(code) + " ";
        if (id != FIELD) return true;
        if (code == EN_UPDATE) devmode_.SetCopies(EM_GetInt(FIELD));
        rounded_ = code == EN_KILLFOCUS;
        return code != EN_KILLFOCUS;
    }
    bool Apply() override {
        g_noted += "apply ";
        return can_store && prtpage::Apply();
    }
    void Cancel() override { g_noted += "cancel "; }
    void Destroy() override { g_noted += field.GetWindow() ? "destroy " : "too late "; }
    bool VerifyOkay() override { return okay; }

    UEdit field;

    static inline int alive = 0;
    static inline bool okay = true;
    static inline bool can_store = true;
    static inline SamplePage* last = nullptr;

private:
    bool rounded_ = false;
};

// A page that cannot store while `can_store` is off.
class SecondPage : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<SecondPage>;
    bool Apply() override { return can_store && prtpage::Apply(); }
    static inline bool can_store = true;
};

// A dialog of the language library that changes the copies and is closed by a button.
class ClosingDialog : public prtpage {
public:
    static constexpr DLGPROC WinProc = prtpage::WinProcOf<ClosingDialog>;
    void Init() override {
        prtpage::Init();
        devmode_.SetCopies(5);
        PostMessageW(GetWindow(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    }
    static inline int button = 0;
};

class Pages : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\n", .method = "Copies.Limit=500\n"});
        InstallLanguage();
        ui = OpenUI();
        ASSERT_TRUE(ui->devmode.GetConfiguration());
        SamplePage::okay = SamplePage::can_store = SecondPage::can_store = true;
        TakeNoted();
        dialog_.Add(TEXT("Static"), TEXT("label"), LABEL, 0, 5, 5, 60, 10);
        dialog_.Add(TEXT("Edit"), TEXT(""), FIELD, WS_TABSTOP | WS_BORDER, 5, 20, 60, 12);
        dialog_.Add(TEXT("ComboBox"), TEXT(""), LIST, CBS_DROPDOWNLIST | WS_TABSTOP, 5, 40, 60, 60);
        dialog_.Add(TEXT("ListBox"), TEXT(""), OPTIONS, LBS_EXTENDEDSEL | LBS_NOTIFY, 5, 60, 60,
                    40);
        dialog_.Add(TEXT("msctls_trackbar32"), TEXT(""), SLIDER, WS_TABSTOP, 70, 20, 60, 15);
        for (int i = 0; i < 3; ++i)
            dialog_.Add(TEXT("Button"), TEXT("x"), static_cast<uint32_t>(RADIO + i),
                        BS_AUTORADIOBUTTON, 70, 40 + 12 * i, 40, 10);
        dialog_.Add(TEXT("Button"), TEXT("OK"), IDOK, WS_TABSTOP, 70, 80, 40, 12);
    }

    HPROPSHEETPAGE MakePage(DLGPROC procedure) const {
        PROPSHEETPAGEW page = {};
        page.dwSize = sizeof page;
        page.dwFlags = PSP_DLGINDIRECT | PSP_USETITLE;
        page.pszTitle = TEXT("page");
        page.pResource = dialog_.Get();
        page.pfnDlgProc = procedure;
        page.lParam = reinterpret_cast<LPARAM>(ui.get());
        return CreatePropertySheetPageW(&page);
    }

    std::unique_ptr<prtui> ui;

private:
    DialogBuilder dialog_{true, WS_CHILD | WS_CAPTION, 0, 0, 140, 110};
};

} // namespace

TEST_F(Pages, TellTheSheetOfChangesByTheirChecksum) {
    SheetOfPages sheet({MakePage(SamplePage::WinProc), MakePage(SecondPage::WinProc)});
    ASSERT_EQ(SamplePage::alive, 1) << "pages are made when they are shown";
    EXPECT_EQ(TakeNoted(), "refresh r ");
    EXPECT_FALSE(sheet.CanApply());

    sheet.Type(FIELD, TEXT("7"));
    EXPECT_EQ(ui->devmode.GetCopies(), 7);
    EXPECT_EQ(TakeNoted(), "command1024 command768 ") << "the field is the user's while he types";
    sheet.Command(FIELD, EN_KILLFOCUS);
    EXPECT_EQ(TakeNoted(), "command512 r ");
    EXPECT_TRUE(sheet.CanApply());
    sheet.Type(FIELD, TEXT("01"));
    sheet.Command(FIELD, EN_KILLFOCUS);
    EXPECT_FALSE(sheet.CanApply()) << "edited back";
    EXPECT_EQ(TextOfWindow(sheet.Item(FIELD)), "1");

    sheet.Type(FIELD, TEXT("8"));
    SamplePage::okay = false;
    EXPECT_FALSE(sheet.Show(1) && sheet.Page() != SamplePage::last->GetWindow()) << "it stays";
    EXPECT_FALSE(sheet.Apply());
    SamplePage::okay = true;
    SamplePage::can_store = false;
    EXPECT_FALSE(sheet.Apply());
    sheet.Command(FIELD, EN_KILLFOCUS);
    EXPECT_TRUE(sheet.CanApply()) << "what was not stored is still changed";
    SamplePage::can_store = true;
    sheet.Show(1);
    ASSERT_NE(sheet.Page(), SamplePage::last->GetWindow());
    TakeNoted();

    SecondPage::can_store = false;
    EXPECT_FALSE(sheet.Apply());
    EXPECT_EQ(TakeNoted(), "apply r ") << "once, before the page that refuses";
    EXPECT_EQ(ui->devmode_saved.GetCopies(), 8);
    SecondPage::can_store = true;
    EXPECT_TRUE(sheet.Apply());
    TakeNoted();
    SamplePage::last->WM_QuerySiblings(prtpage::REFRESH, 0);
    SamplePage::last->WM_QuerySiblings(prtpage::REFRESH, 1);
    SamplePage::last->WM_QuerySiblings(prtpage::REFRESH_ALL, 0);
    EXPECT_EQ(TakeNoted(), "r refresh refresh ");
    ::SetFocus(sheet.window());
    TakeNoted();
    sheet.Close();
    EXPECT_EQ(TakeNoted(), "destroy ");
    EXPECT_EQ(SamplePage::alive, 0);
}

TEST_F(Pages, WithoutSettingsOfTheDriverAreDisabledAndRefuse) {
    ui->devmode.GetDevMode()->dmDriverExtra = 0;
    SheetOfPages sheet({MakePage(SamplePage::WinProc)});
    EXPECT_EQ(TakeNoted(), "");
    EXPECT_FALSE(IsWindowEnabled(sheet.Item(FIELD)));
    EXPECT_TRUE(IsWindowEnabled(sheet.Item(IDOK)));
    EXPECT_FALSE(sheet.Apply());
}

TEST_F(Pages, RunDialogsThatCancelGivesNothing) {
    SheetOfPages sheet({MakePage(SamplePage::WinProc)});
    constexpr char kDialog[] = "*:PAGE_SETUP/^PRESETS";
    const struct {
        const char* name;
        int button, result, copies;
    } cases[] = {{kDialog, IDCANCEL, 2, 1}, {kDialog, IDOK, 1, 5}, {"*:NO/^SUCH", IDOK, 2, 5}};
    for (const auto& c : cases) {
        ClosingDialog::button = c.button;
        EXPECT_EQ(SamplePage::last->DialogModal(c.name, ClosingDialog::WinProc), c.result)
            << c.name << c.button;
        EXPECT_EQ(ui->devmode.GetCopies(), c.copies);
    }
    EXPECT_EQ(SamplePage::last->DialogModeless("*:NO/^SUCH", ClosingDialog::WinProc), nullptr);
}

TEST_F(Pages, ReadAndWriteControls) {
    SheetOfPages sheet({MakePage(SamplePage::WinProc)});
    prtpage& page = *SamplePage::last;
    const struct {
        const char* text;
        int32_t number;
    } numbers[] = {{"  -12abc", -12}, {"abc", 0}, {"99999999999", 2000000000}, {"", 0}};
    for (const auto& c : numbers) {
        EXPECT_TRUE(page.EM_SetText(FIELD, c.text));
        EXPECT_EQ(page.EM_GetInt(FIELD), c.number) << c.text;
    }
    EXPECT_FALSE(page.EM_SetText(999, "x") || page.WM_Enable(999, true) || page.EM_SetInt(999, 1));
    EXPECT_EQ(page.EM_GetInt(999), 0);

    EXPECT_TRUE(page.EM_AddUpDownInt(FIELD, 5, 50) && page.EM_AddUpDownInt(FIELD, 10, 60));
    const HWND arrows = page.GetItem(FIELD + 0x4000);
    ASSERT_NE(arrows, nullptr);
    EXPECT_EQ(GetWindow(page.GetItem(FIELD), GW_HWNDNEXT), arrows);
    page.EM_SetInt(FIELD, 42);
    EXPECT_EQ(SendMessageW(arrows, UDM_GETPOS32, 0, 0), 42);
    EXPECT_EQ(TextOfWindow(page.GetItem(FIELD)), "42");
    page.WM_Enable(FIELD, false);
    EXPECT_FALSE(IsWindowEnabled(arrows)) << "arrows belong to their field";
    page.WM_EnableAll(true, FIELD, LIST);

    page.EM_SetMicrons(FIELD, 25400);
    EXPECT_EQ(page.EM_GetMicrons(FIELD), 25400);
    EXPECT_EQ(page.EM_GetDots(FIELD), 203);
    EXPECT_EQ(page.dots_to_microns(203), 25400);
    EXPECT_EQ(page.microns_to_dots(-12700), -102) << "halves away from zero";

    EXPECT_EQ(page.CB_AddString(LIST, "a", 3), 0);
    EXPECT_EQ(page.CB_AddSpeed(LIST, 50800, -1), 1);
    EXPECT_FALSE(page.CB_SetCurSelData(LIST, 4));
    EXPECT_EQ(page.CB_GetCurSel(LIST), -1);
    EXPECT_TRUE(page.CB_SetCurSelData(LIST, 50800));
    EXPECT_EQ(page.CB_GetCurSelData(LIST), 50800);
    EXPECT_EQ(page.CB_GetSelData(LIST, 7), 0);

    const std::string c = "(C)";
    const struct {
        std::string text, replaced;
    } texts[] = {{"Version {C=2002-2004}", "Version \xA9 2002-2004"},
                 {"{R}{r} {T}{x stays away}{X}", "\xAE\xAE \x99"},
                 {"{c=2002-2002}{1}{ {C", "\xA9 2002{1}{ {C"}};
    for (const auto& t : texts) {
        page.EM_SetText(LABEL, t.text.c_str());
        page.ReplaceSpecialStrings(page.GetItem(LABEL));
        OString shown;
        page.WM_GetText(LABEL, shown);
        EXPECT_EQ(Text(shown), t.replaced);
    }
    EXPECT_EQ(Text(page.GetString_CharSet(GREEK_CHARSET)), "Greek");
    EXPECT_TRUE(page.GetString_CharSet(1).IsEmpty());
}

TEST_F(Pages, BindControlsToObjects) {
    SheetOfPages sheet({MakePage(SamplePage::WinProc)});
    prtpage& page = *SamplePage::last;
    const HWND field = page.GetItem(FIELD);
    EXPECT_EQ(page.GetControl(FIELD), &SamplePage::last->field);
    EXPECT_FALSE(SamplePage::last->field.IsInvalid());
    EXPECT_EQ(page.GetControl(LIST), nullptr);

    auto* const list = new UComboBox; // until the sheet is closed
    EXPECT_TRUE(list->Bind(&page, LIST));
    EXPECT_TRUE(list->IsInvalid());
    for (const char* text : {"pear", "Apple", "fig"}) list->AddSorted(text, *text);
    EXPECT_EQ(Text(list->GetString(0) + "," + list->GetString(1) + "," + list->GetString(2)),
              "Apple,fig,pear");
    EXPECT_TRUE(list->SetCurSelData('f'));
    EXPECT_EQ(list->GetCurSel(), 1);
    EXPECT_FALSE(list->SetCurSelData('x'));
    EXPECT_EQ(list->GetCurSelData(), 'f');

    auto* const options = new UListBox;
    options->Bind(&page, OPTIONS);
    for (const char* text : {"one", "two", "three"}) options->AddString(text, *text);
    options->Select(0, true);
    options->Select(2, true);
    options->SetString(2, "3");
    OStringArray texts;
    options->GetSelected(texts);
    EXPECT_EQ(Text(texts), "one,3");
    EXPECT_EQ(options->GetData(2), 't');
    texts.RemoveAt(0, 1);
    options->SetSelected(texts);
    EXPECT_EQ(options->GetSelectedCount(), 1);

    auto* const radio = new URadioButton;
    radio->Bind(&page, 0);
    for (int i = 0; i < 3; ++i) radio->AddButton(RADIO + i);
    EXPECT_EQ(radio->GetCurSel(), -1);
    radio->SetCurSel(2);
    sheet.Click(RADIO + 1);
    EXPECT_EQ(radio->GetCurSel(), 1);

    auto* const slider = new USlider;
    slider->Bind(&page, SLIDER);
    slider->SetStep(10);
    slider->SetRange(-100, 100);
    slider->Link(LABEL);
    TakeNoted();
    slider->SetValue(55);
    EXPECT_EQ(slider->GetValue(), 50);
    EXPECT_EQ(TextOfWindow(page.GetItem(LABEL)), "50");
    EXPECT_EQ(TakeNoted(), "command0 ");
    SendMessageW(slider->GetWindow(), TBM_SETPOS, TRUE, -3);
    SendMessageW(page.GetWindow(), WM_HSCROLL, TB_THUMBTRACK,
                 reinterpret_cast<LPARAM>(slider->GetWindow()));
    EXPECT_EQ(TextOfWindow(page.GetItem(LABEL)), "-30");

    sheet.Close();
    EXPECT_EQ(list->GetWindow(), nullptr);
    EXPECT_FALSE(IsWindow(field));
    delete list;
    delete options;
    delete radio;
    delete slider;
}
