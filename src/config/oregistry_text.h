// The text form of registry keys: that of Windows registry files.
#pragma once

#include <windows.h>

#include "config/oregistry_names.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// One value of a key.
struct RegistryValue {
    OString name;
    uint32_t type = REG_NONE;
    OBuffer<unsigned char> data;
};

// Appends the lines of one value: "name"="text", "name"=dword:..., or "name"=hex...: with its
// bytes, wrapped behind 76 characters. Strings and numbers stored with too few or too many bytes
// are written as the part of them that can be read.
void FormatRegistryValue(const OString& name, uint32_t type, const unsigned char* data,
                         uint32_t size, OStringArray& lines);

// Reads the text form line by line. Whatever it does not understand it skips.
class RegistryTextReader {
public:
    enum Event {
        Nothing,    // the line completes nothing
        BeginKey,   // Key() begins: the values that follow belong to it
        DeleteKey,  // Key() is to be deleted
        StoreValue, // Value() is complete
    };

    // Takes the next line, with or without its line end.
    Event Read(const OString& line);

    // The key in Windows notation.
    const OString& Key() const { return key_; }

    // The value in the type and bytes that are to be stored: REG_SZ with its terminator, REG_DWORD,
    // REG_MULTI_SZ or REG_BINARY.
    const RegistryValue& Value() const { return value_; }

private:
    bool ParseEntry();
    bool ParseData(const WCHAR* text, size_t length);

    bool inside_ = false;
    WideText entry_; // of a value that goes on in the next line
    OString key_;
    RegistryValue value_;
};
