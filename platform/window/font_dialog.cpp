// The dialog for fonts.
#include "gdi/font_families.h"
#include "host/guarded.h"
#include "host/text.h"
#include "locale/system_texts.h"
#include "window/look.h"
#include "window/system_dialogs.h"

#include <commdlg.h>
#include <win32host/user.h>

#include <algorithm>
#include <cstdlib>

namespace win32host {
namespace {

constexpr int kFamily = cmb1, kStyle = cmb2, kSize = cmb3, kScript = cmb5, kSample = stc5;

constexpr int kSizes[] = {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 36, 48, 72};

constexpr UINT kItemHeight = 15; // of owner-drawn lists, at 96 dpi

constexpr LONG kLeastBoldWeight = FW_NORMAL + 151;

constexpr std::pair<BYTE, const char16_t*> kScripts[] = {
    {ANSI_CHARSET, u"Western"},          {EASTEUROPE_CHARSET, u"Central European"},
    {RUSSIAN_CHARSET, u"Cyrillic"},      {GREEK_CHARSET, u"Greek"},
    {TURKISH_CHARSET, u"Turkish"},       {HEBREW_CHARSET, u"Hebrew"},
    {ARABIC_CHARSET, u"Arabic"},         {BALTIC_CHARSET, u"Baltic"},
    {VIETNAMESE_CHARSET, u"Vietnamese"}, {THAI_CHARSET, u"Thai"},
    {SHIFTJIS_CHARSET, u"Japanese"},     {GB2312_CHARSET, u"CHINESE_GB2312"},
    {HANGUL_CHARSET, u"Hangul"},         {CHINESEBIG5_CHARSET, u"CHINESE_BIG5"},
    {SYMBOL_CHARSET, u"Symbol"}};

class FontDialog {
public:
    explicit FontDialog(CHOOSEFONTW& request)
        : request_(request) {}
    ~FontDialog() { DeleteObject(sample_font_); }
    FontDialog(const FontDialog&) = delete;
    FontDialog& operator=(const FontDialog&) = delete;

    bool Run();

private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second);
    INT_PTR Handle(UINT message, WPARAM first, LPARAM second);
    INT_PTR Show();
    bool Has(DWORD flag) const { return (request_.Flags & flag) != 0; }
    LRESULT Send(int id, UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendDlgItemMessageW(dialog_, id, message, first, second);
    }

    void Initialise();
    void FillFamilies();
    void FillSizes();
    void FamilyChanged();
    void FillStyles(const FontStyle& before);
    void FillScripts();
    void ShowSample();
    // Selects what the text of a combo box's field names.
    void SelectTyped(int id);
    const FontFamily* Family() const;
    std::vector<FontStyle> StylesOf(const FontFamily& family) const;
    const FontStyle* Style() const;
    // Tenths of a point; 0 if it is no size.
    int Size() const;
    int Dpi() const;
    bool Describe(LOGFONTW& font) const;
    void Complain(const std::u16string& text, int id);
    void Accept();

