#include "fonts/prtdttf_list.h"

#include <algorithm>
#include <memory>

#include "core/memory.h"
#include "keys/prtreg.h"
#include "model/prtmodel.h"
#include "registry/oregistry_transaction.h"

namespace {

constexpr char kTotal[] = "Fonts:Downloaded Font Total";

// No printer has room for more. A damaged total is limited to this.
constexpr uint32_t kMostFonts = 999;

OString PrefixOf(int index) {
    return OString("Fonts:") << DownloadedFont::KeyName(index);
}

} // namespace

prtdttf_list& prtdttf_list::operator=(const prtdttf_list& other) {
    StoredList::operator=(other);
    if (!CopyNodes(other)) KeepStored();
    return *this;
}

void prtdttf_list::Load(const prtmodel* model) {
    Clear();
    prtreg registry(model->GetRegistry());
    const ORegistryTransaction one_moment(registry, ORegistryTransaction::READING);
    const auto total = static_cast<int>(std::min(registry.GetDWORD(kTotal, 0), kMostFonts));
    for (int i = 1; i <= total; ++i) {
        std::unique_ptr<DownloadedFont> font(new (kCounted) DownloadedFont);
        if (!font || !font->Load(registry, PrefixOf(i))) continue;
        if (font->status == DownloadedFont::PRESENT) font->status = DownloadedFont::SENT;
        AddTail(font.release());
    }
    NoteLoaded(GetCRC32(0), registry);
}

SaveResult prtdttf_list::Save(const prtmodel* model) const {
    prtreg registry(model->GetRegistry());
    return SaveChanges(registry, GetCRC32(0), [&] {
        int total = 0;
        for (const DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font))
            font->Save(registry, PrefixOf(++total));
        registry.SetDWORD(kTotal, static_cast<uint32_t>(total));
    });
}

uint32_t prtdttf_list::GetCRC32(uint32_t seed) const {
    for (const DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font))
        seed = font->GetCRC32(seed);
    return seed;
}

void prtdttf_list::SetAllNotPresent() {
    for (DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font))
        font->status = DownloadedFont::MISSING;
}

bool prtdttf_list::UsesName(const OString& name) const {
    for (const DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font)) {
        OString used = font->GetFileName();
        const int dot = used.Find('.');
        if (dot >= 0) used = OString(used.Left(dot).nstring());
        used.TrimLeft(' ');
        used.TrimRight(' ');
        if (used == name) return true;
    }
    return false;
}

bool prtdttf_list::UsesIdentifier(char identifier) const {
    for (const DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font))
        if (font->info.identifier[0] == identifier) return true;
    return false;
}

DownloadedFont* prtdttf_list::FindIn(char location) const {
    for (DownloadedFont* font = GetNext(nullptr); font; font = GetNext(font))
        if (font->info.location[0] == location) return font;
    return nullptr;
}
