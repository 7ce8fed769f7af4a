#include "locale/prtlocale.h"

#include <cstring>

#include "core/ascii.h"
#include "core/ofile.h"
#include "keys/prtreg.h"
#include "locale/text_numbers.h"
#include "model/prtmodel.h"
#include "spooler/driver_utility.h"

namespace {

constexpr char kFollowSystem[] = "sys";
constexpr char kEnglish[] = "enu";

constexpr prtlocale::Language kLanguages[] = {
    {"enu", 1252, TEXT_ENGLISH, false},
    {"fra", 1252, TEXT_FRENCH, false},
    {"deu", 1252, TEXT_GERMAN, false},
    {"ita", 1252, TEXT_ITALIAN, false},
    {"esp", 1252, TEXT_SPANISH, false},
    {"ptb", 1252, TEXT_BRAZILIAN_PORTUGUESE, false},
    {"chs", 936, TEXT_SIMPLIFIED_CHINESE, true},
    {"cht", 950, TEXT_TRADITIONAL_CHINESE, true},
    {"jpn", 932, TEXT_JAPANESE, true},
    {"fin", 1252, TEXT_FINNISH, false},
    {"dan", 1252, TEXT_DANISH, false},
    {"sve", 1252, TEXT_SWEDISH, false},
    {"nor", 1252, TEXT_NORWEGIAN, false},
    {"nld", 1252, TEXT_DUTCH, false},
    {"ptg", 1252, TEXT_PORTUGUESE, false},
    {"csy", 1250, TEXT_CZECH, true},
    {"plk", 1250, TEXT_POLISH, true},
    {"kor", 949, TEXT_KOREAN, true},
    {"tha", 874, TEXT_THAI, true},
    {"hun", 1250, TEXT_HUNGARIAN, true},
    {"ell", 1253, TEXT_GREEK, true},
    {"trk", 1254, TEXT_TURKISH, true},
    {"rus", 1251, TEXT_RUSSIAN, true},
};

// The beginnings of the abbreviations of the system's languages. The first match counts, so more
// specific ones come first.
struct SystemLanguage {
    const char* beginning;
    const char* language;
};
constexpr SystemLanguage kSystemLanguages[] = {
    {"chs", "chs"}, {"cht", "cht"}, {"cs", "csy"}, {"da", "dan"}, {"de", "deu"}, {"el", "ell"},
    {"en", "enu"},  {"es", "esp"},  {"fi", "fin"}, {"fr", "fra"}, {"hu", "hun"}, {"it", "ita"},
    {"jpn", "jpn"}, {"ko", "kor"},  {"nl", "nld"}, {"no", "nor"}, {"pl", "plk"}, {"ptg", "ptg"},
    {"pt", "ptb"},  {"ru", "rus"},  {"sv", "sve"}, {"th", "tha"}, {"tr", "trk"},
};

void CopyLanguage(char (&to)[4], const char* from) {
    size_t length = 0;
    for (; length < sizeof to - 1 && from[length]; ++length) to[length] = from[length];
    to[length] = '\0';
}

bool SameLanguage(const char* a, const char* b) {
    return xstrnicmp(a, b, 4) == 0;
}

const prtlocale::Language* FindLanguage(const char* code) {
    for (const prtlocale::Language& language : kLanguages)
        if (SameLanguage(language.code, code)) return &language;
    return nullptr;
}

OString SystemText(LCTYPE fact) {
    WCHAR text[64] = {};
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, fact, text, 64) ? OString(text) : OString();
}

// The common start of the names of a language's files: the family's prefix, the second letter of
// the brand (the model writes "o" before its two letters) and the language.
OString FileStem(const prtmodel& model, const char* language) {
    const char* brand = model.GetOEM();
    OString stem(model.GetPrefix());
    if (std::strlen(brand) > 2) stem << brand + 2;
    stem << language;
    return stem;
}

OString LibraryName(const prtmodel& model, const char* language) {
    return FileStem(model, language) + ".dll";
}

OString HelpFileName(const prtmodel& model, const char* language) {
    return FileStem(model, language) + ".chm";
}

OString InDriverDirectory(const OString& name) {
    OString path = DriverUtility::GetDriverDirectory();
    path << "\\" << name;
    return path;
}

