#include "gdi/font_files.h"

#include "host/text.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

namespace win32host {
namespace {

// Lives until the process ends.
FT_Library TheLibrary() {
    static const FT_Library library = [] {
        FT_Library made = nullptr;
        return FT_Init_FreeType(&made) ? nullptr : made;
    }();
    return library;
}

// The font of dialogs and its bold form, where Debian's package fonts-wine has put them, which is
// no place where fontconfig looks. Only the bitmaps of the bold one are bold; its outlines are
// those of the other.
constexpr const char* kDialogFont = "/usr/share/wine/fonts/tahoma.ttf";
constexpr const char* kBoldDialogFont = "/usr/share/wine/fonts/tahomabd.ttf";

// Initializes fontconfig at the first question and ends it with the process. It initializes itself
// again if something is asked after that.
struct Fontconfig {
    Fontconfig() {
        FcInit();
        for (const char* file : {kDialogFont, kBoldDialogFont})
            FcConfigAppFontAddFile(nullptr, reinterpret_cast<const FcChar8*>(file));
    }
    ~Fontconfig() { FcFini(); }
};

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using Pattern = std::unique_ptr<FcPattern, PatternDeleter>;

std::u16string FamilyOf(const LOGFONTW& description) {
    const WCHAR* const name = description.lfFaceName;
    return {name, std::find(name, name + LF_FACESIZE, 0)};
}

// The names by which dialogs and the system ask for their font, and the family that it belongs to.
std::u16string RealFamily(const std::u16string& name) {
    for (const char16_t* alias : {u"MS Shell Dlg", u"MS Shell Dlg 2", u"System"})
        if (SameName(name.c_str(), alias)) return u"Tahoma";
    return name;
}

Pattern Wanted(const LOGFONTW& description) {
    Pattern pattern(FcPatternCreate());
    if (!pattern) return pattern;
    const std::string family = Utf8(RealFamily(FamilyOf(description)));
    if (!family.empty())
        FcPatternAddString(pattern.get(), FC_FAMILY,
                           reinterpret_cast<const FcChar8*>(family.c_str()));
    if ((description.lfPitchAndFamily & 3) == FIXED_PITCH)
        FcPatternAddInteger(pattern.get(), FC_SPACING, FC_MONO);
    const int weight = std::clamp<int>(description.lfWeight, 0, 1000);
    FcPatternAddInteger(pattern.get(), FC_WEIGHT,
                        FcWeightFromOpenType(weight ? weight : FW_NORMAL));
    FcPatternAddInteger(pattern.get(), FC_SLANT,
                        description.lfItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

int Number(const Pattern& pattern, const char* object, int fallback) {
    int value = fallback;
    return FcPatternGetInteger(pattern.get(), object, 0, &value) == FcResultMatch ? value
                                                                                  : fallback;
}

// A face has its family's name in several languages, and perhaps that of a narrower family. Any of
// them will do; the first is taken otherwise.
std::u16string FamilyOf(const Pattern& match, const std::u16string& wanted) {
    const std::string name = Utf8(RealFamily(wanted));
    FcChar8* family = nullptr;
    for (int i = 0; FcPatternGetString(match.get(), FC_FAMILY, i, &family) == FcResultMatch; ++i)
        if (FcStrCmpIgnoreCase(family, reinterpret_cast<const FcChar8*>(name.c_str())) == 0)
            return wanted;
    if (FcPatternGetString(match.get(), FC_FAMILY, 0, &family) != FcResultMatch) return wanted;
    return Utf16(reinterpret_cast<const char*>(family));
}

} // namespace

std::mutex& FontLock() {
    static std::mutex* const lock = new std::mutex;
    return *lock;
}

FoundFace FindFace(const LOGFONTW& description) {
    static const Fontconfig fontconfig;
    FoundFace found;
    const Pattern wanted = Wanted(description);
    if (!wanted || !TheLibrary()) return found;
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch) return found;
    if (FT_New_Face(TheLibrary(), reinterpret_cast<const char*>(file), Number(match, FC_INDEX, 0),
                    &found.face)) {
        found.face = nullptr;
        return found;
    }
    if (!FT_IS_SFNT(found.face) || !FT_IS_SCALABLE(found.face)) {
        FT_Done_Face(found.face);
        found.face = nullptr;
        return found;
    }
    found.family = FamilyOf(match, FamilyOf(description));
    // The match describes the final result: fontconfig also counts a face as bold or slanted if it
    // is still to be made so.
    FcBool embolden = FcFalse;
    FcPatternGetBool(match.get(), FC_EMBOLDEN, 0, &embolden);
    if (std::strcmp(reinterpret_cast<const char*>(file), kBoldDialogFont) == 0)
        found.bolding = Bolding::OutlinesOnly;
    else if (description.lfWeight >= 600 &&
             (embolden || Number(match, FC_WEIGHT, FC_WEIGHT_NORMAL) < FC_WEIGHT_DEMIBOLD))
        found.bolding = Bolding::Glyphs;
    found.lacks_slant = description.lfItalic && !(found.face->style_flags & FT_STYLE_FLAG_ITALIC);
    return found;
}

} // namespace win32host
