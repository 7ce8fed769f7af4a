#include "pages/fonts/cf_fdown.h"

#include <dlgs.h>

#include <memory>

#include "core/fixed_text.h"
#include "locale/text_numbers.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

namespace {

constexpr const WCHAR* kDownloadProperty = TEXT("cf_FDown");

// The identifiers of the system's own controls are those of <dlgs.h>.
constexpr int kFontFamilies = cmb1, kFontStyles = cmb2, kFontSizes = cmb3, kFontSizesLabel = stc3;
enum DownloadControl : int {
    kDownloadKinds = 861,
    kCharacterSets = 862,
    kFontNumber = 863,
    kFontNumberRange = 864,
    kFontMemories = 865,
    kFontFileName = 866,
    kCharacterSetsLabel = 872,
    kIdentifierLabel = 873,
    kFontFileNameLabel = 874
};

// Posted to the dialog, so that the system has dealt with the choice before it is looked at.
constexpr UINT kSuggestName = WM_APP + 1;

constexpr const WCHAR* kFirstFamily = TEXT("Arial");
constexpr int kFirstSize = 12; // points
constexpr int kSmallestFont = 4;
constexpr int kLargestFont = 144;

// A font that the system has: the usual one, or the one that it shows in its place.
LOGFONTW FirstFont() {
    LOGFONTW font = {};
    font.lfHeight = -kFirstSize;
    font.lfWeight = FW_NORMAL;
    font.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    PutFixedText(font.lfFaceName, OString(kFirstFamily), LF_FACESIZE);
    const HDC screen = GetDC(nullptr);
    if (!screen) return font;
    font.lfHeight = -MulDiv(kFirstSize, GetDeviceCaps(screen, LOGPIXELSY), 72);
    if (const HFONT made = CreateFontIndirectW(&font)) {
        const HGDIOBJ before = SelectObject(screen, made);
        WCHAR family[LF_FACESIZE] = {};
        if (GetTextFaceW(screen, LF_FACESIZE, family) > 0)
            PutFixedText(font.lfFaceName, OString(family), LF_FACESIZE);
        SelectObject(screen, before);
        DeleteObject(made);
    }
    ReleaseDC(nullptr, screen);
    return font;
}

} // namespace

cf_FDown::cf_FDown(prtpage& page)
    : page_(page)
    , settings_(page.GetModel()) {
    page.GetUI()->ChooseFontSettings(&settings_);
    choices_.type = settings_.download_type;
}

bool cf_FDown::GetFontInfo(HWND parent, DownloadedFontInfo* font) {
    *font = {};
    prtui& ui = *page_.GetUI();
    const void* const shape = ui.locale.GetDialog("*:FONTS/^DOWNLOAD", nullptr);
    if (!shape) return false;
    choices_.font = FirstFont();
    CHOOSEFONTW request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = parent;
    request.lpLogFont = &choices_.font;
    request.Flags = CF_SCREENFONTS | CF_TTONLY | CF_NOSIMULATIONS | CF_FORCEFONTEXIST |
                    CF_LIMITSIZE | CF_SHOWHELP | CF_ENABLEHOOK | CF_ENABLETEMPLATEHANDLE |
                    CF_INITTOLOGFONTSTRUCT;
    request.lCustData = reinterpret_cast<LPARAM>(this);
    request.lpfnHook = Hook;
    // With this flag the system takes the template itself in place of a module.
    request.hInstance = static_cast<HINSTANCE>(const_cast<void*>(shape));
    request.nSizeMin = kSmallestFont;
    request.nSizeMax = kLargestFont;
    if (!ChooseFontW(&request)) return false;
    choices_.point_size = static_cast<uint16_t>(request.iPointSize);
    delete settings_.ExistingFont(choices_.option, ui.fonts); // leaves its list
    *font = ChosenFont(settings_, choices_);
    ui.AdjustFontInfo(font);
    return true;
}

// ---- Messages of the dialog ---------------------------------------------------------------------

UINT_PTR CALLBACK cf_FDown::Hook(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_INITDIALOG) {
        auto* const made =
            reinterpret_cast<cf_FDown*>(reinterpret_cast<const CHOOSEFONTW*>(second)->lCustData);
        made->dialog_ = dialog;
        SetPropW(dialog, kDownloadProperty, made);
        made->FillKinds();
        made->ShowKind();
        return TRUE;
    }
    auto* const self = static_cast<cf_FDown*>(GetPropW(dialog, kDownloadProperty));
    if (message == WM_NCDESTROY) RemovePropW(dialog, kDownloadProperty);
    return self && self->Handle(message, first, second);
}

bool cf_FDown::Handle(UINT message, WPARAM first, LPARAM) {
    if (message == WM_COMMAND) return OnCommand(LOWORD(first), HIWORD(first));
    if (message != kSuggestName) return false;
    SetSuggestedFileName();
    return true;
}

bool cf_FDown::OnCommand(int id, int code) {
    switch (id) {
    case kFontFamilies:
    case kFontStyles:
    case kFontSizes:
        if (code == CBN_SELCHANGE || code == CBN_EDITCHANGE)
            PostMessageW(dialog_, kSuggestName, 0, 0);
        return false;
    case kDownloadKinds:
        if (code != CBN_SELCHANGE) return false;
        choices_.type = static_cast<DownloadedFontInfo::Type>(SelectedData(kDownloadKinds));
        ShowKind();
        return true;
    case kFontNumber:
        if (code != EN_KILLFOCUS) return false;
        SetTextOfWindow(GetDlgItem(dialog_, kFontNumber),
                        FormatInt(settings_.ValidIdentifier(TextOf(kFontNumber))));
        return true;
    case pshHelp:
        page_.ShowHelp("/base/Fonts_Download.html");
        return true;
    case IDOK:
        return code == BN_CLICKED && !TakeChoices();
    default:
        return false;
    }
}

