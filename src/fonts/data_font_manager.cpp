#include "fonts/data_font_manager.h"

#include <cstring>
#include <memory>

#include "core/crc.h"
#include "core/memory.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "model/prtmodel.h"
#include "registry/oregistry_transaction.h"

namespace {

constexpr char kFonts[] = "DATA:Data Fonts";

// The blob's value of the font with a key of this name.
OString ValueOf(const OString& key) {
    return OString(kFonts) << "/" << ORegistry::EncodeName(key) << "/Data";
}

// The key of a font. A registry key cannot have a backslash in its name, but the font's name is in
// its blob.
OString KeyOf(const DataFont& font) {
    OString key = font.GetFontName();
    key.Replace("%", "%25"); // so that "a%5Cb" and "a\\b" have different keys
    key.Replace("\\", "%5C");
    return key;
}

// Calls `work` with the blob of a font and its size, or with null and 0 for neither kind.
template <class Work>
auto WithBlob(const DataFont& font, Work work) {
    if (font.IsBarCode()) {
        DataFontStorage_BarCode blob;
        static_cast<const DataFont_BarCode&>(font).Save(blob);
        return work(static_cast<const void*>(&blob), static_cast<uint32_t>(sizeof blob));
    }
    if (font.IsRFID()) {
        DataFontStorage_RFID blob;
        static_cast<const DataFont_RFID&>(font).Save(blob);
        return work(static_cast<const void*>(&blob), static_cast<uint32_t>(sizeof blob));
    }
    return work(static_cast<const void*>(nullptr), uint32_t{0});
}

template <class Font>
DataFont* LoadedFont(const void* blob, size_t size) {
    std::unique_ptr<Font> font(new (kCounted) Font);
    return font && font->Load(blob, size) ? font.release() : nullptr;
}

// A font made from a blob of any kind, or null if it is invalid.
DataFont* FontOf(const void* blob, size_t size) {
    if (DataFont* font = LoadedFont<DataFont_BarCode>(blob, size)) return font;
    return LoadedFont<DataFont_RFID>(blob, size);
}

DataFont* CopyOf(const DataFont& font) {
    if (font.IsBarCode())
        return new (kCounted) DataFont_BarCode(static_cast<const DataFont_BarCode&>(font));
    if (font.IsRFID()) return new (kCounted) DataFont_RFID(static_cast<const DataFont_RFID&>(font));
    return new (kCounted) DataFont(font);
}

} // namespace

DataFontManager& DataFontManager::operator=(const DataFontManager& other) {
    if (this == &other) return *this;
    StoredList::operator=(other);
    unmodified_ = other.unmodified_;
    const AllocationWatch memory;
    Clear();
    for (int i = 0; i < other.GetSize(); ++i) {
        DataFont* font = CopyOf(*other[i]);
        if (font && fonts_.Add(font) < 0) delete font;
    }
    if (memory.Failed()) KeepStored();
    return *this;
}

void DataFontManager::Clear() {
    for (int i = 0; i < fonts_.GetSize(); ++i) delete fonts_[i];
    fonts_.SetSize(0);
}

void DataFontManager::AddTail(DataFont* font) {
    if (!font) return;
    for (int i = 0; i < fonts_.GetSize(); ++i) {
        if (!fonts_[i]->HasNameOf(*font)) continue;
        if (fonts_[i] != font) delete fonts_[i];
        fonts_[i] = font;
        return;
    }
    if (fonts_.Add(font) < 0) delete font;
}

void DataFontManager::Remove(DataFont* font) {
    for (int i = 0; i < fonts_.GetSize(); ++i) {
        if (fonts_[i] != font) continue;
        fonts_.RemoveAt(i, 1);
        return;
    }
}

bool DataFontManager::Load(const prtmodel* model) {
    const OSingleLock guard(&lock_, true);
    Clear();
    prtreg registry(model->GetRegistry());
    const ORegistryTransaction one_moment(registry, ORegistryTransaction::READING);
    OStringArray keys;
    registry.EnumKeys(kFonts, keys);
    for (int i = 0; i < keys.GetSize(); ++i) {
        char blob[sizeof(DataFontStorage_RFID)];
        const int32_t size = registry.GetBinary(ValueOf(keys[i]), blob, sizeof blob);
        if (size > 0) AddTail(FontOf(blob, static_cast<size_t>(size)));
    }
    NoteLoaded(GetCRC32(0), registry);
    SetUnmodified();
    return true;
}

SaveResult DataFontManager::Save(const prtmodel* model) {
    const OSingleLock guard(&lock_, true);
    prtreg registry(model->GetRegistry());
    const SaveResult result = SaveChanges(registry, GetCRC32(0), [&] {
        registry.DeletePattern(OString(kFonts) << "/*");
        for (int i = 0; i < fonts_.GetSize(); ++i) {
            const OString key = KeyOf(*fonts_[i]);
            if (key.IsEmpty()) continue;
            WithBlob(*fonts_[i], [&](const void* blob, uint32_t size) {
                if (blob) registry.SetBinary(ValueOf(key), blob, size);
            });
        }
    });
    if (result != SaveResult::FAILED) SetUnmodified();
    return result;
}

uint32_t DataFontManager::GetCRC32(uint32_t seed) const {
    for (int i = 0; i < fonts_.GetSize(); ++i)
        seed = WithBlob(*fonts_[i], [seed](const void* blob, uint32_t size) {
            return CRC32(blob, size, seed);
        });
    return seed;
}
