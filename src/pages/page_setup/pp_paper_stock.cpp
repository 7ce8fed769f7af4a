#include "pages/page_setup/pp_paper_stock.h"

#include <algorithm>

#include "locale/text_numbers.h"
#include "pages/page_setup/field_values.h"
#include "spooler/platform_flags.h"
#include "ui/prtui.h"

namespace {

enum StockControl : int {
    STOCK_PICTURE = 382,
    STOCK_LENGTH = 386,
    STOCK_LINER_LEFT = 388,
    STOCK_NAME = 389,
    STOCK_LINER_RIGHT = 392,
    STOCK_WIDTH = 393
};

constexpr int kStockBitmap = 225;
constexpr int32_t kLongestStockName = 31;
constexpr int32_t kLongestLengthText = 16;

// No model makes the user's smallest label larger than a quarter of an inch.
constexpr int32_t kLeastSize = 6350;

} // namespace

void ppPaperStock::Init() {
    prtpage::Init();
    const prtmodel& model = *GetModel();
    least_width_ = std::min(model.GetPaperWidthMin().Microns(), kLeastSize);
    least_length_ = std::min(model.GetPaperLengthMin().Microns(), kLeastSize);
    most_width_ = model.GetPaperWidthMax().Microns();
    most_length_ = model.GetPaperLengthMax().Microns();
    stock_ = ui_->edit_stock;
}

bool ppPaperStock::IsEditable() const {
    return (is_default_dm() && !IsRestricted()) || (stock_->is_user() && (!winNT || win2000));
}

void ppPaperStock::Refresh(bool all) {
    const bool editable = IsEditable();
    if (all) {
        BMM_SetBitmap(STOCK_PICTURE, kStockBitmap, true);
        EM_LimitText(STOCK_NAME, kLongestStockName);
        EM_LimitText(STOCK_LINER_LEFT, kLongestLengthText);
        EM_LimitText(STOCK_LINER_RIGHT, kLongestLengthText);
        EM_SetText(STOCK_NAME, stock_->GetName());
        WM_Enable(STOCK_NAME, editable && stock_->can_delete());
    }
    if (all || size_changed_) {
        WM_Enable(STOCK_WIDTH, editable && stock_->can_resize());
        WM_Enable(STOCK_LENGTH, editable && stock_->can_resize());
        EM_SetMicrons(STOCK_WIDTH, stock_->width);
        EM_SetMicrons(STOCK_LENGTH, stock_->length);
        size_changed_ = false;
    }
    if (all || liner_changed_) {
        WM_Enable(STOCK_LINER_LEFT, editable && stock_->can_resize());
        WM_Enable(STOCK_LINER_RIGHT, editable && stock_->can_resize());
        EM_SetMicrons(STOCK_LINER_LEFT, stock_->liner_left);
        EM_SetMicrons(STOCK_LINER_RIGHT, stock_->liner_right);
        liner_changed_ = false;
    }
}

bool ppPaperStock::Command(uint16_t id, uint16_t code, LPARAM) {
    if (code == EN_UPDATE) {
        Typed(id);
        return true;
    }
    if (code != EN_KILLFOCUS) return true;
    switch (id) {
    case STOCK_WIDTH:
    case STOCK_LENGTH:
        size_changed_ = true;
        return false;
    case STOCK_LINER_LEFT:
    case STOCK_LINER_RIGHT:
        liner_changed_ = true;
        return false;
    default:
        return true;
    }
}

void ppPaperStock::Typed(uint16_t id) {
    const int32_t widest_liner = (most_width_ - least_width_) / 2;
    switch (id) {
    case STOCK_LENGTH:
        stock_->length = fitrange(EM_GetMicrons(id), least_length_, most_length_);
        break;
    case STOCK_WIDTH:
        stock_->width = fitrange(EM_GetMicrons(id), least_width_,
                                 most_width_ - stock_->liner_right - stock_->liner_left);
        break;
    case STOCK_LINER_LEFT:
        CopyLiner(id, STOCK_LINER_RIGHT);
        stock_->liner_left = fitrange(EM_GetMicrons(id), 0, widest_liner);
        break;
    case STOCK_LINER_RIGHT:
        CopyLiner(id, STOCK_LINER_LEFT);
        stock_->liner_right = fitrange(EM_GetMicrons(id), 0, widest_liner);
        break;
    case STOCK_NAME: {
        OString name;
        WM_GetText(id, name);
        stock_->SetName(Trimmed(name));
        break;
    }
    default:
        break;
    }
}

void ppPaperStock::CopyLiner(int from, int to) {
    if (copying_ > 0 || !GetModel()->IsCenterTracked()) return;
    OString text;
    WM_GetText(from, text);
    ++copying_;
    EM_SetText(to, text);
    --copying_;
}

bool ppPaperStock::IsReserved(const OString& name) const {
    return name.CompareNoCase("User Defined") == 0 || name.CompareNoCase("USER") == 0;
}

bool ppPaperStock::IsTaken(const OString& name) const {
    const StockList& stocks = ui_->stocks;
    for (const Stock* other = stocks.GetNext(nullptr); other; other = stocks.GetNext(other))
        if (other != ui_->edit_stock_original && other->GetName() == name) return true;
    return false;
}

bool ppPaperStock::VerifyOkay() {
    if (!stock_->can_delete()) return true;
    const OString name = stock_->GetName();
    const bool reserved = IsReserved(name);
    OString refusal;
    if (name.IsEmpty())
        refusal = GetString(TEXT_STOCK_WITHOUT_NAME);
    else if (reserved)
        refusal.Format(GetString(TEXT_STOCK_NAME_RESERVED).wstring(), name.wstring());
    else if (IsTaken(name))
        refusal.Format(GetString(TEXT_STOCK_NAME_TAKEN).wstring(), name.wstring());
    else
        return true;
    Message(refusal, GetString(TEXT_STOCK_NAME), MB_OK);
    // A name that another stock has is the user's to change; the others give way to the usual one.
    if (reserved || name.IsEmpty()) EM_SetText(STOCK_NAME, GetString(TEXT_NEW_STOCK));
    WM_SetFocus(STOCK_NAME);
    return false;
}