// The file of a language, or that of English if the driver's directory lacks it.
OString WithFallback(OString (*name_of)(const prtmodel&, const char*), const prtmodel& model,
                     const char* language) {
    OString name = name_of(model, language);
    if (!SameLanguage(language, kEnglish) && !OFile::Exists(InDriverDirectory(name)))
        name = name_of(model, kEnglish);
    return name;
}

} // namespace

std::span<const prtlocale::Language> prtlocale::Languages() {
    return kLanguages;
}

prtlocale::~prtlocale() {
    FreeLibraries();
}

void prtlocale::FreeLibraries() {
    for (HMODULE* library : {&primary_library_, &english_library_}) {
        if (*library) FreeLibrary(*library);
        *library = nullptr;
    }
}

void prtlocale::LoadSystem() {
    system_units_ = SystemText(LOCALE_IMEASURE) == "1" ? INCHES : MILLIMETRES;
    leading_zero_ = SystemText(LOCALE_ILZERO) == "1";
    decimal_separator_ = SystemText(LOCALE_SDECIMAL);
    thousands_separator_ = SystemText(LOCALE_STHOUSAND);
    CopyLanguage(system_language_, SystemText(LOCALE_SABBREVLANGNAME).nstring());
    ConvertSystemLanguage();
}

void prtlocale::ConvertSystemLanguage() {
    const char* language = kEnglish;
    for (const SystemLanguage& entry : kSystemLanguages) {
        const int length = static_cast<int>(std::strlen(entry.beginning));
        if (xstrnicmp(system_language_, entry.beginning, length) == 0) {
            language = entry.language;
            break;
        }
    }
    CopyLanguage(system_language_, language);
}

bool prtlocale::Load(prtreg& reg, prtmodel* model) {
    LoadSystem();
    units_ = reg.GetInt("UserSettings:Measurement System", SYSTEM_UNITS);
    CopyLanguage(user_language_, reg.GetString("UserSettings:Language", kFollowSystem).nstring());

    FreeLibraries();
    if (model) {
        const char* language = GetCurrentLanguage();
        if (!LanguageExists(model, language)) language = kEnglish;
        help_file_ = InDriverDirectory(WithFallback(HelpFileName, *model, language));
        primary_library_name_ = WithFallback(LibraryName, *model, language);
        english_library_name_ = LibraryName(*model, kEnglish);
        primary_library_ = LoadLibraryW(InDriverDirectory(primary_library_name_).tstring());
        english_library_ = LoadLibraryW(InDriverDirectory(english_library_name_).tstring());
    }
    init();
    return primary_library_ && english_library_;
}

bool prtlocale::Save(prtreg& reg) {
    reg.SetString("UserSettings:Language", user_language_);
    reg.SetInt("UserSettings:Measurement System", units_);
    return true;
}

const char* prtlocale::GetCurrentLanguage() const {
    return std::strcmp(user_language_, kFollowSystem) == 0 ? system_language_ : user_language_;
}

uint32_t prtlocale::GetCurrentCP() const {
    const Language* language = FindLanguage(GetCurrentLanguage());
    return language ? language->code_page : 0;
}

bool prtlocale::LanguageExists(prtmodel* model, const char* language) {
    if (SameLanguage(language, kEnglish)) return true;
    if (!model || !language) return false;
    const Language* known = FindLanguage(language);
    if (known && !IsValidCodePage(known->code_page)) return false;

    OString library = LibraryName(*model, language);
    library.MakeUpper();
    const OStringArray& files = model->GetDependentFiles();
    for (int i = 0; i < files.GetSize(); ++i) {
        OString file = files[i];
        file.MakeUpper();
        if (file.Find(library.tstring()) >= 0) return true;
    }
    return false;
}

bool prtlocale::SetNewLanguage(HWND owner, const char* language) {
    if (!language) return false;
    const Language* known = FindLanguage(language);
    if (known && known->is_asked && std::strcmp(language, system_language_) != 0) {
        const OString question = GetString(TEXT_LANGUAGE_WARNING), title = GetString(known->name);
        if (MessageBoxW(owner, question.tstring(), title.tstring(), MB_OKCANCEL) != IDOK)
            return false;
    }
    CopyLanguage(user_language_, language);
    return true;
}
