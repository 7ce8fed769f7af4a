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

} // namespace win32host
