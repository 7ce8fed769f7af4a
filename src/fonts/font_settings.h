// A font download's questions to the user, and their answers' effects. The dialog only shows this.
#pragma once

#include <windows.h>

#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"
#include "fonts/char_masks.h"
#include "fonts/downloaded_font.h"

class prtdttf_list;
class prtmodel;

// How fonts are identified in the printer, which the printer's language decides
// (prtui::ChooseFontSettings).
struct CFontSettings {
    enum IdentifierMode : int32_t {
        NUMBER = 1, // the user types a number
        OPTION = 2, // the user chooses an option
        NAME = 3,   // the font's file name is enough
    };

    // The settings without a language: a number, and the model's limits.
    explicit CFontSettings(const prtmodel* model);

    // Adds an option for fonts in the memory `letter`.
    void AddOption(const OString& text, char letter);

    // The font that an option would replace. Null if there is none or nobody is to be asked.
    DownloadedFont* ExistingFont(int option, const prtdttf_list& fonts) const;
    // An option as the list shows it, with the font that it would replace.
    OString OptionText(int option, const prtdttf_list& fonts) const;

    // The text beside the field of the number, "(101 - 999)", and the most digits it takes.
    OString IdentifierLabel() const;
    int IdentifierDigits() const;
    // The number that a text becomes when the user leaves the field.
    int32_t ValidIdentifier(const OString& text) const;

    DownloadedFontInfo::Type download_type;
    IdentifierMode identifier_mode = NUMBER;
    int32_t identifier_min = 101;
    int32_t identifier_max = 999;
    bool use_name = false; // the user names the file
    int32_t longest_name = 32;
    bool check_existing = true; // ask before another font is replaced
    OStringArray option_texts;
    OTypedArray<char> option_letters;
};

// A kind of download with its text in the language library.
struct FontDownloadKind {
    DownloadedFontInfo::Type type;
    int text;
};
// The kinds that the model takes. Returns their number.
int GetDownloadKinds(const prtmodel& model, FontDownloadKind (&kinds)[2]);

// A name for the file of a font, without its extension: as many of the face name's letters as fit,
// then the size (the text of the size box; empty for TrueType downloads), letters for weight, slant
// and family, and a number if a listed font already has the name.
OString SuggestedFileName(const LOGFONTW& font, const OString& size, int longest,
                          const prtdttf_list& fonts);

// The user's choices.
struct FontChoices {
    DownloadedFontInfo::Type type = DownloadedFontInfo::TRUETYPE;
    LOGFONTW font = {};
    OString style;           // as the system names it ("Bold Italic"); may be empty
    uint16_t point_size = 0; // tenths
    uint16_t subset = ALL_CHARACTERS;
    int option = -1;    // of the settings' options
    OString file_name;  // without extension
    OString identifier; // the text of the number
};

// The font that the choices describe. The printer's language then completes the file name and the
// identifier (prtui::AdjustFontInfo).
DownloadedFontInfo ChosenFont(const CFontSettings& settings, const FontChoices& choices);
