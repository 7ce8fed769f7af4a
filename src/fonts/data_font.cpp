#include "fonts/data_font.h"

#include <algorithm>
#include <cstring>

#include "core/ascii.h"
#include "model/record_text.h"

namespace {

constexpr char kBlanks[] = " \t\r\n";

} // namespace

void DataFont::SetFontName(const OString& name) {
    OString text(name);
    text.SetCodePage(0);
    text.Remove('"');
    text.TrimLeft(kBlanks);
    PutName(text);
    text = face_name_;
    text.TrimRight(kBlanks);
    PutName(text);
}

bool DataFont::HasNameOf(const DataFont& other) const {
    return std::memcmp(folded_name_, other.folded_name_, NAME_SIZE) == 0;
}

void DataFont::PutName(const OString& name) {
    SetRecordText(face_name_, name);
    std::transform(face_name_, face_name_ + NAME_SIZE, folded_name_, xtoupper);
}

void DataFont::Load(const DataFontStorage& storage) {
    weight = storage.weight;
    adjustment = storage.adjustment;
    std::memcpy(&attributes, storage.attributes, sizeof attributes);
    char name[NAME_SIZE];
    std::memcpy(name, storage.face_name, NAME_SIZE);
    name[NAME_SIZE - 1] = 0;
    PutName(OString(name));
    type_ = storage.type;
    resolution = storage.resolution;
    flags = storage.flags;
}

void DataFont::Save(DataFontStorage& storage) const {
    storage = {};
    storage.weight = weight;
    storage.adjustment = adjustment;
    std::memcpy(storage.attributes, &attributes, sizeof attributes);
    std::memcpy(storage.face_name, face_name_, NAME_SIZE);
    storage.type = type_;
    storage.resolution = resolution;
    storage.flags = flags;
}

bool DataFont::ReadBlob(const void* blob, size_t size, void* storage, size_t room) {
    constexpr size_t start = sizeof(DataFontStorage);
    uint16_t length;
    if (size < start + sizeof length) return false;
    std::memcpy(&length, static_cast<const char*>(blob) + start, sizeof length);
    if (start + length > std::min(size, room)) return false;
    std::memcpy(storage, blob, start + length);
    return true;
}
