// GetLocaleInfoW: the user's locale, from the environment or as a test sets it, and those of other
// languages.
#include "locale/facts.h"
#include "locale/languages.h"

#include <windows.h>

#include "host/guarded.h"
#include "host/text.h"

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <iconv.h>
#include <langinfo.h>

namespace win32host {
namespace {

std::mutex g_locale_lock;
std::optional<LocaleFacts> g_facts; // set, or read from the environment on first use

// The environment's name for the locale of a category.
std::string LocaleName(const char* category) {
    for (const char* variable : {"LC_ALL", category, "LANG"})
        if (const char* name = std::getenv(variable); name && *name) return name;
    return "C";
}

bool IsNeutral(const std::string& name) {
    const std::string base = name.substr(0, name.find_first_of(".@"));
    return base == "C" || base == "POSIX";
}

// One of the machine's locales for one category, or nothing if it is not installed.
class HostLocale {
public:
    HostLocale(int mask, const std::string& name)
        : locale_(newlocale(mask, name.c_str(), nullptr)) {}
    ~HostLocale() {
        if (locale_) freelocale(locale_);
    }
    HostLocale(const HostLocale&) = delete;
    HostLocale& operator=(const HostLocale&) = delete;

    explicit operator bool() const { return locale_ != nullptr; }
    const char* Item(nl_item item) const { return nl_langinfo_l(item, locale_); }

private:
    locale_t locale_;
};

std::u16string FromCodeset(const char* text, const char* codeset) {
    const iconv_t descriptor = iconv_open("UTF-8", codeset);
    if (descriptor == reinterpret_cast<iconv_t>(-1)) return Utf16(text);
    char utf8[64];
    char *from = const_cast<char*>(text), *to = utf8;
    size_t left = std::strlen(text), room = sizeof utf8;
    iconv(descriptor, &from, &left, &to, &room);
    iconv_close(descriptor);
    return Utf16({utf8, sizeof utf8 - room});
}

// The facts from the locales of three categories.
LocaleFacts FactsOf(const std::string& messages, const std::string& measurement,
                    const std::string& numeric) {
    LocaleFacts facts;
    facts.abbreviation = LanguageOfLocale(messages).abbreviation;

    const HostLocale units(LC_MEASUREMENT_MASK, measurement);
    if (IsNeutral(measurement) || !units) {
        facts.inches = std::string_view(LanguageOfLocale(measurement).country) == "US";
    } else {
        facts.inches = *units.Item(_NL_MEASUREMENT_MEASUREMENT) == 2;
    }

    const HostLocale numbers(LC_NUMERIC_MASK | LC_CTYPE_MASK, numeric);
    if (!IsNeutral(numeric) && numbers) {
        const char* codeset = numbers.Item(CODESET);
        facts.decimal = FromCodeset(numbers.Item(RADIXCHAR), codeset);
        facts.thousands = FromCodeset(numbers.Item(THOUSEP), codeset);
    }
    return facts;
}

// The user's.
LocaleFacts Facts() {
    std::lock_guard guard(g_locale_lock);
    if (!g_facts)
        g_facts = FactsOf(LocaleName("LC_MESSAGES"), LocaleName("LC_MEASUREMENT"),
                          LocaleName("LC_NUMERIC"));
    return *g_facts;
}

// A language's own facts, whatever the user prefers.
LocaleFacts Facts(const Language& language) {
    const std::string name = std::string(language.language) + "_" + language.country + ".UTF-8";
    return FactsOf(name, name, name);
}

std::u16string Number(UINT number) {
    return Utf16(std::to_string(number));
}

// A fact as text and, if it is one, as the number that LOCALE_RETURN_NUMBER asks for.
struct Fact {
    std::u16string text;
    std::optional<DWORD> number;
};

Fact NumberFact(DWORD number) {
    return {Number(number), number};
}

std::optional<Fact> FindFact(const LocaleFacts& facts, const Language& language,
                             const CodePages& code_pages, LCTYPE type) {
    switch (type) {
    case LOCALE_IMEASURE:
        return NumberFact(facts.inches);
    case LOCALE_ILZERO:
        return NumberFact(facts.leading_zero);
    case LOCALE_SDECIMAL:
        return Fact{facts.decimal, {}};
    case LOCALE_STHOUSAND:
        return Fact{facts.thousands, {}};
    case LOCALE_SLANGUAGE:
        return Fact{Utf16(NameOf(language)), {}};
    case LOCALE_SABBREVLANGNAME:
        return Fact{facts.abbreviation, {}};
    case LOCALE_SISO639LANGNAME:
        return Fact{Utf16(language.language), {}};
    case LOCALE_SISO3166CTRYNAME:
        return Fact{Utf16(language.country), {}};
    case LOCALE_ILANGUAGE: {
        WCHAR text[8];
        wsprintfW(text, u"%04x", language.id);
        return Fact{text, language.id};
    }
    case LOCALE_IDEFAULTANSICODEPAGE:
        return NumberFact(code_pages.ansi);
    case LOCALE_IDEFAULTCODEPAGE:
        return NumberFact(code_pages.oem);
    default:
        return std::nullopt;
    }
}

bool IsTheUsers(LCID locale) {
    return locale == LOCALE_NEUTRAL || locale == LOCALE_USER_DEFAULT ||
           locale == LOCALE_SYSTEM_DEFAULT || locale == GetUserDefaultLCID();
}

} // namespace

void SetLocaleFacts(const LocaleFacts& facts) {
    std::lock_guard guard(g_locale_lock);
    g_facts = facts;
}

void UseProcessLocale() {
    std::lock_guard guard(g_locale_lock);
    g_facts.reset();
}

} // namespace win32host

using namespace win32host;

extern "C" {

int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR buffer, int size) {
    return Guarded(0, [&] {
        const bool users = IsTheUsers(locale);
        const Language* language =
            LanguageOfId(users ? GetUserDefaultLangID() : LANGIDFROMLCID(locale));
        if (!language || size < 0 || (size > 0 && !buffer)) return Fail(ERROR_INVALID_PARAMETER);
        const bool preferred = users && !(type & LOCALE_NOUSEROVERRIDE);
        const LocaleFacts facts = preferred ? Facts() : Facts(*language);
        const CodePages code_pages =
            users ? CodePages{GetACP(), GetOEMCP()} : CodePagesOf(*language);
        constexpr LCTYPE modifiers =
            LOCALE_NOUSEROVERRIDE | LOCALE_USE_CP_ACP | LOCALE_RETURN_NUMBER;
        const std::optional<Fact> fact = FindFact(facts, *language, code_pages, type & ~modifiers);
        const bool as_number = (type & LOCALE_RETURN_NUMBER) != 0;
        if (!fact || (as_number && !fact->number)) return Fail(ERROR_INVALID_FLAGS);

        const void* data = fact->text.c_str();
        int units = static_cast<int>(fact->text.size()) + 1;
        if (as_number) {
            data = &*fact->number;
            units = sizeof(DWORD) / sizeof(WCHAR);
        }
        if (size == 0) return units;
        if (size < units) return Fail(ERROR_INSUFFICIENT_BUFFER);
        std::memcpy(buffer, data, static_cast<size_t>(units) * sizeof(WCHAR));
        return units;
    });
}

LANGID WINAPI GetUserDefaultLangID(void) {
    return Guarded(LANGID{0x0409}, [] { return LanguageOfAbbreviation(Facts().abbreviation).id; });
}

LCID WINAPI GetUserDefaultLCID(void) {
    return MAKELCID(GetUserDefaultLangID(), SORT_DEFAULT);
}

} // extern "C"
