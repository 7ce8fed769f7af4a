#include "fonts/downloaded_font.h"

#include <cstring>

#include "core/crc.h"
#include "core/fixed_text.h"
#include "keys/prtreg.h"
#include "printer/prtstream.h"

namespace {

// A text of a record, which need not be terminated.
template <class C, size_t N>
OString FieldText(const C (&field)[N]) {
    C text[N + 1] = {};
    std::memcpy(text, field, sizeof field);
    return OString(text);
}

} // namespace

bool DownloadedFontInfo::IsCharacterDownloaded(char character) const {
    const auto code = static_cast<unsigned char>(character);
    return characters[code / 32] >> code % 32 & 1;
}

OString DownloadedFontInfo::GetDisplayName() const {
    return FieldText(info.display_name);
}

OString DownloadedFontInfo::GetFileName() const {
    return FieldText(info.file_name);
}

OString DownloadedFontInfo::GetLocation() const {
    return FieldText(info.location);
}

OString DownloadedFontInfo::GetIdentifier() const {
    return FieldText(info.identifier);
}

OString DownloadedFont::KeyName(int index) {
    return OString("Downloaded Font ") << index / 10 << index % 10 << ":: ";
}

bool DownloadedFont::Load(prtreg& registry, const OString& prefix) {
    const auto named = [&prefix](const char* name) { return OString(prefix) << name; };
    const auto word = [&](const char* name) {
        return static_cast<uint16_t>(registry.GetDWORD(named(name), 0));
    };
    *static_cast<DownloadedFontInfo*>(this) = {};
    const bool has_record = registry.GetBinary(named("FontInfo"), &info, sizeof info) > 0;
    if (!has_record && registry.GetSize(named("Type")) <= 0) return false;
    type = word("Type");
    status = word("Status");
    point_size = word("Point Size");
    subset = word("Character Subset");
    registry.GetBinary(named("Characters"), characters, sizeof characters);
    font.lfItalic = registry.GetByte(named("Italic"), 0);
    font.lfWeight = word("Weight");
    PutFixedText(font.lfFaceName, registry.GetString(named("Face Name"), ""), LF_FACESIZE);
    font.lfCharSet = registry.GetByte(named("Character Set"), 0);
    return true;
}

void DownloadedFont::Save(prtreg& registry, const OString& prefix) const {
    const auto named = [&prefix](const char* name) { return OString(prefix) << name; };
    registry.SetDWORD(named("Type"), type);
    registry.SetDWORD(named("Status"), status);
    registry.SetDWORD(named("Point Size"), point_size);
    registry.SetDWORD(named("Character Subset"), subset);
    registry.SetBinary(named("Characters"), characters, sizeof characters);
    registry.SetBinary(named("FontInfo"), &info, sizeof info);
    registry.SetByte(named("Italic"), font.lfItalic);
    registry.SetDWORD(named("Weight"), static_cast<uint16_t>(font.lfWeight));
    registry.SetString(named("Face Name"), FieldText(font.lfFaceName));
    registry.SetByte(named("Character Set"), font.lfCharSet);
}

uint32_t DownloadedFont::GetCRC32(uint32_t seed) const {
    for (const uint16_t word :
         {type, status, point_size, subset, static_cast<uint16_t>(font.lfWeight)})
        seed = CRC32(&word, sizeof word, seed);
    for (const BYTE byte : {font.lfItalic, font.lfCharSet}) seed = CRC32(&byte, sizeof byte, seed);
    seed = CRC32(characters, sizeof characters, seed);
    seed = CRC32(&info, sizeof info, seed);
    return CRC32_UTF8(FieldText(font.lfFaceName), seed);
}

void DownloadedFont::Erase(prtstream* stream) {
    if (!stream) return;
    info.operation = KVFontInfo::ERASE;
    stream->StartJob("Delete Font");
    stream->DownloadFont(info);
    stream->EndJob();
}