    CHOOSEFONTW& request_;
    std::vector<const FontFamily*> families_;
    std::vector<FontStyle> styles_; // of the chosen family
    HFONT sample_font_ = nullptr;
    HWND dialog_ = nullptr;
};

int FontDialog::Dpi() const {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

// ---- Lists --------------------------------------------------------------------------------------

void FontDialog::FillFamilies() {
    for (const FontFamily& family : FontFamilies()) {
        if (Has(CF_TTONLY) && !family.true_type) continue;
        const LRESULT item =
            Send(kFamily, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(family.name.c_str()));
        if (item < 0) continue;
        Send(kFamily, CB_SETITEMDATA, static_cast<WPARAM>(item),
             static_cast<LPARAM>(families_.size()));
        families_.push_back(&family);
    }
}

void FontDialog::FillSizes() {
    for (const int size : kSizes) {
        if (Has(CF_LIMITSIZE) && (size < request_.nSizeMin || size > request_.nSizeMax)) continue;
        const std::string digits = std::to_string(size);
        const std::u16string text(digits.begin(), digits.end());
        Send(kSize, CB_INSERTSTRING, static_cast<WPARAM>(-1),
             reinterpret_cast<LPARAM>(text.c_str()));
    }
}

const FontFamily* FontDialog::Family() const {
    const LRESULT item = Send(kFamily, CB_GETCURSEL);
    if (item < 0) return nullptr;
    const auto index =
        static_cast<size_t>(Send(kFamily, CB_GETITEMDATA, static_cast<WPARAM>(item)));
    return index < families_.size() ? families_[index] : nullptr;
}

const FontStyle* FontDialog::Style() const {
    const LRESULT item = Send(kStyle, CB_GETCURSEL);
    return item >= 0 && static_cast<size_t>(item) < styles_.size()
               ? &styles_[static_cast<size_t>(item)]
               : nullptr;
}

// Bold and italic ones can be made of others.
std::vector<FontStyle> FontDialog::StylesOf(const FontFamily& family) const {
    std::vector<FontStyle> styles = family.styles;
    if (Has(CF_NOSIMULATIONS)) return styles;
    const FontStyle made[] = {{SystemText(u"Regular"), FW_NORMAL, false},
                              {SystemText(u"Italic"), FW_NORMAL, true},
                              {SystemText(u"Bold"), FW_BOLD, false},
                              {SystemText(u"Bold Italic"), FW_BOLD, true}};
    for (const FontStyle& style : made)
        if (std::none_of(styles.begin(), styles.end(), [&](const FontStyle& known) {
                return known.weight == style.weight && known.italic == style.italic;
            }))
            styles.push_back(style);
    return styles;
}

// Shows the styles of the family, with the one selected that is nearest to `before`.
void FontDialog::FillStyles(const FontStyle& before) {
    Send(kStyle, CB_RESETCONTENT);
    styles_.clear();
    const FontFamily* family = Family();
    if (!family) return;
    styles_ = StylesOf(*family);
    const auto distance = [&](const FontStyle& style) {
        return std::abs(style.weight - before.weight) + (style.italic != before.italic ? 1000 : 0);
    };
    size_t nearest = 0;
    for (size_t i = 0; i < styles_.size(); ++i) {
        Send(kStyle, CB_INSERTSTRING, static_cast<WPARAM>(-1),
             reinterpret_cast<LPARAM>(styles_[i].name.c_str()));
        if (distance(styles_[i]) < distance(styles_[nearest])) nearest = i;
    }
    Send(kStyle, CB_SETCURSEL, nearest);
}

void FontDialog::FillScripts() {
    const LRESULT chosen = Send(kScript, CB_GETCURSEL);
    const LRESULT before = chosen < 0 ? (Has(CF_INITTOLOGFONTSTRUCT) && request_.lpLogFont
                                             ? request_.lpLogFont->lfCharSet
                                             : ANSI_CHARSET)
                                      : Send(kScript, CB_GETITEMDATA, static_cast<WPARAM>(chosen));
    Send(kScript, CB_RESETCONTENT);
    LOGFONTW font = {};
    const FontFamily* family = Family();
    if (!family) return;
    family->name.copy(font.lfFaceName, LF_FACESIZE - 1);
    LRESULT selected = 0;
    for (const BYTE set : CharacterSetsOf(font)) {
        const auto* script = std::find_if(std::begin(kScripts), std::end(kScripts),
                                          [set](const auto& known) { return known.first == set; });
        if (script == std::end(kScripts)) continue;
        const std::u16string text = SystemText(script->second);
        const LRESULT item = Send(kScript, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        if (item < 0) return;
        Send(kScript, CB_SETITEMDATA, static_cast<WPARAM>(item), set);
        if (set == before) selected = item;
    }
    Send(kScript, CB_SETCURSEL, static_cast<WPARAM>(selected));
    EnableWindow(GetDlgItem(dialog_, kScript), !Has(CF_NOSCRIPTSEL));
}

void FontDialog::FamilyChanged() {
    const FontStyle* style = Style();
    FillStyles(style ? FontStyle(*style) : FontStyle{{}, FW_NORMAL, false});
    FillScripts();
    ShowSample();
}

void FontDialog::SelectTyped(int id) {
    const std::u16string text = TextOfControl(dialog_, id);
    const LRESULT found = Send(id, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                               reinterpret_cast<LPARAM>(text.c_str()));
    if (found < 0 || found == Send(id, CB_GETCURSEL)) return;
    // The user goes on typing where he is.
    const LRESULT caret = Send(id, CB_GETEDITSEL);
    Send(id, CB_SETCURSEL, static_cast<WPARAM>(found));
    Send(id, CB_SETEDITSEL, 0, MAKELPARAM(LOWORD(caret), HIWORD(caret)));
}

// ---- The font -----------------------------------------------------------------------------------

int FontDialog::Size() const {
    // In simple and drop-down lists the field counts, otherwise what is selected.
    const std::u16string text = TextOfControl(dialog_, kSize);
    int tenths = 0;
    bool fraction = false;
    for (const char16_t unit : text) {
        if (unit >= u'0' && unit <= u'9' && tenths < 100000)
            tenths = tenths * 10 + (unit - u'0');
        else if ((unit == u'.' || unit == u',') && !fraction)
            fraction = true;
        else if (unit != u' ')
            return 0;
        if (fraction && unit >= u'0' && unit <= u'9') return tenths;
    }
    return tenths * 10;
}

bool FontDialog::Describe(LOGFONTW& font) const {
    const FontFamily* family = Family();
    const FontStyle* style = Style();
    if (!family || !style) return false;
    font = {};
    family->name.copy(font.lfFaceName, LF_FACESIZE - 1);
    font.lfHeight = -MulDiv(Size(), Dpi(), 720);
    font.lfWeight = style->weight;
    font.lfItalic = style->italic;
    const LRESULT script = Send(kScript, CB_GETCURSEL);
    font.lfCharSet =
        script < 0 ? BYTE{DEFAULT_CHARSET}
                   : static_cast<BYTE>(Send(kScript, CB_GETITEMDATA, static_cast<WPARAM>(script)));
    // Pitch and family are the font's own.
    const HFONT made = CreateFontIndirectW(&font);
    if (!made) return true;
    const HDC screen = GetDC(nullptr);
    const HGDIOBJ before = SelectObject(screen, made);
    TEXTMETRICW metrics = {};
    if (GetTextMetricsW(screen, &metrics)) {
        const int pitch =
            metrics.tmPitchAndFamily & TMPF_FIXED_PITCH ? VARIABLE_PITCH : FIXED_PITCH;
        font.lfPitchAndFamily = static_cast<BYTE>((metrics.tmPitchAndFamily & 0xF0) | pitch);
    }
    SelectObject(screen, before);
    ReleaseDC(nullptr, screen);
    DeleteObject(made);
    return true;
}

void FontDialog::ShowSample() {
    LOGFONTW font;
    if (!GetDlgItem(dialog_, kSample) || !Describe(font)) return;
    const HFONT made = CreateFontIndirectW(&font);
    Send(kSample, WM_SETFONT, reinterpret_cast<WPARAM>(made), TRUE);
    SetDlgItemTextW(dialog_, kSample, u"AaBbYyZz");
    DeleteObject(sample_font_);
    sample_font_ = made;
}

// ---- The dialog ---------------------------------------------------------------------------------

void FontDialog::Initialise() {
    FillFamilies();
    FillSizes();
    const LOGFONTW* font = Has(CF_INITTOLOGFONTSTRUCT) ? request_.lpLogFont : nullptr;
    if (font) {
        const LRESULT family = Send(kFamily, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(font->lfFaceName));
        if (family >= 0) Send(kFamily, CB_SETCURSEL, static_cast<WPARAM>(family));
        const LONG weight = font->lfWeight ? font->lfWeight : FW_NORMAL;
        FillStyles({{}, weight, font->lfItalic != 0});
        if (font->lfHeight != 0) {
            const std::string digits = std::to_string(MulDiv(std::abs(font->lfHeight), 72, Dpi()));
            SetDlgItemTextW(dialog_, kSize, std::u16string(digits.begin(), digits.end()).c_str());
            SelectTyped(kSize);
        }
    }
    FamilyChanged();
    ShowWindow(GetDlgItem(dialog_, pshHelp), Has(CF_SHOWHELP) ? SW_SHOWNA : SW_HIDE);
}

// Tells the user and goes to the control.
void FontDialog::Complain(const std::u16string& text, int id) {
    MessageBoxW(dialog_, text.c_str(), SystemText(u"Font").c_str(), MB_OK | MB_ICONINFORMATION);
    if (IsWindow(dialog_)) SetFocus(GetDlgItem(dialog_, id));
}

void FontDialog::Accept() {
    const int size = Size();
    LOGFONTW font = {};
    const auto number = [](int value) {
        const std::string digits = std::to_string(value);
        return std::u16string(digits.begin(), digits.end());
    };
    SelectTyped(kFamily);
    if (!Family() || !SameName(TextOfControl(dialog_, kFamily), Family()->name)) {
        Complain(
            SystemText(u"There is no font with that name.\nChoose a font from the list of fonts."),
            kFamily);
    } else if (!Describe(font)) {
        Complain(SystemText(
                     u"There is no font with that style.\nChoose a style from the list of styles."),
                 kStyle);
    } else if (size <= 0) {
        Complain(SystemText(u"Size must be a number."), kSize);
    } else if (Has(CF_LIMITSIZE) &&
               (size < request_.nSizeMin * 10 || size > request_.nSizeMax * 10)) {
        Complain(SystemText(u"Size must be between ") + number(request_.nSizeMin) +
                     SystemText(u" and ") + number(request_.nSizeMax) + SystemText(u" points."),
                 kSize);
    } else {
        if (request_.lpLogFont) *request_.lpLogFont = font;
        request_.iPointSize = size;
        const bool bold = font.lfWeight >= kLeastBoldWeight;
        request_.nFontType = static_cast<WORD>(SCREEN_FONTTYPE | (bold ? BOLD_FONTTYPE : 0) |
                                               (font.lfItalic ? ITALIC_FONTTYPE : 0) |
                                               (!bold && !font.lfItalic ? REGULAR_FONTTYPE : 0));
        EndDialog(dialog_, IDOK);
    }
}

void DrawItem(const DRAWITEMSTRUCT& item) {
    const look::State state =
        item.itemState & ODS_SELECTED ? look::kSelected | look::kFocused : look::kNormal;
    if (item.itemState & ODS_SELECTED)
        look::DrawSelection(item.hDC, item.rcItem, state);
    else
        FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_WINDOW));
    if (item.itemID == static_cast<UINT>(-1)) return;
    const std::u16string text = TextOfItem(GetParent(item.hwndItem), static_cast<int>(item.CtlID),
                                           static_cast<LRESULT>(item.itemID));
    RECT rect = item.rcItem;
    rect.left += look::Scaled(item.hDC, 3);
    const int mode = SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF before =
        SetTextColor(item.hDC, item.itemState & ODS_SELECTED ? look::SelectionTextColor(state)
                                                             : look::TextColor(look::kNormal));
    DrawTextW(item.hDC, text.c_str(), -1, &rect, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    SetTextColor(item.hDC, before);
    SetBkMode(item.hDC, mode);
}

INT_PTR FontDialog::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_DRAWITEM:
        DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
        return TRUE;
    case WM_CHOOSEFONT_GETLOGFONT:
        if (second) (void)Describe(*reinterpret_cast<LOGFONTW*>(second));
        return TRUE;
    case WM_COMMAND:
        break;
    default:
        return FALSE;
    }
    const int code = HIWORD(first);
    switch (LOWORD(first)) {
    case IDOK:
        Accept();
        return TRUE;
    case IDCANCEL:
        EndDialog(dialog_, IDCANCEL);
        return TRUE;
    case pshHelp:
        if (request_.hwndOwner)
            SendMessageW(request_.hwndOwner, RegisterWindowMessageW(HELPMSGSTRINGW),
                         reinterpret_cast<WPARAM>(dialog_), reinterpret_cast<LPARAM>(&request_));
        return TRUE;
    case kFamily:
        if (code == CBN_EDITCHANGE) SelectTyped(kFamily);
        if (code == CBN_EDITCHANGE || code == CBN_SELCHANGE) FamilyChanged();
        return TRUE;
    case kStyle:
    case kSize:
    case kScript:
        if (code == CBN_EDITCHANGE) SelectTyped(LOWORD(first));
        if (code == CBN_EDITCHANGE || code == CBN_SELCHANGE) ShowSample();
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK FontDialog::Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_MEASUREITEM) {
        const HDC dc = GetDC(dialog);
        reinterpret_cast<MEASUREITEMSTRUCT*>(second)->itemHeight =
            static_cast<UINT>(look::Scaled(dc, kItemHeight));
        ReleaseDC(dialog, dc);
        return TRUE;
    }
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, second);
        auto* self = reinterpret_cast<FontDialog*>(second);
        self->dialog_ = dialog;
        const CHOOSEFONTW& request = self->request_;
        return Guarded(INT_PTR(FALSE), [&]() -> INT_PTR {
            self->Initialise();
            return self->Has(CF_ENABLEHOOK)
                       ? static_cast<INT_PTR>(request.lpfnHook(dialog, message, first,
                                                               reinterpret_cast<LPARAM>(&request)))
                       : TRUE;
        });
    }
    auto* self = reinterpret_cast<FontDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (!self) return FALSE;
    if (self->Has(CF_ENABLEHOOK) && self->request_.lpfnHook(dialog, message, first, second) != 0)
        return TRUE;
    return Guarded(INT_PTR(FALSE), [&] { return self->Handle(message, first, second); });
}

