// Data fonts in settings files and in the binary files of old drivers, and those that a printer
// comes with.
#include <cstring>
#include <memory>

#include "core/base64.h"
#include "core/memory.h"
#include "core/obuffer.h"
#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_manager.h"
#include "fonts/data_font_rfid.h"
#include "model/prtmodel.h"
#include "settings/settings_blocks.h"

namespace {

constexpr char kBarCode[] = "font type='Bar Code'";
constexpr char kRFID[] = "font type='RFID'";

template <class Font, class Storage>
void WriteBlock(OFile& file, const char* kind, const DataFont& font) {
    Storage blob;
    static_cast<const Font&>(font).Save(blob);
    OBuffer<char> bytes;
    OString text;
    bytes.Assign(reinterpret_cast<const char*>(&blob), sizeof blob);
    Base64::BufferToString(bytes, text);
    // Another program's blob may have a name with line ends in it. It comes back with the blob.
    OString name = font.GetFontName();
    name.Replace('\r', ' ');
    name.Replace('\n', ' ');
    file << "<" << kind << ">" << OCore::endl;
    file << "Name=" << name << OCore::endl;
    file << "Data=" << text << OCore::endl;
    file << "</font>" << OCore::endl << OCore::endl;
}

// Takes a font into the list if the printer supports it and it can be stored, else deletes it.
// Returns whether it was taken.
bool Keep(DataFontManager& fonts, std::unique_ptr<DataFont_BarCode> font, const prtmodel* model) {
    if (!font->IsSupported(model) || font->GetFontName().IsEmpty()) return false;
    const int mils = font->get_mils();
    font->resolution = model->GetXResolution();
    font->set_mils(mils);
    fonts.AddTail(font.release());
    return true;
}

bool Keep(DataFontManager& fonts, std::unique_ptr<DataFont_RFID> font, const prtmodel* model) {
    if (!model->HasRFID() || !font->IsSupported(model) || font->GetFontName().IsEmpty())
        return false;
    fonts.AddTail(font.release());
    return true;
}

template <class Font, class Storage>
int ReadBlocks(OFile& file, const char* kind, DataFontManager& fonts, const prtmodel* model) {
    int kept = 0;
    std::unique_ptr<Font> font; // of the block being read
    SettingsBlocks reader(file, kind);
    while (const SettingsBlocks::Line line = reader.Read()) {
        if (line == SettingsBlocks::BLOCK_START) {
            font.reset(new (kCounted) Font);
        } else if (!font) {
            continue;
        } else if (line == SettingsBlocks::BLOCK_END) {
            kept += Keep(fonts, std::move(font), model);
            font.reset();
        } else if (reader.Key() == "Name") {
            font->SetFontName(reader.Value());
        } else if (reader.Key() == "Data") {
            OBuffer<char> blob;
            Base64::StringToBuffer(reader.Value(), blob);
            if (blob.GetSize() == sizeof(Storage)) font->Load(blob.GetData(), blob.GetSize());
        }
    }
    return kept;
}

} // namespace

int DataFontManager::ExportBarFont(OFile& file, const prtmodel*) const {
    int blocks = 0;
    for (int i = 0; i < GetSize(); ++i) {
        if (!fonts_[i]->IsBarCode()) continue;
        WriteBlock<DataFont_BarCode, DataFontStorage_BarCode>(file, kBarCode, *fonts_[i]);
        ++blocks;
    }
    return blocks;
}

int DataFontManager::ExportRFID(OFile& file, const prtmodel*) const {
    int blocks = 0;
    for (int i = 0; i < GetSize(); ++i) {
        if (!fonts_[i]->IsRFID()) continue;
        WriteBlock<DataFont_RFID, DataFontStorage_RFID>(file, kRFID, *fonts_[i]);
        ++blocks;
    }
    return blocks;
}

int DataFontManager::ImportBarFont(OFile& file, const prtmodel* model) {
    return ReadBlocks<DataFont_BarCode, DataFontStorage_BarCode>(file, kBarCode, *this, model);
}

int DataFontManager::ImportRFID(OFile& file, const prtmodel* model) {
    return ReadBlocks<DataFont_RFID, DataFontStorage_RFID>(file, kRFID, *this, model);
}

int DataFontManager::ImportKBF1(OFile& file, const prtmodel* model) {
    char signature[4];
    uint32_t size;
    if (file.Read(signature, sizeof signature) != sizeof signature ||
        std::memcmp(signature, "KBF1", sizeof signature) != 0 ||
        file.Read(&size, sizeof size) != sizeof size)
        return 0;
    if (size < sizeof(DataFontStorage_BarCode) || size > file.GetLength() || size > INT32_MAX)
        return 0;
    OBuffer<char> record(size);
    if (record.GetSize() == 0) return 0;

    int kept = 0;
    const auto whole = static_cast<int32_t>(size);
    while (file.Read(record.GetData(), whole) == whole) {
        std::unique_ptr<DataFont_BarCode> font(new (kCounted) DataFont_BarCode);
        if (font && font->Load(record.GetData(), sizeof(DataFontStorage_BarCode)))
            kept += Keep(*this, std::move(font), model);
    }
    return kept;
}
