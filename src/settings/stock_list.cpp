#include "settings/stock_list.h"

#include <algorithm>
#include <cstddef>
#include <memory>

#include "core/fixed_text.h"
#include "core/memory.h"
#include "model/prtmodel.h"
#include "registry/oregistry_transaction.h"
#include "settings/numbered_entries.h"
#include "settings/public_part.h"
#include "spooler/platform_flags.h"

namespace {

constexpr int kMostForms = 0xFFFF; // there are no more numbers
constexpr int kFormNameUnits = 64; // units of a name's field, as the system asks for it
constexpr int16_t kUserId = DMPAPER_USER;

constexpr char kUserForm[] = "Settings:User Form:: ";
constexpr char kForms[] = "Stock:";

OString FamilyForms(const prtmodel& model) {
    return OString(kForms) << model.GetOEM() << "/";
}

OString TotalName(const OString& key) {
    return OString(key) << "Total";
}

// The number of stocks that a key claims to have, within reason.
int StoredTotal(prtreg& registry, const OString& key) {
    return static_cast<int>(std::min<uint32_t>(registry.GetDWORD(TotalName(key), 0), kMostForms));
}

// By UTF-16 units, which lose no characters as the 8-bit form may.
int CompareNames(const OString& a, const OString& b) {
    // Strings compare by this form once both have it.
    a.wstring();
    b.wstring();
    return a.Collate(b);
}

// By names, the user's stock before others of its name.
bool SortsBefore(const Stock* a, const Stock* b) {
    const int order = CompareNames(a->GetName(), b->GetName());
    return order != 0 ? order < 0 : a->is_user() && !b->is_user();
}

// Whether the first of two stocks of one name is deleted, or the second.
bool FirstGoes(const Stock& first, const Stock& second) {
    return first.can_delete() || second.is_user() || second.is_server();
}

} // namespace

StockList& StockList::operator=(const StockList& other) {
    NameList::operator=(other);
    StoredList::operator=(other);
    model_ = other.model_;
    if (!CopyNodes(other)) KeepStored();
    return *this;
}

void StockList::init(const prtmodel* model) {
    model_ = model;
    Stock* stock = new (kCounted) Stock;
    if (!stock) return;
    stock->width = model->GetDefaultLabelWidth().Microns();
    stock->length = model->GetDefaultLabelLength().Microns();
    stock->liner_left = stock->liner_right = model->GetLinerWidth().Microns();
    stock->flags = Stock::USER;
    stock->SetName(winNT ? "USER" : "User Defined");
    AddHead(stock);
}

// ---- Storage ------------------------------------------------------------------------------------

void StockList::Load(const prtmodel* model) {
    prtreg registry(model->GetRegistry());
    const ORegistryTransaction one_moment(registry, ORegistryTransaction::READING);
    LoadForm(registry, kUserForm);
    LoadForms(registry, kForms);
    LoadForms(registry, FamilyForms(*model));
    Validate();
    NoteLoaded(GetCRC32(0), registry);
}

int StockList::LoadForms(prtreg& registry, const OString& key) {
    const int total = StoredTotal(registry, key);
    ForEachEntry(registry, key, 1, total, Stock::KeyName,
                 [&](int i) { LoadForm(registry, OString(key) << Stock::KeyName(i)); });
    return total;
}

bool StockList::LoadForm(prtreg& registry, const OString& prefix) {
    std::unique_ptr<Stock> stock(new (kCounted) Stock);
    return stock && stock->Load(registry, prefix) && AddTail(stock.release());
}

SaveResult StockList::Save(const prtmodel* model) const {
    prtreg registry(model->GetRegistry());
    return SaveChanges(registry, GetCRC32(0), [&] {
        const Stock* stock = GetNext(nullptr);
        while (stock && !stock->is_user()) stock = GetNext(stock);
        if (stock) stock->Save(registry, kUserForm);
        SaveForms(registry, kForms, false);
        SaveForms(registry, FamilyForms(*model), true);
    });
}

void StockList::SaveForms(prtreg& registry, const OString& key, bool predefined) const {
    const int stored = StoredTotal(registry, key);
    int total = 0;
    for (const Stock* stock = GetNext(nullptr); stock; stock = GetNext(stock))
        if (!stock->is_user() && stock->is_predefined() == predefined)
            stock->Save(registry, OString(key) << Stock::KeyName(++total));
    registry.SetDWORD(TotalName(key), static_cast<uint32_t>(total));
    ForEachEntry(registry, key, total + 1, stored, Stock::KeyName,
                 [&](int i) { Stock::Delete(registry, OString(key) << Stock::KeyName(i)); });
}

// ---- Order --------------------------------------------------------------------------------------

bool StockList::Validate() {
    RemoveDuplicates();
    NumberStocks();
    return true;
}