DialogTemplate UsualTemplate() {
    constexpr DWORD list = WS_VSCROLL | WS_TABSTOP | CBS_DISABLENOSCROLL;
    DialogTemplate made = SystemDialog(SystemText(u"Font"), 261, 180, WS_SYSMENU);
    AddSystemControl(made, kStaticClass, stc1, u"&Font:", SS_LEFT, {7, 7, 105, 15});
    AddControl(made, kComboBoxClass, kFamily, u"", CBS_SIMPLE | CBS_AUTOHSCROLL | CBS_SORT | list,
               {7, 16, 105, 92});
    AddSystemControl(made, kStaticClass, stc2, u"Font st&yle:", SS_LEFT, {110, 7, 154, 15});
    AddControl(made, kComboBoxClass, kStyle, u"", CBS_SIMPLE | list, {110, 16, 160, 92});
    AddSystemControl(made, kStaticClass, stc3, u"&Size:", SS_LEFT, {165, 7, 195, 15});
    AddControl(made, kComboBoxClass, kSize, u"", CBS_SIMPLE | list, {165, 16, 200, 92});
    AddSystemControl(made, kButtonClass, IDOK, u"OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP,
                     {206, 16, 254, 30});
    AddSystemControl(made, kButtonClass, IDCANCEL, u"Cancel", WS_TABSTOP | WS_GROUP,
                     {206, 34, 254, 48});
    AddSystemControl(made, kButtonClass, pshHelp, u"&Help", WS_TABSTOP | WS_GROUP,
                     {206, 52, 254, 66});
    AddSystemControl(made, kButtonClass, grp2, u"Sample", BS_GROUPBOX | WS_GROUP,
                     {110, 97, 254, 140});
    AddControl(made, kStaticClass, kSample, u"AaBbYyZz", SS_CENTER | SS_NOPREFIX,
               {118, 108, 246, 134});
    AddSystemControl(made, kStaticClass, stc6, u"Sc&ript:", SS_LEFT, {110, 147, 140, 155});
    AddControl(made, kComboBoxClass, kScript, u"", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
               {110, 157, 254, 227});
    return made;
}

