#include "printer/cache_contents.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "core/ascii.h"
#include "core/crc.h"
#include "locale/text_numbers.h"
#include "printer/prtstream.h"

namespace {

template <class T>
int Compare(T a, T b) {
    return a < b ? -1 : a > b;
}

int CompareNames(const KVCacheItemInfo& a, const KVCacheItemInfo& b) {
    return xstrnicmp(a.name, b.name, sizeof a.name);
}

int CompareObjects(const KVCacheItemInfo& a, const KVCacheItemInfo& b) {
    const int kinds = Compare(a.kind, b.kind);
    return kinds ? kinds : Compare(a.number, b.number);
}

void DoInJob(prtstream& stream, const char* name, const KVCacheItemAction& action) {
    stream.StartJob(name);
    stream.CacheItemAction(action);
    stream.EndJob();
}

} // namespace

bool CacheContents::Refresh(prtstream& stream) {
    OBuffer<unsigned char> description;
    return stream.GetCacheInformation(description) &&
           Take(description.GetData(), description.GetSize());
}

bool CacheContents::Take(const unsigned char* description, uint32_t size) {
    KVCacheInformation header;
    if (!description || size < sizeof header) return false;
    std::memcpy(&header, description, sizeof header);
    size = std::min<uint32_t>(size, header.size);
    if (size < sizeof header) return false;
    const uint32_t crc = CRC32(description, size, 0);
    if (known_ && crc == crc_) return false;
    const auto whole = static_cast<uint32_t>((size - sizeof header) / sizeof(KVCacheItemInfo));
    const uint32_t count = std::min<uint32_t>(header.count, whole);
    OBuffer<KVCacheItemInfo> items(count);
    if (items.GetSize() < count) return false;
    if (count)
        std::memcpy(items.GetData(), description + sizeof header, count * sizeof(KVCacheItemInfo));
    items_ = std::move(items);
    known_ = true;
    crc_ = crc;
    Show();
    return true;
}

void CacheContents::SortBy(Column column) {
    reverse_ = column == column_ && !reverse_;
    column_ = column;
    Show();
}

void CacheContents::Toggle(View kind) {
    view_ ^= kind;
    if (view_ == 0) view_ = (VIEW_GRAPHICS | VIEW_FORMATS) ^ kind;
    Show();
}

int CacheContents::Find(uint32_t id) const {
    for (int i = 0; i < GetSize(); ++i)
        if (GetItem(i).id == id) return i;
    return -1;
}

int CacheContents::CompareItems(const KVCacheItemInfo& a, const KVCacheItemInfo& b) const {
    int result = 0;
    switch (column_) {
    case SIZE:
        result = Compare(b.size, a.size);
        break;
    case FIRST_COUNTER:
        result = Compare(a.counters[0], b.counters[0]);
        break;
    case SECOND_COUNTER:
        result = Compare(b.counters[1], a.counters[1]);
        break;
    case NAME:
        result = CompareNames(a, b);
        break;
    default:
        break;
    }
    if (result == 0) result = CompareObjects(a, b);
    return reverse_ ? -result : result;
}

void CacheContents::Show() {
    shown_.SetSize(0);
    for (uint32_t i = 0; i < items_.GetSize(); ++i) {
        const KVCacheItemInfo& item = items_.GetData()[i];
        if (!(view_ & (item.kind == KVCacheItemInfo::GRAPHIC ? VIEW_GRAPHICS : VIEW_FORMATS)))
            continue;
        // After all that do not sort after it. A description is too short for many objects.
        int place = shown_.GetSize();
        while (place > 0 && CompareItems(GetItem(place - 1), item) > 0) --place;
        if (!shown_.InsertAt(place, static_cast<int32_t>(i), 1)) {
            known_ = false; // the next description shows what is missing now
            return;
        }
    }
}

int CacheItemKindText(const KVCacheItemInfo& item) {
    return item.kind == KVCacheItemInfo::GRAPHIC ? TEXT_CACHED_GRAPHIC : TEXT_CACHED_FORMAT;
}

OString CacheItemTitle(const KVCacheItemInfo& item, const OString& kind) {
    OString title;
    title << kind << " " << int64_t{item.number};
    if (item.locked) title << " *";
    return title;
}

OString CacheItemName(const KVCacheItemInfo& item) {
    char name[sizeof item.name + 1] = {}; // the field may be full
    std::memcpy(name, item.name, sizeof item.name);
    return OString(name);
}

void PrintCacheItem(prtstream& stream, const KVCacheItemInfo& item) {
    DoInJob(stream, "Print Object", {item.id, KVCacheItemAction::PRINT});
}

void RemoveCacheItem(prtstream& stream, const KVCacheItemInfo& item) {
    DoInJob(stream, "Delete Object", {item.id, KVCacheItemAction::REMOVE});
}

void ToggleCacheItemLock(prtstream& stream, const KVCacheItemInfo& item) {
    stream.CacheItemAction(
        {item.id, item.locked ? KVCacheItemAction::UNLOCK : KVCacheItemAction::LOCK});
}
