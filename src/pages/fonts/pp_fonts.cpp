#include "pages/fonts/pp_fonts.h"

#include <utility>

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "fonts/font_sender.h"
#include "locale/text_numbers.h"
#include "pages/fonts/cf_fdown.h"
#include "pages/fonts/pp_bar_font_edit.h"
#include "pages/fonts/pp_rfid_font_edit.h"
#include "ui/prtui.h"
#include "ui/wait_cursor.h"

namespace {

enum : uint16_t {
    kFontList = 801,
    kFontProperties = 802,
    kAddFontMenu = 803,
    kEditFontMenu = 804,
    kViewFontsMenu = 805,
    kAddBarCodeFont = 811,
    kAddRFIDFont = 812,
    kDownloadFont = 813,
    kEditFont = 814,
    kRemoveFonts = 815,
    kResendFonts = 816,
    kVerifyFonts = 817,
    kOfficeCompatibility = 818,
    kFontAdministration = 819,
    kViewDownloads = 821,
    kViewBarCodes = 822,
    kViewRFID = 823
};

constexpr char kFontWidths[] = "USERSETTINGS:Fonts/Column Widths";
constexpr char kFontView[] = "USERSETTINGS:Fonts/View Type";
constexpr char kFontSortColumn[] = "USERSETTINGS:Fonts/Sort Column";
constexpr char kFontSortReverse[] = "USERSETTINGS:Fonts/Sort Reverse";

constexpr uint32_t kUsualView = 14;
constexpr int kPropertyTab = 60; // quarters of a character

// The actions that menu items start.
constexpr struct {
    uint16_t item;
    printer_action action;
} kFontActions[] = {{kOfficeCompatibility, ACTION_OFFICE_COMPATIBILITY},
                    {kFontAdministration, ACTION_ADMINISTRATION}};

} // namespace

const void* ppFonts::Entry::Font() const {
    return kind == DOWNLOADED ? static_cast<const void*>(downloaded) : data;
}

// ---- Begin and end ------------------------------------------------------------------------------

void ppFonts::Init() {
    prtpage::Init();
    if (!config_) return;
    UColumnInfo columns[] = {{GetString(TEXT_FONT_NAME), 150},
                             {GetString(TEXT_FONT_TYPE), 85},
                             {GetString(TEXT_FONT_STATUS), 100}};
    list_.Open(*this, registry_, kFontList, kFontWidths, columns, "*:FONTS/CONTEXT");
    properties_.Bind(this, kFontProperties);
    menus_.Load(ui_->locale, "*:FONTS/MENU");
    int menu = 0;
    const auto take = [&](UPopButton& button, int id) {
        button.Bind(this, id);
        button.GetMenu() = menus_.GetSubMenu(menu++);
    };
    take(add_button_, kAddFontMenu);
    take(edit_button_, kEditFontMenu);
    take(view_button_, kViewFontsMenu);
    LoadView();
}

void ppFonts::LoadView() {
    view_ = registry_.GetDWORD(kFontView, kUsualView);
    if (!GetModel()->CanDownloadFont()) view_ &= ~uint32_t{DOWNLOADED};
    sort_column_ = registry_.GetDWORD(kFontSortColumn, 0);
    sort_reverse_ = registry_.GetByte(kFontSortReverse, 0) != 0;
}

void ppFonts::Destroy() {
    list_.Close();
    // What cannot be remembered is as usual the next time; nothing else depends on it.
    if (view_chosen_) registry_.SetDWORD(kFontView, view_);
    if (!sort_chosen_) return;
    registry_.SetDWORD(kFontSortColumn, sort_column_);
    registry_.SetByte(kFontSortReverse, sort_reverse_);
}

