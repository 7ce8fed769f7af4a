// labelhost fonts: the fonts of the system that are kept in a printer's memory.
#include "arguments.h"
#include "commands/commands.h"
#include "fault.h"
#include "json.h"
#include "machine/open_settings.h"
#include "text.h"

#include <zplui.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr const char* kFontsUsage =
    "fonts list|verify|resend PRINTER, fonts add PRINTER FAMILY, fonts delete PRINTER FILE";

constexpr struct {
    DWORD number;
    const char* name;
} kCharacters[] = {
    {DAL_CHARACTERS_ALL, "all"},
    {DAL_CHARACTERS_ASCII, "ascii"},
    {DAL_CHARACTERS_CAPITALS, "capitals"},
    {DAL_CHARACTERS_CAPITALS_PUNCTUATION, "capitals-punctuation"},
    {DAL_CHARACTERS_CAPITALS_NUMBERS, "capitals-numbers"},
    {DAL_CHARACTERS_CAPITALS_NUMBERS_PUNCTUATION, "capitals-numbers-punctuation"},
    {DAL_CHARACTERS_NUMBERS, "numbers"},
    {DAL_CHARACTERS_AMOUNTS, "amounts"},
};

DWORD CharactersFrom(const std::string& name) {
    std::string names;
    for (const auto& set : kCharacters) {
        if (name == set.name) return set.number;
        names += (names.empty() ? "" : ", ") + std::string(set.name);
    }
    throw UsageFault("--characters is one of " + names + ", not '" + name + "'");
}

// Tenths of a point.
DWORD PointsFrom(const std::string& text) {
    size_t end = 0;
    double points = 0;
    try {
        points = std::stod(text, &end);
    } catch (const std::exception&) {
        end = 0;
    }
    if (end == 0 || end != text.size() || !(points >= 4 && points <= 144))
        throw UsageFault("--bitmap is a size from 4 to 144 points, not '" + text + "'");
    return static_cast<DWORD>(std::lround(points * 10));
}

std::string TextOf(const char* const (&texts)[3], DWORD number) {
    return number < 3 ? texts[number] : std::to_string(number);
}

std::string KindOf(const DAL_FONT& font) {
    return TextOf({"found", "truetype", "bitmap"}, font.kind);
}

std::string StatusOf(const DAL_FONT& font) {
    return TextOf({"sent", "present", "missing"}, font.status);
}

std::string LetterText(WCHAR letter) {
    return letter ? ToUtf8(&letter, 1) : std::string();
}

std::string FileOf(const DAL_FONT& font) {
    return LetterText(font.memory) + ":" + ToUtf8(font.file);
}

Json JsonOf(const DAL_FONT& font) {
    Json described = {{"file", FileOf(font)},     {"name", ToUtf8(font.name)},
                      {"kind", KindOf(font)},     {"identifier", LetterText(font.identifier)},
                      {"status", StatusOf(font)}, {"bytes", font.bytes}};
    if (font.kind == DAL_FONT_BITMAP) {
        described["points"] = font.point_size / 10.0;
        for (const auto& set : kCharacters)
            if (set.number == font.characters) described["characters"] = set.name;
    }
    return described;
}

void PrintFont(const DAL_FONT& font) {
    std::string name = ToUtf8(font.name);
    if (font.kind == DAL_FONT_BITMAP) {
        char points[32];
        std::snprintf(points, sizeof points, " %g pt", font.point_size / 10.0);
        name += points;
    }
    std::printf("%-14s %-1s %-8s %9u  %-7s  %s\n", FileOf(font).c_str(),
                LetterText(font.identifier).c_str(), KindOf(font).c_str(),
                static_cast<unsigned>(font.bytes), StatusOf(font).c_str(), name.c_str());
}

std::vector<DAL_FONT> ListOf(const OpenSettings& settings) {
    const auto list = settings.Export<decltype(&DAL_Fonts_List)>("DAL_Fonts_List");
    std::vector<DAL_FONT> fonts(static_cast<size_t>(list(settings.handle(), nullptr, 0)));
    list(settings.handle(), fonts.data(), static_cast<int>(fonts.size()));
    return fonts;
}

void Show(const OpenSettings& settings, bool json) {
    Json all = Json::array();
    for (const DAL_FONT& font : ListOf(settings)) {
        if (json)
            all.push_back(JsonOf(font));
        else
            PrintFont(font);
    }
    if (json) PrintJson(all);
}

