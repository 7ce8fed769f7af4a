#include "fonts/font_settings.h"

#include <algorithm>
#include <cstring>

#include "core/ascii.h"
#include "fonts/prtdttf_list.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "model/record_text.h"

namespace {

const char* WeightCode(LONG weight) {
    switch (weight) {
    case 100:
        return "T";
    case 200:
        return "EL";
    case 300:
        return "L";
    case 400:
        return "R";
    case 500:
        return "M";
    case 600:
        return "SB";
    case 700:
        return "B";
    case 800:
        return "EB";
    case 900:
        return "HB";
    default:
        return "";
    }
}

const char* FamilyCode(BYTE pitch_and_family) {
    switch (pitch_and_family & 0xF0) {
    case FF_ROMAN:
        return "FR";
    case FF_SWISS:
        return "FW";
    case FF_MODERN:
        return "FM";
    case FF_SCRIPT:
        return "FS";
    case FF_DECORATIVE:
        return "FD";
    default:
        return "";
    }
}

// The letters A to Z of a face name, in capitals.
OString LettersOf(const LOGFONTW& font) {
    OString letters;
    for (const WCHAR unit : font.lfFaceName) {
        if (!unit) break;
        const char letter = unit < 0x80 ? xtoupper(static_cast<char>(unit)) : '\0';
        if (letter >= 'A' && letter <= 'Z') letters << letter;
    }
    return letters;
}

OString FaceName(const LOGFONTW& font) {
    WCHAR name[LF_FACESIZE + 1] = {};
    std::memcpy(name, font.lfFaceName, sizeof font.lfFaceName);
    return OString(name);
}

} // namespace

CFontSettings::CFontSettings(const prtmodel* model)
    : download_type(model && model->CanDownloadTTFont() ? DownloadedFontInfo::TRUETYPE
                                                        : DownloadedFontInfo::BITMAP) {}

void CFontSettings::AddOption(const OString& text, char letter) {
    if (option_texts.Add(text) >= 0 && option_letters.Add(letter) < 0)
        option_texts.RemoveAt(option_texts.GetSize() - 1, 1);
}

DownloadedFont* CFontSettings::ExistingFont(int option, const prtdttf_list& fonts) const {
    if (!check_existing || option < 0 || option >= option_letters.GetSize()) return nullptr;
    return fonts.FindIn(option_letters[option]);
}

OString CFontSettings::OptionText(int option, const prtdttf_list& fonts) const {
    OString text = option_texts[option];
    if (const DownloadedFont* font = ExistingFont(option, fonts))
        text << " - " << font->GetDisplayName();
    return text;
}

OString CFontSettings::IdentifierLabel() const {
    return OString("(") << identifier_min << " - " << identifier_max << ")";
}

int CFontSettings::IdentifierDigits() const {
    return FormatInt(identifier_max).GetLength();
}

int32_t CFontSettings::ValidIdentifier(const OString& text) const {
    return std::max(identifier_min, std::min(static_cast<int32_t>(text), identifier_max));
}

int GetDownloadKinds(const prtmodel& model, FontDownloadKind (&kinds)[2]) {
    int count = 0;
    if (model.CanDownloadTTFont())
        kinds[count++] = {DownloadedFontInfo::TRUETYPE, TEXT_TRUETYPE_DOWNLOAD};
    if (model.CanDownloadBitmapFont())
        kinds[count++] = {DownloadedFontInfo::BITMAP, TEXT_BITMAP_DOWNLOAD};
    return count;
}

OString SuggestedFileName(const LOGFONTW& font, const OString& size, int longest,
                          const prtdttf_list& fonts) {
    const OString letters = LettersOf(font);
    OString suffix;
    suffix << size.Left(3).nstring() << WeightCode(font.lfWeight) << (font.lfItalic ? "I" : "")
           << FamilyCode(font.lfPitchAndFamily);
    for (int32_t n = 1;; ++n) {
        const OString number = n == 1 ? OString() : FormatInt(n);
        const int room = longest - suffix.GetLength() - number.GetLength();
        OString name;
        name << letters.Left(std::max(room, 0)) << suffix << number;
        if (!fonts.UsesName(name)) return name;
    }
}

DownloadedFontInfo ChosenFont(const CFontSettings& settings, const FontChoices& choices) {
    DownloadedFontInfo chosen;
    chosen.type = choices.type;
    chosen.point_size = choices.point_size;
    chosen.font = choices.font;
    const CharMask& mask = FindCharMask(choices.subset);
    std::memcpy(chosen.characters, mask.characters, sizeof chosen.characters);
    if (mask.text != ALL_CHARACTERS) {
        chosen.subset = mask.text;
        chosen.font.lfCharSet = DEFAULT_CHARSET;
    }

    OString name = FaceName(choices.font);
    if (!choices.style.IsEmpty()) name << " " << choices.style;
    SetRecordText(chosen.info.display_name, name);
    if (settings.use_name || settings.identifier_mode == CFontSettings::NAME)
        SetRecordText(chosen.info.file_name, choices.file_name.Left(settings.longest_name));
    if (settings.identifier_mode == CFontSettings::NUMBER)
        SetRecordText(chosen.info.identifier,
                      FormatInt(settings.ValidIdentifier(choices.identifier)));
    const bool has_option =
        choices.option >= 0 && choices.option < settings.option_letters.GetSize();
    if (settings.identifier_mode == CFontSettings::OPTION && has_option)
        chosen.info.location[0] = settings.option_letters[choices.option];
    return chosen;
}