void StockList::RemoveDuplicates() {
    size_t count = 0;
    for (Stock* stock = GetNext(nullptr); stock; stock = GetNext(stock)) ++count;
    const std::unique_ptr<Stock*[]> stocks(new (kCounted) Stock*[count]);
    if (!stocks) return;
    size_t end = 0;
    for (Stock* stock = GetNext(nullptr); stock; stock = GetNext(stock)) stocks[end++] = stock;

    Stock** const first = stocks.get();
    std::stable_sort(first, first + end, SortsBefore);
    size_t kept = 0;
    for (size_t i = 0; i < end; ++i) {
        if (kept == 0 || CompareNames(first[kept - 1]->GetName(), first[i]->GetName()) != 0) {
            first[kept++] = first[i];
        } else if (FirstGoes(*first[kept - 1], *first[i])) {
            delete first[kept - 1];
            first[kept - 1] = first[i];
        } else {
            delete first[i];
        }
    }
    std::stable_partition(first, first + kept, [](const Stock* s) { return s->is_user(); });
    for (size_t i = 0; i < kept; ++i) AddTail(first[i]);
}

void StockList::NumberStocks() {
    const int32_t longest = model_->GetPaperLengthMax().Microns();
    const int32_t widest = model_->GetPaperWidthMax().Microns();
    int next_id = kUserId + 1;
    for (Stock* stock = GetNext(nullptr); stock; stock = GetNext(stock)) {
        stock->CalculatePrintableArea(model_);
        if (stock->is_user())
            stock->paper_id = kUserId;
        else if (stock->paper_length > longest || stock->paper_width > widest || next_id > 0xFFFF)
            stock->paper_id = 0;
        else
            stock->paper_id = static_cast<uint16_t>(next_id++);
    }
}

// ---- Use ----------------------------------------------------------------------------------------

Stock* StockList::GetNextValid(const Stock* after) const {
    Stock* stock = GetNext(after);
    while (stock && stock->paper_id == 0) stock = GetNext(stock);
    return stock;
}

Stock* StockList::Find(const OString& name) const {
    for (Stock* stock = GetNextValid(nullptr); stock; stock = GetNextValid(stock))
        if (CompareNames(stock->GetName(), name) == 0) return stock;
    return nullptr;
}

Stock* StockList::Find(int16_t paper_id) const {
    for (Stock* stock = GetNextValid(nullptr); stock; stock = GetNextValid(stock))
        if (stock->paper_id == static_cast<uint16_t>(paper_id)) return stock;
    return nullptr;
}

Stock* StockList::Find(const DEVMODEW* dev_mode) {
    if (!dev_mode) return nullptr;
    DEVMODEW mode = PublicPart(dev_mode).fields;
    const bool by_size = (mode.dmFields & DM_PAPERSIZE) != 0;
    const int16_t id = by_size ? std::max<int16_t>(mode.dmPaperSize, kUserId) : kUserId;
    Stock* stock = nullptr;
    if (!by_size && (mode.dmFields & DM_FORMNAME)) {
        mode.dmFormName[CCHFORMNAME - 1] = 0;
        stock = Find(OString(mode.dmFormName));
    }
    if (!stock) stock = Find(id);
    if (!stock) stock = Find(kUserId);
    if (!stock) return nullptr;

    if (id == kUserId) {
        const auto without = [](int64_t tenths, int64_t a, int64_t b) {
            return static_cast<int32_t>(
                std::clamp<int64_t>(tenths * 100 - a - b, INT32_MIN, INT32_MAX));
        };
        if (mode.dmPaperWidth)
            stock->width = without(mode.dmPaperWidth, stock->liner_left, stock->liner_right);
        if (mode.dmPaperLength)
            stock->length = without(mode.dmPaperLength, stock->gap_top, stock->gap_bottom);
    }
    stock->CalculateOffsets(model_, dev_mode);
    return stock;
}

int StockList::enum_paper_id(uint16_t* output) const {
    int count = 0;
    for (const Stock* stock = GetNextValid(nullptr); stock; stock = GetNextValid(stock), ++count)
        if (output) output[count] = stock->paper_id;
    return count;
}

int StockList::enum_paper_size(POINT* output) const {
    int count = 0;
    for (const Stock* stock = GetNextValid(nullptr); stock; stock = GetNextValid(stock), ++count) {
        const SIZE size = stock->GetFormSize();
        if (output) output[count] = {size.cx, size.cy};
    }
    return count;
}

int StockList::enum_paper_name(WCHAR* output) const {
    int count = 0;
    for (const Stock* stock = GetNextValid(nullptr); stock; stock = GetNextValid(stock), ++count)
        if (output)
            PutFixedText(output + ptrdiff_t{count} * kFormNameUnits, stock->GetName(),
                         kFormNameUnits);
    return count;
}