template <size_t N>
void Put(WCHAR (&field)[N], const std::string& text, const char* what) {
    const WideString wide = ToWide(text);
    if (wide.size() >= N) throw Fault(std::string(what) + " '" + text + "' is too long");
    std::copy(wide.begin(), wide.end(), field);
}

void Add(const OpenSettings& settings, const Arguments& arguments) {
    DAL_FONT font = {};
    Put(font.font.lfFaceName, arguments[2], "the family");
    font.font.lfWeight = static_cast<LONG>(arguments.Number("weight", 1000, FW_NORMAL));
    font.font.lfItalic = arguments.Has("italic");
    font.font.lfCharSet = DEFAULT_CHARSET;
    font.kind = arguments.Has("bitmap") ? DAL_FONT_BITMAP : DAL_FONT_TRUETYPE;
    if (arguments.Has("characters")) {
        if (font.kind != DAL_FONT_BITMAP) throw UsageFault("--characters needs --bitmap POINTS");
        font.characters = CharactersFrom(arguments.Get("characters", ""));
    }
    if (arguments.Has("bitmap")) font.point_size = PointsFrom(arguments.Get("bitmap", ""));
    const std::string memory = arguments.Get("memory", "");
    if (memory.size() > 1) throw UsageFault("--memory is a letter, not '" + memory + "'");
    if (!memory.empty()) font.memory = static_cast<unsigned char>(memory[0]);
    Put(font.file, arguments.Get("file", ""), "the name");

    const auto download = settings.Export<decltype(&DAL_Font_Download)>("DAL_Font_Download");
    SetLastError(ERROR_SUCCESS);
    if (!download(settings.handle(), &font)) {
        const bool too_large = GetLastError() == ERROR_BAD_LENGTH;
        throw Fault("font '" + arguments[2] + "' cannot be sent to '" + arguments[1] + "': " +
                    (too_large ? "its characters are too large in this size"
                               : "is it installed, and does the printer take it so?"));
    }
    if (arguments.Has("json"))
        PrintJson(JsonOf(font));
    else
        PrintFont(font);
}

void Delete(const OpenSettings& settings, const Arguments& arguments) {
    const std::vector<DAL_FONT> fonts = ListOf(settings);
    const auto found = std::find_if(fonts.begin(), fonts.end(), [&](const DAL_FONT& font) {
        return SameText(FileOf(font), arguments[2]);
    });
    if (found == fonts.end())
        throw Fault("'" + arguments[1] + "' has no font '" + arguments[2] +
                    "' (labelhost fonts list has their names)");
    const auto remove = settings.Export<decltype(&DAL_Font_Delete)>("DAL_Font_Delete");
    if (!remove(settings.handle(), static_cast<int>(found - fonts.begin())))
        throw Fault("fonts of '" + arguments[1] + "' cannot be changed by this user");
}

} // namespace

void FontsCommand(const Words& words) {
    const Arguments arguments(words, {"bitmap", "characters", "weight", "memory", "file"},
                              {"italic", "json"});
    arguments.RequireCount(2, 3, kFontsUsage);
    const std::string& what = arguments[0];
    const bool named = what == "add" || what == "delete";
    if (!named && what != "list" && what != "verify" && what != "resend")
        throw UsageFault("fonts are listed, verified, sent again, added or deleted, not '" + what +
                         "'");
    arguments.RequireCount(named ? 3 : 2, named ? 3 : 2, kFontsUsage);
    const OpenSettings settings(arguments[1]);
    if (what == "add") return Add(settings, arguments);
    if (what == "delete") return Delete(settings, arguments);
    if (what == "verify" &&
        !settings.Export<decltype(&DAL_Fonts_Verify)>("DAL_Fonts_Verify")(settings.handle()))
        throw Fault("printer '" + arguments[1] + "' does not answer");
    SetLastError(ERROR_SUCCESS);
    if (what == "resend" &&
        !settings.Export<decltype(&DAL_Fonts_Resend)>("DAL_Fonts_Resend")(settings.handle()))
        throw Fault(GetLastError() == ERROR_BAD_LENGTH
                        ? "some fonts are too large to be sent to '" + arguments[1] + "'"
                        : "fonts of '" + arguments[1] + "' cannot be changed by this user");
    Show(settings, arguments.Has("json"));
}
