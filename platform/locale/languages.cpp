#include "locale/languages.h"

#include <algorithm>
#include <iterator>

namespace win32host {
namespace {

constexpr Language kLanguages[] = {
    {"en", "US", u"ENU", 0x0409}, {"en", "GB", u"ENG", 0x0809}, {"en", "AU", u"ENA", 0x0C09},
    {"en", "CA", u"ENC", 0x1009}, {"en", "NZ", u"ENZ", 0x1409}, {"en", "IE", u"ENI", 0x1809},
    {"en", "ZA", u"ENS", 0x1C09}, {"en", "IN", u"ENN", 0x4009}, {"ar", "SA", u"ARA", 0x0401},
    {"bg", "BG", u"BGR", 0x0402}, {"ca", "ES", u"CAT", 0x0403}, {"cs", "CZ", u"CSY", 0x0405},
    {"da", "DK", u"DAN", 0x0406}, {"de", "DE", u"DEU", 0x0407}, {"de", "CH", u"DES", 0x0807},
    {"de", "AT", u"DEA", 0x0C07}, {"de", "LU", u"DEL", 0x1007}, {"de", "LI", u"DEC", 0x1407},
    {"el", "GR", u"ELL", 0x0408}, {"es", "ES", u"ESN", 0x0C0A}, {"es", "MX", u"ESM", 0x080A},
    {"es", "AR", u"ESS", 0x2C0A}, {"es", "CL", u"ESL", 0x340A}, {"es", "CO", u"ESO", 0x240A},
    {"es", "PE", u"ESR", 0x280A}, {"es", "VE", u"ESV", 0x200A}, {"et", "EE", u"ETI", 0x0425},
    {"eu", "ES", u"EUQ", 0x042D}, {"fi", "FI", u"FIN", 0x040B}, {"fr", "FR", u"FRA", 0x040C},
    {"fr", "BE", u"FRB", 0x080C}, {"fr", "CA", u"FRC", 0x0C0C}, {"fr", "CH", u"FRS", 0x100C},
    {"fr", "LU", u"FRL", 0x140C}, {"he", "IL", u"HEB", 0x040D}, {"hr", "HR", u"HRV", 0x041A},
    {"hu", "HU", u"HUN", 0x040E}, {"id", "ID", u"IND", 0x0421}, {"is", "IS", u"ISL", 0x040F},
    {"it", "IT", u"ITA", 0x0410}, {"it", "CH", u"ITS", 0x0810}, {"ja", "JP", u"JPN", 0x0411},
    {"ko", "KR", u"KOR", 0x0412}, {"lt", "LT", u"LTH", 0x0427}, {"lv", "LV", u"LVI", 0x0426},
    {"nb", "NO", u"NOR", 0x0414}, {"nn", "NO", u"NON", 0x0814}, {"no", "NO", u"NOR", 0x0414},
    {"nl", "NL", u"NLD", 0x0413}, {"nl", "BE", u"NLB", 0x0813}, {"pl", "PL", u"PLK", 0x0415},
    {"pt", "BR", u"PTB", 0x0416}, {"pt", "PT", u"PTG", 0x0816}, {"ro", "RO", u"ROM", 0x0418},
    {"ru", "RU", u"RUS", 0x0419}, {"sk", "SK", u"SKY", 0x041B}, {"sl", "SI", u"SLV", 0x0424},
    {"sv", "SE", u"SVE", 0x041D}, {"sv", "FI", u"SVF", 0x081D}, {"th", "TH", u"THA", 0x041E},
    {"tr", "TR", u"TRK", 0x041F}, {"uk", "UA", u"UKR", 0x0422}, {"vi", "VN", u"VIT", 0x042A},
    {"zh", "CN", u"CHS", 0x0804}, {"zh", "TW", u"CHT", 0x0404}, {"zh", "HK", u"ZHH", 0x0C04},
    {"zh", "SG", u"ZHI", 0x1004},
};

// The languages whose code pages are not those of Western Europe. Entries with a country come
// before those without.
constexpr struct {
    LANGID language;
    CodePages code_pages;
} kLanguageCodePages[] = {
    {0x0409, {1252, 437}}, {0x1C09, {1252, 437}}, {0x4009, {1252, 437}}, {0x0404, {950, 950}},
    {0x0C04, {950, 950}},  {0x04, {936, 936}},    {0x01, {1256, 720}},   {0x02, {1251, 866}},
    {0x05, {1250, 852}},   {0x08, {1253, 737}},   {0x0D, {1255, 862}},   {0x0E, {1250, 852}},
    {0x11, {932, 932}},    {0x12, {949, 949}},    {0x15, {1250, 852}},   {0x18, {1250, 852}},
    {0x19, {1251, 866}},   {0x1A, {1250, 852}},   {0x1B, {1250, 852}},   {0x1E, {874, 874}},
    {0x1F, {1254, 857}},   {0x22, {1251, 866}},   {0x24, {1250, 852}},   {0x25, {1257, 775}},
    {0x26, {1257, 775}},   {0x27, {1257, 775}},   {0x2A, {1258, 1258}},
};

// ISO codes and what they stand for.
struct NameOfCode {
    const char* code;
    const char* name;
};
constexpr NameOfCode kLanguageNames[] = {
    {"en", "English"},
    {"ar", "Arabic"},
    {"bg", "Bulgarian"},
    {"ca", "Catalan"},
    {"cs", "Czech"},
    {"da", "Danish"},
    {"de", "German"},
    {"el", "Greek"},
    {"es", "Spanish"},
    {"et", "Estonian"},
    {"eu", "Basque"},
    {"fi", "Finnish"},
    {"fr", "French"},
    {"he", "Hebrew"},
    {"hr", "Croatian"},
    {"hu", "Hungarian"},
    {"id", "Indonesian"},
    {"is", "Icelandic"},
    {"it", "Italian"},
    {"ja", "Japanese"},
    {"ko", "Korean"},
    {"lt", "Lithuanian"},
    {"lv", "Latvian"},
    {"nb", "Norwegian Bokmål"},
    {"nn", "Norwegian Nynorsk"},
    {"no", "Norwegian"},
    {"nl", "Dutch"},
    {"pl", "Polish"},
    {"pt", "Portuguese"},
    {"ro", "Romanian"},
    {"ru", "Russian"},
    {"sk", "Slovak"},
    {"sl", "Slovenian"},
    {"sv", "Swedish"},
    {"th", "Thai"},
    {"tr", "Turkish"},
    {"uk", "Ukrainian"},
    {"vi", "Vietnamese"},
    {"zh", "Chinese"},
};
constexpr NameOfCode kCountryNames[] = {
    {"US", "United States"}, {"GB", "United Kingdom"}, {"AU", "Australia"},
    {"CA", "Canada"},        {"NZ", "New Zealand"},    {"IE", "Ireland"},
    {"ZA", "South Africa"},  {"IN", "India"},          {"SA", "Saudi Arabia"},
    {"BG", "Bulgaria"},      {"ES", "Spain"},          {"CZ", "Czech Republic"},
    {"DK", "Denmark"},       {"DE", "Germany"},        {"CH", "Switzerland"},
    {"AT", "Austria"},       {"LU", "Luxembourg"},     {"LI", "Liechtenstein"},
    {"GR", "Greece"},        {"MX", "Mexico"},         {"AR", "Argentina"},
    {"CL", "Chile"},         {"CO", "Colombia"},       {"PE", "Peru"},
    {"VE", "Venezuela"},     {"EE", "Estonia"},        {"FI", "Finland"},
    {"FR", "France"},        {"BE", "Belgium"},        {"IL", "Israel"},
    {"HR", "Croatia"},       {"HU", "Hungary"},        {"ID", "Indonesia"},
    {"IS", "Iceland"},       {"IT", "Italy"},          {"JP", "Japan"},
    {"KR", "Korea"},         {"LT", "Lithuania"},      {"LV", "Latvia"},
    {"NO", "Norway"},        {"NL", "Netherlands"},    {"PL", "Poland"},
    {"BR", "Brazil"},        {"PT", "Portugal"},       {"RO", "Romania"},
    {"RU", "Russia"},        {"SK", "Slovakia"},       {"SI", "Slovenia"},
    {"SE", "Sweden"},        {"TH", "Thailand"},       {"TR", "Turkey"},
    {"UA", "Ukraine"},       {"VN", "Vietnam"},        {"CN", "China"},
    {"TW", "Taiwan"},        {"HK", "Hong Kong"},      {"SG", "Singapore"},
};

// Every code of kLanguages has a name.
template <size_t N>
std::string NameIn(const NameOfCode (&names)[N], std::string_view code) {
    for (const NameOfCode& entry : names)
        if (entry.code == code) return entry.name;
    return std::string(code);
}

} // namespace

const Language& LanguageOfLocale(std::string_view name) {
    name = name.substr(0, name.find_first_of(".@"));
    const size_t bar = name.find('_');
    const std::string_view language = name.substr(0, bar);
    const std::string_view country =
        bar == std::string_view::npos ? std::string_view() : name.substr(bar + 1);
    const Language* best = nullptr;
    for (const Language& entry : kLanguages) {
        if (entry.language != language) continue;
        if (entry.country == country) return entry;
        if (!best) best = &entry;
    }
    return best ? *best : kLanguages[0];
}

const Language& LanguageOfAbbreviation(std::u16string_view abbreviation) {
    const auto* found =
        std::find_if(std::begin(kLanguages), std::end(kLanguages),
                     [&](const Language& entry) { return entry.abbreviation == abbreviation; });
    return found != std::end(kLanguages) ? *found : kLanguages[0];
}

const Language* LanguageOfId(LANGID id) {
    const Language* first = nullptr;
    for (const Language& entry : kLanguages) {
        if (entry.id == id) return &entry;
        if (!first && PRIMARYLANGID(entry.id) == id) first = &entry;
    }
    return first;
}

std::string NameOf(const Language& language) {
    return NameIn(kLanguageNames, language.language) + " (" +
           NameIn(kCountryNames, language.country) + ")";
}

CodePages CodePagesOf(const Language& language) {
    for (const auto& entry : kLanguageCodePages)
        if (entry.language == language.id || entry.language == PRIMARYLANGID(language.id))
            return entry.code_pages;
    return {1252, 850};
}

} // namespace win32host
