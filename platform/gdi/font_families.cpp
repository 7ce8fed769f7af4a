#include "gdi/font_families.h"

#include "gdi/font_files.h"
#include "host/text.h"

#include <fontconfig/fontconfig.h>

#include FT_TRUETYPE_TABLES_H

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>

namespace win32host {
namespace {

struct FontSetDeleter {
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};

std::string TextIn(FcPattern* pattern, const char* object) {
    FcChar8* text = nullptr;
    return FcPatternGetString(pattern, object, 0, &text) == FcResultMatch
               ? reinterpret_cast<const char*>(text)
               : "";
}

FontStyle StyleOf(FcPattern* pattern) {
    int weight = FC_WEIGHT_REGULAR, slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(pattern, FC_WEIGHT, 0, &weight);
    FcPatternGetInteger(pattern, FC_SLANT, 0, &slant);
    FontStyle style = {{}, FcWeightToOpenType(weight), slant != FC_SLANT_ROMAN};
    style.name = Utf16(TextIn(pattern, FC_STYLE));
    // Families call their usual style by many names.
    if (style.weight == FW_NORMAL) style.name = style.italic ? u"Italic" : u"Regular";
    return style;
}

struct ByName {
    bool operator()(const std::u16string& a, const std::u16string& b) const {
        return std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(),
            [](char16_t x, char16_t y) { return UpperOf(x) < UpperOf(y); });
    }
};

std::vector<FontFamily> LookUp() {
    std::map<std::u16string, FontFamily, ByName> families;
    const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> pattern(FcPatternCreate(),
                                                                          FcPatternDestroy);
    const std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> objects(
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_WEIGHT, FC_SLANT, FC_WIDTH, FC_FONTFORMAT,
                         nullptr),
        FcObjectSetDestroy);
    if (!pattern || !objects) return {};
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    const std::unique_ptr<FcFontSet, FontSetDeleter> found(
        FcFontList(nullptr, pattern.get(), objects.get()));
    for (int i = 0; found && i < found->nfont; ++i) {
        FcPattern* const font = found->fonts[i];
        int width = FC_WIDTH_NORMAL;
        FcPatternGetInteger(font, FC_WIDTH, 0, &width);
        if (width != FC_WIDTH_NORMAL) continue; // no style of its family, as it cannot be asked for
        const std::u16string name = Utf16(TextIn(font, FC_FAMILY));
        if (name.empty() || name.size() >= LF_FACESIZE) continue;
        FontFamily& family = families[name];
        family.name = name;
        family.true_type |= TextIn(font, FC_FONTFORMAT) == "TrueType";
        const FontStyle style = StyleOf(font);
        const bool is_known =
            std::any_of(family.styles.begin(), family.styles.end(), [&](const FontStyle& known) {
                return known.weight == style.weight && known.italic == style.italic;
            });
        if (!is_known) family.styles.push_back(style);
    }
    std::vector<FontFamily> list;
    for (auto& [name, family] : families) {
        std::sort(family.styles.begin(), family.styles.end(),
                  [](const FontStyle& a, const FontStyle& b) {
                      return a.weight != b.weight ? a.weight < b.weight : a.italic < b.italic;
                  });
        list.push_back(std::move(family));
    }
    return list;
}

// The bits of a font file's code page range.
constexpr std::pair<int, BYTE> kCharacterSets[] = {
    {0, ANSI_CHARSET},    {1, EASTEUROPE_CHARSET},   {2, RUSSIAN_CHARSET},
    {3, GREEK_CHARSET},   {4, TURKISH_CHARSET},      {5, HEBREW_CHARSET},
    {6, ARABIC_CHARSET},  {7, BALTIC_CHARSET},       {8, VIETNAMESE_CHARSET},
    {16, THAI_CHARSET},   {17, SHIFTJIS_CHARSET},    {18, GB2312_CHARSET},
    {19, HANGUL_CHARSET}, {20, CHINESEBIG5_CHARSET}, {31, SYMBOL_CHARSET}};

} // namespace

const std::vector<FontFamily>& FontFamilies() {
    std::lock_guard guard(FontLock());
    static const auto* families = new std::vector<FontFamily>(LookUp());
    return *families;
}

std::vector<BYTE> CharacterSetsOf(const LOGFONTW& font) {
    std::lock_guard guard(FontLock());
    const FoundFace found = FindFace(font);
    std::vector<BYTE> sets;
    if (found.face) {
        const auto* table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(found.face, FT_SFNT_OS2));
        for (const auto& [bit, set] : kCharacterSets)
            if (table && table->version != 0xFFFF && table->ulCodePageRange1 >> bit & 1)
                sets.push_back(set);
        FT_Done_Face(found.face);
    }
    if (sets.empty()) sets.push_back(ANSI_CHARSET);
    return sets;
}

} // namespace win32host
