// The texts of the module's version resource.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "core/ostring.h"

struct CopyrightYears {
    int32_t start = 0;
    int32_t end = 0;
};

// "(c) 2001-2004 Maker" is 2001 to 2004, "(c) 2004 Maker" is 2004 to 2004; zeros without a year.
// The first 1 or 2 in the text begins the first year.
CopyrightYears ReadCopyrightYears(const OString& notice);

// Reads the resource on first use. Texts that it lacks are empty.
class VersionInfo {
public:
    // Reads the resource unless that was done. False if it cannot be read.
    bool Load();

    // A text of the resource by its name: "ProductVersion".
    OString GetText(const char* name);

    // The copyright notice for a language with this code page. In 1252 it has the copyright sign in
    // place of "(c)" and the character after it.
    OString GetCopyright(uint32_t code_page);

private:
    std::unique_ptr<BYTE[]> block_;
};
