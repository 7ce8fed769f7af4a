#include "pages/page_setup/pp_page_setup.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "locale/text_numbers.h"
#include "pages/advanced/advanced_sheet.h"
#include "pages/page_setup/field_values.h"
#include "pages/page_setup/pp_paper_stock.h"
#include "pages/page_setup/pp_presets.h"
#include "ui/prtui.h"

void ppPageSetup::Init() {
    prtpage::Init();
    stocks_.Bind(this, STOCKS);
    presets_.Bind(this, PRESETS);
    orientation_.Bind(this, 0);
    for (int button = FIRST_ORIENTATION; button <= LAST_ORIENTATION; ++button)
        orientation_.AddButton(button);
    mirror_.Bind(this, MIRROR);
    negative_.Bind(this, NEGATIVE);
    first_display_ = true;
}

bool ppPageSetup::Apply() {
    OString lost;
    if (ui_->stocks.Save(GetModel()) == SaveResult::FAILED) lost = GetString(TEXT_LABEL_SIZES);
    if (ui_->presets.Save(GetModel()) == SaveResult::FAILED) {
        if (!lost.IsEmpty()) lost << "\n";
        lost << GetString(TEXT_PRESETS);
    }
    if (!lost.IsEmpty()) {
        ReportNotStored(lost);
        return false;
    }
    return prtpage::Apply();
}

uint32_t ppPageSetup::GetCurrentCRC32() const {
    return ui_->presets.GetCRC32(ui_->stocks.GetCRC32(prtpage::GetCurrentCRC32()));
}

bool ppPageSetup::SetActive() {
    find_preset_ = true;
    WM_Refresh(false);
    return true;
}

bool ppPageSetup::PaletteChange(UINT message, WPARAM first, LPARAM second) {
    Forward(PREVIEW, message, first, second);
    return false;
}

// ---- The user's acts ----------------------------------------------------------------------------

bool ppPageSetup::Command(uint16_t id, uint16_t code, LPARAM) {
    if (code == CBN_SELCHANGE && id == STOCKS) return !ChooseStock();
    if (code == CBN_SELCHANGE && id == PRESETS) return !ChoosePreset();
    return code != BN_CLICKED || !Click(id);
}

bool ppPageSetup::Click(uint16_t id) {
    switch (id) {
    case NEGATIVE:
        devmode_.SetNegative(negative_.IsChecked());
        draw_preview_ = true;
        return true;
    case MIRROR:
        devmode_.SetMirror(mirror_.IsChecked());
        draw_preview_ = true;
        return true;
    case DELETE_STOCK:
        DeleteStock();
        return true;
    case EDIT_STOCK:
        EditStock();
        return true;
    case NEW_STOCK:
        NewStock();
        return true;
    case EDIT_PRESETS:
        EditPresets();
        return true;
    case ADVANCED:
        ShowAdvancedSheet(*this);
        return true;
    default:
        if (id < FIRST_ORIENTATION || id > LAST_ORIENTATION) return false;
        devmode_.SetOrientation(orientation_.GetCurSel());
        draw_preview_ = true;
        return true;
    }
}

void ppPageSetup::UseStock() {
    devmode_.SetStock(stock_);
    stock_chosen_ = true;
}

bool ppPageSetup::ChooseStock() {
    stock_ = reinterpret_cast<Stock*>(stocks_.GetCurSelData());
    UseStock();
    return true;
}

bool ppPageSetup::ChoosePreset() {
    // The settings of the moment come back when the preset of the current settings is chosen again.
    if (preset_ && preset_->GetBuiltIn() & Preset::CURRENT_SETTINGS)
        preset_->SetDevMode(ui_->devmode.GetDevMode());
    preset_ = reinterpret_cast<Preset*>(presets_.GetCurSelData());
    if (!preset_) return true;
    devmode_ = preset_->GetDevMode();
    devmode_.SetPresetName(preset_->GetName().wstring());
    WM_QuerySiblings(REFRESH, TRUE);
    return true;
}

void ppPageSetup::EditPresets() {
    DialogModal("*:PAGE_SETUP/^PRESETS", ppPresets::WinProc);
    // The list may be another one now.
    preset_ = nullptr;
    WM_QuerySiblings(REFRESH, TRUE);
}

// ---- Stocks -------------------------------------------------------------------------------------

void ppPageSetup::DeleteStock() {
    if (!stock_ || Message(GetString(TEXT_DELETE_STOCK), GetPaperName(stock_), MB_YESNO) != IDYES)
        return;
    const int index = stocks_.GetCurSel();
    delete std::exchange(stock_, nullptr); // leaves its list
    stocks_.DeleteString(index);
    stocks_.SetCurSel(std::min(index, stocks_.GetCount() - 1));
    // The numbers of the stocks after it have changed, and the settings have one of them.
    ui_->stocks.Validate();
    ChooseStock();
}

bool ppPageSetup::RunStockDialog(Stock& copy, const Stock* original) {
    ui_->edit_stock = &copy;
    ui_->edit_stock_original = original;
    const int result = DialogModal("*:PAGE_SETUP/^EDIT_STOCK", ppPaperStock::WinProc);
    ui_->edit_stock = nullptr;
    ui_->edit_stock_original = nullptr;
    if (result != OK_BUTTON) return false;
    const int32_t widest = GetModel()->GetPaperWidthMax().Microns();
    copy.width = fitrange(copy.width, 0, widest - copy.liner_right - copy.liner_left);
    return true;
}

void ppPageSetup::EditStock() {
    if (!stock_) return;
    Stock copy(*stock_);
    if (!RunStockDialog(copy, stock_)) return;
    *stock_ = copy;
    ui_->stocks.Validate();
    UseStock();
    stocks_changed_ = true;
}

void ppPageSetup::NewStock() {
    if (!stock_) return;
    std::unique_ptr<Stock> copy(new (kCounted) Stock(*stock_));
    if (!copy) return;
    copy->SetName(GetString(TEXT_NEW_STOCK));
    copy->flags = StockRecord::GLOBAL;
    if (!RunStockDialog(*copy, nullptr)) return;
    stock_ = copy.release();
    ui_->stocks.AddTail(stock_);
    ui_->stocks.Validate();
    UseStock();
    stocks_changed_ = true;
}
