// Languages and countries as Windows names them.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace win32host {

struct Language {
    const char* language;         // ISO 639
    const char* country;          // ISO 3166
    const char16_t* abbreviation; // Windows' three letters
    LANGID id;
};

// The entry for a locale's name ("fr_CA.UTF-8"): its language and country, else the language's
// first entry, else (for "C", "POSIX" and languages not listed) English of the United States.
const Language& LanguageOfLocale(std::string_view name);

// The entry with this abbreviation, or English of the United States.
const Language& LanguageOfAbbreviation(std::u16string_view abbreviation);

// The entry for an identifier; the language's first one if it names no country. Null if there is
// none.
const Language* LanguageOfId(LANGID id);

// The name in English: "German (Switzerland)".
std::string NameOf(const Language& language);

// The code pages of programs that do not use UTF-16: for windows (ANSI) and for consoles (OEM).
struct CodePages {
    UINT ansi, oem;
};
CodePages CodePagesOf(const Language& language);

} // namespace win32host
