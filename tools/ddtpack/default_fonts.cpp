#include "default_fonts.h"

#include "fonts/data_font_bar_code.h"
#include "fonts/data_font_rfid.h"
#include "model/symbology_info.h"
#include "text.h"

#include <memory>
#include <sstream>
#include <vector>

namespace {

std::vector<std::string> Parts(const std::string& value) {
    std::vector<std::string> parts;
    std::istringstream in(value);
    for (std::string part; std::getline(in, part, ',');) parts.push_back(Trim(part));
    return parts;
}

// Names the font and adds it. Answers a reason if the name is taken.
const char* Add(std::unique_ptr<DataFont> font, const std::string& name, DataFontManager& fonts) {
    font->SetFontName(OString(name.c_str()));
    if (font->GetFontName().IsEmpty()) return "a font has a name";
    if (!(font->GetFontName() == name.c_str())) return "a font's name has at most 31 characters";
    for (int i = 0; i < fonts.GetSize(); ++i)
        if (fonts[i]->HasNameOf(*font)) return "the font is there already";
    fonts.AddTail(font.release());
    return nullptr;
}

// -1 if there is no symbology of that name.
int SymbologyOf(const std::string& name) {
    for (int number = 0; number <= SymbologyInfo::TELEPEN; ++number)
        if (SymbologyInfo(number).GetName() == name.c_str()) return number;
    return -1;
}

} // namespace

const char* ReadBarCodeFont(const std::string& name, const std::string& value,
                            DataFontManager& fonts) {
    static const char* const places[] = {"none", "above", "below"};
    const std::vector<std::string> parts = Parts(value);
    int32_t mils = 0;
    if (parts.size() < 2 || parts.size() > 3 || !ReadNumber(parts[1], mils) || mils <= 0)
        return "a bar code font is NAME=SYMBOLOGY,WIDTH[,none|above|below]";
    const int symbology = SymbologyOf(parts[0]);
    if (symbology < 0) return "no such symbology";
    auto font = std::make_unique<DataFont_BarCode>();
    font->change_symbology(symbology);
    font->set_mils(mils);
    font->set_hr(DataFont_BarCode::HR_NONE);
    if (parts.size() == 3) {
        int hr = 0;
        while (hr < 3 && parts[2] != places[hr]) ++hr;
        if (hr == 3) return "human-readable text is none, above or below";
        font->set_hr(hr);
    }
    return Add(std::move(font), name, fonts);
}

const char* ReadRFIDFont(const std::string& name, const std::string& value,
                         DataFontManager& fonts) {
    static const struct {
        const char* word;
        uint32_t number;
    } tags[] = {{"EPC64", DataFont_RFID::EPC_64},    {"EPC96", DataFont_RFID::EPC_96},
                {"TagIt", DataFont_RFID::TAG_IT_HF}, {"ISO15693", DataFont_RFID::ISO_15693},
                {"ICode1", DataFont_RFID::I_CODE1},  {"Picotag", DataFont_RFID::PICOTAG}},
      formats[] = {{"SGTIN-64", DataFont_RFID::FORMAT_SGTIN_64},
                   {"SSCC-64", DataFont_RFID::FORMAT_SSCC_64},
                   {"SGLN-64", DataFont_RFID::FORMAT_SGLN_64}};
    const std::vector<std::string> parts = Parts(value);
    if (parts.empty() || parts.size() > 2) return "an RFID font is NAME=TAG[,FORMAT]";
    auto font = std::make_unique<DataFont_RFID>();
    font->SetDefaults(0);
    for (const auto& tag : tags)
        if (parts[0] == tag.word) font->SetDefaults(tag.number);
    if (font->GetTagType() == 0) return "no such tag type";
    if (parts.size() == 2) {
        font->SetFormat(DataFont_RFID::FORMAT_CUSTOM);
        for (const auto& format : formats)
            if (parts[1] == format.word) font->SetFormat(format.number);
        if (font->GetTagType() != DataFont_RFID::EPC_64 || font->UpdateFormatMask())
            return "no such format of the tag type";
    }
    return Add(std::move(font), name, fonts);
}
