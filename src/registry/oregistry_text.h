// The text form of registry keys, that of Windows registry files.
#pragma once

#include <windows.h>

#include "core/obuffer.h"
#include "core/ostring.h"
#include "core/ostring_array.h"
#include "registry/oregistry_names.h"

// One value of a key.
struct RegistryValue {
    OString name;
    uint32_t type = REG_NONE;
    OBuffer<unsigned char> data;
};

// Takes the lines of the text form as they are made, without line ends.
class RegistryLines {
public:
    virtual void Add(const WideText& line) = 0;

protected:
    ~RegistryLines() = default;
};

// Appends them to an array.
class RegistryLineArray final : public RegistryLines {
public:
    explicit RegistryLineArray(OStringArray& lines)
        : lines_(lines) {}
    void Add(const WideText& line) override { lines_.Add(line.String()); }

private:
    OStringArray& lines_;
};

// Makes the lines of values, one after the other.
class RegistryTextWriter {
public:
    explicit RegistryTextWriter(RegistryLines& lines)
        : lines_(lines) {}

    // [path], with the path in Windows notation.
    void WriteKey(const OString& path);

    // "name"="text", "name"=dword:..., or "name"=hex...: with its bytes, wrapped after 76
    // characters. Strings and numbers stored with too few or too many bytes are written as far as
    // they can be read.
    void WriteValue(const WCHAR* name, uint32_t type, const unsigned char* data, uint32_t size);

    // The empty line after the values of a key.
    void WriteEnd();

private:
    void AddHex(const unsigned char* data, uint32_t size);

    RegistryLines& lines_;
    WideText line_;
};

// Reads the text form line by line. It skips whatever it does not understand.
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

    // The value in the type and bytes to be stored: REG_SZ with its terminator, REG_DWORD,
    // REG_MULTI_SZ or REG_BINARY.
    const RegistryValue& Value() const { return value_; }

private:
    bool ParseEntry();
    bool ParseData(const WCHAR* text, size_t length);

    bool inside_ = false;
    WideText entry_; // of a value that continues in the next line
    OString key_;
    RegistryValue value_;
};
