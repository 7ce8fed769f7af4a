// ppPageSetup: what the page shows.
#include <windows.h>

#include <commctrl.h>

#include "locale/text_numbers.h"
#include "pages/page_setup/pp_page_setup.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"
#include "ui/prtui.h"

namespace {

// The previews: one of each orientation, then the same mirrored, negative and both.
constexpr int kFirstPreview = 208;
constexpr int kMirroredPreviews = 4;
constexpr int kNegativePreviews = 8;

// Whether users who may not change the printer may change their own stock here. The spooler of
// Windows NT 4.0 would not let them keep it.
bool CanChangeOwnStock() {
    return !winNT || win2000;
}

} // namespace

OString ppPageSetup::GetPaperName(const Stock* stock) const {
    OString name = stock->GetName();
    name << " (" << microns_to_string(stock->width) << " x " << microns_to_string(stock->length)
         << ")";
    if (stock->is_server()) {
        OString server = PrinterInfo(ui_->hprinter).GetServerName();
        server.TrimLeft('\\');
        name << " @ " << server;
    }
    return name;
}

void ppPageSetup::Refresh(bool all) {
    config_->Validate(GetModel());
    RefreshFirst();
    if (all) RefreshNotices();
    if (all || stocks_changed_) RefreshStocks();
    if (all || stock_chosen_) RefreshStockButtons(all);
    if (all || draw_preview_) RefreshPreview();
    RefreshPresets(all);
    if (ui_->restricted) RefreshRestrictions();
}

void ppPageSetup::RefreshFirst() {
    if (!first_display_ || !winNT) return;
    first_display_ = false;
    if (!ui_->start_on_last) return;
    const HWND sheet = GetParent(GetWindow());
    const auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
    const LRESULT count = tabs ? SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0) : 0;
    if (count > 0) PostMessageW(sheet, PSM_SETCURSEL, static_cast<WPARAM>(count - 1), 0);
}

void ppPageSetup::RefreshNotices() {
    const OString notice = GetString(TEXT_PAGE_SETUP_NOTICE);
    EM_SetText(SECOND_NOTICE, notice);
    WM_Show(SECOND_NOTICE, !notice.IsEmpty());
    ReplaceSpecialStrings(GetItem(NOTICE));
    ReplaceSpecialStrings(GetItem(SECOND_NOTICE));
}

void ppPageSetup::RefreshStocks() {
    StockList& stocks = ui_->stocks;
    stock_ = stocks.Find(ui_->devmode.GetDevMode());
    if (!stock_) {
        stock_ = stocks.Find(int16_t{DMPAPER_USER});
        devmode_.SetStock(stock_);
    }
    stocks_.ResetContent();
    for (Stock* stock = stocks.GetNextValid(nullptr); stock; stock = stocks.GetNextValid(stock))
        stocks_.AddString(GetPaperName(stock), reinterpret_cast<LPARAM>(stock));
    stocks_.SetCurSelData(reinterpret_cast<LPARAM>(stock_));
    stocks_changed_ = false;
    stock_chosen_ = true;
}

void ppPageSetup::RefreshStockButtons(bool all) {
    stock_chosen_ = false;
    if (is_default_dm()) WM_Enable(DELETE_STOCK, stock_ && stock_->can_delete());
    if (!all) return;
    if (!is_default_dm()) {
        WM_Enable(NEW_STOCK, false);
        WM_Enable(DELETE_STOCK, false);
    }
    mirror_.Enable(GetModel()->CanMirror());
    negative_.Enable(GetModel()->CanNegative());
    mirror_.Check(devmode_.GetMirror());
    negative_.Check(devmode_.GetNegative());
    orientation_.SetCurSel(devmode_.GetOrientation());
}

void ppPageSetup::RefreshPreview() {
    BMM_SetBitmap(PREVIEW,
                  kFirstPreview + devmode_.GetOrientation() +
                      (devmode_.GetMirror() ? kMirroredPreviews : 0) +
                      (devmode_.GetNegative() ? kNegativePreviews : 0),
                  true);
    draw_preview_ = false;
}

void ppPageSetup::RefreshPresets(bool all) {
    PresetList& presets = ui_->presets;
    if (all || presets_changed_) {
        presets_.ResetContent();
        for (Preset* preset = presets.GetNext(nullptr); preset; preset = presets.GetNext(preset))
            presets_.AddString(preset->GetName(), reinterpret_cast<LPARAM>(preset));
        presets_changed_ = false;
        find_preset_ = true;
    }
    if (auto* chosen = reinterpret_cast<Preset*>(presets_.GetCurSelData())) {
        // The preset of the current settings, or one that no longer has the current settings.
        if (chosen->GetBuiltIn() & Preset::CURRENT_SETTINGS ||
            !(chosen->GetDevMode() == ui_->devmode))
            find_preset_ = true;
    }
    if (all || find_preset_) {
        preset_ = presets.Find(ui_->devmode);
        presets_.SetCurSelData(reinterpret_cast<LPARAM>(preset_));
        find_preset_ = false;
    }
}

void ppPageSetup::RefreshRestrictions() {
    WM_Enable(NEW_STOCK, false);
    WM_Enable(DELETE_STOCK, false);
    WM_Enable(EDIT_PRESETS, false);
    const bool may_edit = stock_ && stock_->is_user() && CanChangeOwnStock();
    EM_SetText(EDIT_STOCK, GetString(may_edit ? TEXT_EDIT_STOCK : TEXT_VIEW_STOCK));
}