// ---- What the dialog shows ----------------------------------------------------------------------

void cf_FDown::Show(int id, bool show) const {
    if (const HWND control = GetDlgItem(dialog_, id)) ShowWindow(control, show ? SW_SHOW : SW_HIDE);
}

void cf_FDown::AddItem(int list, const OString& text, LPARAM data) const {
    const LRESULT item = SendDlgItemMessageW(dialog_, list, CB_ADDSTRING, 0,
                                             reinterpret_cast<LPARAM>(text.wstring()));
    if (item >= 0)
        SendDlgItemMessageW(dialog_, list, CB_SETITEMDATA, static_cast<WPARAM>(item), data);
}

LPARAM cf_FDown::SelectedData(int list) const {
    const LRESULT item = SendDlgItemMessageW(dialog_, list, CB_GETCURSEL, 0, 0);
    if (item < 0) return 0;
    return SendDlgItemMessageW(dialog_, list, CB_GETITEMDATA, static_cast<WPARAM>(item), 0);
}

OString cf_FDown::TextOf(int id) const {
    return TextOfWindow(GetDlgItem(dialog_, id));
}

void cf_FDown::FillKinds() {
    FontDownloadKind kinds[2];
    const int count = GetDownloadKinds(*page_.GetModel(), kinds);
    for (int i = 0; i < count; ++i) {
        AddItem(kDownloadKinds, page_.GetString(kinds[i].text), kinds[i].type);
        if (kinds[i].type == choices_.type)
            SendDlgItemMessageW(dialog_, kDownloadKinds, CB_SETCURSEL, static_cast<WPARAM>(i), 0);
    }
}

void cf_FDown::ShowKind() {
    const bool bitmap = choices_.type == DownloadedFontInfo::BITMAP;
    Show(kFontSizes, bitmap);
    Show(kFontSizesLabel, bitmap);
    SendDlgItemMessageW(dialog_, kCharacterSets, CB_RESETCONTENT, 0, 0);
    WPARAM index = 0;
    for (const CharMask& mask : CharMasks()) {
        AddItem(kCharacterSets, page_.GetString(mask.text), mask.text);
        if (mask.text == ALL_CHARACTERS)
            SendDlgItemMessageW(dialog_, kCharacterSets, CB_SETCURSEL, index, 0);
        ++index;
    }
    for (const int id : {kCharacterSets, kCharacterSetsLabel})
        EnableWindow(GetDlgItem(dialog_, id), bitmap);
    ShowIdentifier();
    const bool has_name = settings_.use_name || settings_.identifier_mode == CFontSettings::NAME;
    Show(kFontFileName, has_name);
    Show(kFontFileNameLabel, has_name);
    SendDlgItemMessageW(dialog_, kFontFileName, EM_LIMITTEXT,
                        static_cast<WPARAM>(settings_.longest_name), 0);
    SetSuggestedFileName();
}

void cf_FDown::ShowIdentifier() {
    const bool number = settings_.identifier_mode == CFontSettings::NUMBER;
    const bool option = settings_.identifier_mode == CFontSettings::OPTION;
    Show(kFontNumber, number);
    Show(kFontNumberRange, number);
    Show(kFontMemories, option);
    Show(kIdentifierLabel, number || option);
    if (number) {
        SendDlgItemMessageW(dialog_, kFontNumber, EM_LIMITTEXT,
                            static_cast<WPARAM>(settings_.IdentifierDigits()), 0);
        SetTextOfWindow(GetDlgItem(dialog_, kFontNumber), FormatInt(settings_.identifier_min));
        SetTextOfWindow(GetDlgItem(dialog_, kFontNumberRange), settings_.IdentifierLabel());
    }
    SendDlgItemMessageW(dialog_, kFontMemories, CB_RESETCONTENT, 0, 0);
    for (int i = 0; option && i < settings_.option_texts.GetSize(); ++i)
        AddItem(kFontMemories, settings_.OptionText(i, page_.GetUI()->fonts), i);
    SendDlgItemMessageW(dialog_, kFontMemories, CB_SETCURSEL, 0, 0);
}

void cf_FDown::SetSuggestedFileName() {
    LOGFONTW font = {};
    SendMessageW(dialog_, WM_CHOOSEFONT_GETLOGFONT, 0, reinterpret_cast<LPARAM>(&font));
    const OString size =
        choices_.type == DownloadedFontInfo::BITMAP ? TextOf(kFontSizes) : OString();
    SetTextOfWindow(GetDlgItem(dialog_, kFontFileName),
                    SuggestedFileName(font, size, settings_.longest_name, page_.GetUI()->fonts));
}

// ---- The end ------------------------------------------------------------------------------------

bool cf_FDown::TakeChoices() {
    choices_.style = TextOf(kFontStyles);
    choices_.subset = static_cast<uint16_t>(SelectedData(kCharacterSets));
    choices_.file_name = TextOf(kFontFileName);
    choices_.identifier = TextOf(kFontNumber);
    choices_.option = -1;
    if (settings_.identifier_mode != CFontSettings::OPTION) return true;
    choices_.option =
        static_cast<int>(SendDlgItemMessageW(dialog_, kFontMemories, CB_GETCURSEL, 0, 0));
    const DownloadedFont* const existing =
        settings_.ExistingFont(choices_.option, page_.GetUI()->fonts);
    if (!existing) return true;
    OString question = page_.GetString(TEXT_REPLACE_FONT_QUESTION);
    question << existing->GetDisplayName();
    const OString title = page_.GetString(TEXT_REPLACE_FONT);
    return MessageBoxW(dialog_, question.wstring(), title.wstring(), MB_OKCANCEL) == IDOK;
}