bool ppFonts::Apply() {
    if (ui_->data_fonts.Save(GetModel()) == SaveResult::FAILED) {
        ReportNotStored(GetString(TEXT_FONTS));
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppFonts::GetCurrentCRC32() const {
    return ui_->data_fonts.GetCRC32(0);
}

// ---- What the page shows ------------------------------------------------------------------------

void ppFonts::Refresh(bool all) {
    if (all || list_changed_ || display_changed_) ShowList();
    list_changed_ = display_changed_ = false;
    ShowProperties();
    PrepareMenus();
}

void ppFonts::RebuildFontList() {
    int count = ui_->data_fonts.GetSize();
    const prtdttf_list& downloads = ui_->fonts;
    for (auto* font = downloads.GetNext(nullptr); font; font = downloads.GetNext(font)) ++count;
    OBuffer<Entry> entries(static_cast<uint32_t>(count));
    if (entries.GetSize() < static_cast<uint32_t>(count)) count = 0; // without memory none
    uint32_t size = 0;
    if (count && view_ & DOWNLOADED)
        for (auto* font = downloads.GetNext(nullptr); font; font = downloads.GetNext(font))
            entries[size++] = {DOWNLOADED, font, nullptr};
    for (const View kind : {BAR_CODES, RFID}) {
        if (!count || !(view_ & kind)) continue;
        for (int i = 0; i < ui_->data_fonts.GetSize(); ++i) {
            DataFont* const font = ui_->data_fonts[i];
            if (kind == BAR_CODES ? font->IsBarCode() : font->IsRFID())
                entries[size++] = {kind, nullptr, font};
        }
    }
    if (entries.SetSize(size)) entries_ = std::move(entries);
}

void ppFonts::ShowList() {
    OTypedArray<int> rows;
    GetSelected(rows);
    OPointerArray<const void*> selected;
    for (int i = 0; i < rows.GetSize(); ++i)
        selected.Add(entries_[static_cast<uint32_t>(rows[i])].Font());
    RebuildFontList();
    list_.ResetContent();
    for (uint32_t i = 0; i < entries_.GetSize(); ++i) {
        const Entry& entry = entries_[i];
        OStringArray texts;
        texts.Add(GetFontName(entry));
        texts.Add(GetFontType(entry));
        texts.Add(GetFontStatus(entry));
        const int row = list_.InsertItem(static_cast<int>(i), texts, static_cast<LPARAM>(i));
        for (int j = 0; j < selected.GetSize(); ++j)
            if (selected[j] == entry.Font()) list_.Select(row, true);
    }
}

const ppFonts::Entry* ppFonts::OnlySelected() const {
    OTypedArray<int> rows;
    GetSelected(rows);
    return rows.GetSize() == 1 ? &entries_[static_cast<uint32_t>(rows[0])] : nullptr;
}

void ppFonts::GetSelected(OTypedArray<int>& rows) const {
    for (int row = list_.GetNextSelected(-1); row >= 0; row = list_.GetNextSelected(row))
        rows.Add(row);
}

void ppFonts::ShowProperties() {
    OString text;
    if (const Entry* const only = OnlySelected())
        text = GetFontProperties(*only);
    else if (const int selected = list_.GetSelectedCount(); selected > 1)
        text << GetString(TEXT_SELECTED_FONTS) << tab << selected;
    else
        text << GetString(TEXT_FONTS) << tab << entries_.GetSize();
    properties_.SetText(text);
    properties_.SetTabStops({&kPropertyTab, 1});
}

void ppFonts::PrepareMenus() {
    for (UMenu* const menu : {&menus_, &list_.GetMenu()})
        menu->Enable(kRemoveFonts, list_.GetSelectedCount() > 0);
    const Entry* const only = OnlySelected();
    for (UMenu* const menu : {&menus_, &list_.GetMenu()})
        menu->Enable(kEditFont, only && only->data);
    menus_.Enable(kAddRFIDFont, GetModel()->HasRFID());
    const bool can_download = GetModel()->CanDownloadFont();
    menus_.Enable(kDownloadFont, can_download);
    menus_.Enable(kResendFonts, can_download);
    menus_.Enable(kViewDownloads, can_download);
    menus_.Enable(kVerifyFonts, can_download && ui_->EnableVerifyFonts(*ui_->stream));
    for (const auto& row : kFontActions) {
        const uint32_t offer = PrinterActionSupported(row.action);
        menus_.Enable(row.item, offer && !(IsRestricted() && (offer & ACTION_ADMINISTRATIVE)));
    }
    menus_.Check(kViewDownloads, view_ & DOWNLOADED);
    menus_.Check(kViewBarCodes, view_ & BAR_CODES);
    menus_.Check(kViewRFID, view_ & RFID);
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppFonts::Notify(uint16_t id, uint32_t code, NMHDR* header) {
    int column = -1;
    if (id != kFontList || !config_ || !list_.Notify(code, header, column))
        return prtpage::Notify(id, code, header);
    if (column < 0) return false;
    const auto clicked = static_cast<uint32_t>(column);
    sort_reverse_ = clicked == sort_column_ && !sort_reverse_;
    sort_column_ = clicked;
    sort_chosen_ = true;
    return false;
}

bool ppFonts::Command(uint16_t id, uint16_t code, LPARAM value) {
    if (id == kFontList && code == UListView::DOUBLE_CLICKED && config_) {
        EditFont();
        return false;
    }
    if (code != BN_CLICKED || !config_) return prtpage::Command(id, code, value);
    for (const auto& row : kFontActions) {
        if (row.item != id) continue;
        PrinterAction(row.action);
        list_changed_ = true;
        return false;
    }
    switch (id) {
    case kAddBarCodeFont:
        AddBarCodeFont();
        return false;
    case kAddRFIDFont:
        AddRFIDFont();
        return false;
    case kEditFont:
        EditFont();
        return false;
    case kDownloadFont:
        DownloadFont();
        return false;
    case kRemoveFonts:
        RemoveSelected();
        return false;
    case kResendFonts:
        ResendFonts();
        return false;
    case kVerifyFonts:
        Verify();
        return false;
    case kViewDownloads:
        ToggleKind(DOWNLOADED);
        return false;
    case kViewBarCodes:
        ToggleKind(BAR_CODES);
        return false;
    case kViewRFID:
        ToggleKind(RFID);
        return false;
    default:
        return prtpage::Command(id, code, value);
    }
}

void ppFonts::ShowKind(View kind) {
    list_changed_ = true;
    if (view_ & kind) return;
    view_ |= kind;
    view_chosen_ = true;
}

void ppFonts::ToggleKind(View kind) {
    view_ ^= kind;
    view_chosen_ = true;
    list_changed_ = true;
}

bool ppFonts::EditDataFont(DataFont& font) {
    ui_->edit_data_font = &font;
    const int answer = font.IsRFID() ? DialogModal("*:FONTS/^RFID", ppRFIDFontEdit::WinProc)
                                     : DialogModal("*:FONTS/^BARCODE", ppBarFontEdit::WinProc);
    ui_->edit_data_font = nullptr;
    if (answer != OK_BUTTON) return false;
    list_changed_ = true; // it may have taken the place of another font
    return true;
}

void ppFonts::AddFont(std::unique_ptr<DataFont> font, View kind) {
    if (!font || !EditDataFont(*font)) return;
    ui_->data_fonts.AddTail(font.release());
    ShowKind(kind);
}

void ppFonts::AddBarCodeFont() {
    const Entry* const only = OnlySelected();
    std::unique_ptr<DataFont_BarCode> font(new (kCounted) DataFont_BarCode);
    if (!font) return;
    if (only && only->kind == BAR_CODES)
        *font = *static_cast<const DataFont_BarCode*>(only->data);
    else
        font->init(GetModel()->GetXResolution());
    AddFont(std::move(font), BAR_CODES);
}

void ppFonts::AddRFIDFont() {
    const Entry* const only = OnlySelected();
    std::unique_ptr<DataFont_RFID> font(new (kCounted) DataFont_RFID);
    if (font && only && only->kind == RFID) *font = *static_cast<const DataFont_RFID*>(only->data);
    AddFont(std::move(font), RFID);
}

void ppFonts::EditFont() {
    const Entry* const only = OnlySelected();
    if (only && only->data) EditDataFont(*only->data);
}

void ppFonts::DownloadFont() {
    DownloadedFontInfo chosen;
    cf_FDown dialog(*this);
    if (!dialog.GetFontInfo(GetWindow(), &chosen)) return;
    // The dialog has loaded the list of downloads again. No row has a font any more.
    list_changed_ = true;
    list_.ResetContent();
    std::unique_ptr<DownloadedFont> font(new (kCounted) DownloadedFont(chosen));
    if (!font || SendFont(*font, *ui_->stream) != FontSent::SENT) return;
    ui_->fonts.AddTail(font.release());
    SaveDownloadedFonts();
    ShowKind(DOWNLOADED);
}

void ppFonts::RemoveSelected() {
    if (list_.GetSelectedCount() == 0 || Message(GetString(TEXT_DELETE_FONTS_QUESTION),
                                                 GetString(TEXT_DELETE_FONTS), MB_OKCANCEL) != IDOK)
        return;
    OTypedArray<int> rows;
    GetSelected(rows);
    bool downloads_changed = false;
    for (int i = 0; i < rows.GetSize(); ++i) {
        const Entry& entry = entries_[static_cast<uint32_t>(rows[i])];
        downloads_changed = downloads_changed || entry.kind == DOWNLOADED;
        RemoveFont(entry);
    }
    list_changed_ = true;
    list_.ResetContent(); // rows of fonts that are gone
    if (downloads_changed) SaveDownloadedFonts();
}

void ppFonts::RemoveFont(const Entry& entry) {
    if (entry.kind == DOWNLOADED) {
        if (entry.downloaded->status != DownloadedFontInfo::MISSING)
            entry.downloaded->Erase(ui_->stream);
        delete entry.downloaded; // leaves its list
        return;
    }
    ui_->data_fonts.Remove(entry.data);
    delete entry.data;
}

void ppFonts::ResendFonts() {
    const ReDownloadResult result = ReDownloadAll(ui_->fonts, *ui_->stream, GetModel());
    if (result.saved == SaveResult::FAILED) ReportNotStored(GetString(TEXT_FONTS));
    display_changed_ = true;
}

void ppFonts::Verify() {
    prtdttf_list before;
    before = ui_->fonts;
    list_changed_ = true;
    bool verified = false;
    {
        const WaitCursor wait;
        verified = ui_->VerifyFonts(this);
    }
    if (verified) {
        SaveDownloadedFonts();
        return;
    }
    // It is not known that they are missing. The rows get the fonts of the copy.
    list_.ResetContent();
    ui_->fonts = before;
}

void ppFonts::SaveDownloadedFonts() {
    if (ui_->fonts.Save(GetModel()) == SaveResult::FAILED) ReportNotStored(GetString(TEXT_FONTS));
}
