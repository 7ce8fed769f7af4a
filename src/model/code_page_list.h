// The code pages that the driver offers for printer text.
#pragma once

#include <cstdint>

#include "core/olist.h"
#include "core/ostring.h"

class CodePage : public ONode {
public:
    explicit CodePage(uint16_t number = 0);

    uint16_t code_page; // Windows number, or 1208 for UTF-8
    uint16_t listed_as; // the number that it was created with
    OString name;       // the number in decimal
    bool multi_byte;    // characters may take two bytes
    bool utf8;          // code page 1208
};

// A list of CodePage nodes, which it owns.
class CodePageList : public OList {
public:
    // A new CodePage 0, not in the list, or null without memory.
    ONode* NewNode() override;

    // Appends the Windows code pages: the Western one, the others with one byte a character, then
    // the East Asian ones. Existing entries stay.
    void Enumerate();
};