INT_PTR FontDialog::Show() {
    const auto parameter = reinterpret_cast<LPARAM>(this);
    if (Has(CF_ENABLETEMPLATEHANDLE))
        return DialogBoxIndirectParamW(nullptr,
                                       reinterpret_cast<LPCDLGTEMPLATEW>(request_.hInstance),
                                       request_.hwndOwner, Procedure, parameter);
    if (Has(CF_ENABLETEMPLATE))
        return DialogBoxParamW(request_.hInstance, request_.lpTemplateName, request_.hwndOwner,
                               Procedure, parameter);
    return ShowModal(nullptr, UsualTemplate(), request_.hwndOwner, Procedure, parameter);
}

bool FontDialog::Run() {
    const INT_PTR result = Show();
    if (result == -1)
        SetDialogError(Has(CF_ENABLETEMPLATE | CF_ENABLETEMPLATEHANDLE) ? CDERR_FINDRESFAILURE
                                                                        : CDERR_INITIALIZATION);
    return result == IDOK;
}

DWORD ErrorIn(const CHOOSEFONTW* request) {
    if (!request || request->lStructSize != sizeof(CHOOSEFONTW)) return CDERR_STRUCTSIZE;
    if (request->Flags & CF_ENABLEHOOK && !request->lpfnHook) return CDERR_NOHOOK;
    if (request->Flags & CF_ENABLETEMPLATEHANDLE && !request->hInstance) return CDERR_NOTEMPLATE;
    if (request->Flags & CF_ENABLETEMPLATE && !request->lpTemplateName) return CDERR_NOTEMPLATE;
    if (request->Flags & CF_LIMITSIZE && request->nSizeMax < request->nSizeMin)
        return CFERR_MAXLESSTHANMIN;
    return 0;
}

} // namespace
} // namespace win32host

extern "C" BOOL WINAPI ChooseFontW(LPCHOOSEFONTW request) {
    using namespace win32host;
    return Guarded(FALSE, [&]() -> BOOL {
        SetDialogError(ErrorIn(request));
        if (CommDlgExtendedError() != 0 || !HasUser()) return FALSE;
        if (FontFamilies().empty()) {
            SetDialogError(CFERR_NOFONTS);
            return FALSE;
        }
        return FontDialog(*request).Run();
    });
}
