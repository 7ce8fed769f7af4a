// The languages and countries as Windows names them.
#pragma once

#include <windows.h>

#include <string_view>

namespace win32host {

struct Language {
    const char* language;         // ISO 639
    const char* country;          // ISO 3166
    const char16_t* abbreviation; // Windows' three letters
    LANGID id;
};

// The entry of a locale's name ("fr_CA.UTF-8"): its language and country, else the language's first
// entry, else (for "C", "POSIX" and languages not listed) English of the United States.
const Language& LanguageOfLocale(std::string_view name);

// The entry with an abbreviation, English of the United States when there is none.
const Language& LanguageOfAbbreviation(std::u16string_view abbreviation);

// The entry of an identifier, the language's first one when it names no country; null for none.
const Language* LanguageOfId(LANGID id);

// The code pages of programs that know no other texts, those of windows and of consoles.
struct CodePages {
    UINT ansi, oem;
};
CodePages CodePagesOf(const Language& language);

} // namespace win32host
