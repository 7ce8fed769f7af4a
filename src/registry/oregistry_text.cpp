#include "registry/oregistry_text.h"

#include "registry/oregistry.h"

namespace {

constexpr size_t kWrapAfter = 76;

// Adds a character of a text between double quotes.
void AddEscaped(WideText& line, WCHAR c) {
    if (c == '"' || c == '\\') line.Add('\\');
    line.Add(c);
}

OString Unescape(const WCHAR* text, size_t length) {
    WideText result;
    for (size_t i = 0; i < length; ++i) {
        const bool escape =
            text[i] == '\\' && i + 1 < length && (text[i + 1] == '"' || text[i + 1] == '\\');
        if (escape) ++i;
        result.Add(text[i]);
    }
    return result.String();
}

WCHAR UnitAt(const unsigned char* data, uint32_t i) {
    return static_cast<WCHAR>(data[i] | data[i + 1] << 8);
}

// The stored form of a string list of any bytes: without empty strings, terminated.
uint32_t PackMultiString(const unsigned char* data, uint32_t size, OBuffer<WCHAR>& packed) {
    WideText text;
    for (uint32_t i = 0; i + 1 < size; i += 2) text.Add(UnitAt(data, i));
    text.Add(WCHAR(0));
    text.Add(WCHAR(0));
    OBuffer<WCHAR> list;
    if (!list.Assign(text.Text(), static_cast<uint32_t>(text.Length()))) return 0;
    OStringArray strings;
    strings.Unpack(list, OPACK_LIST);
    return strings.Pack(packed, OPACK_LIST) * static_cast<uint32_t>(sizeof(WCHAR));
}

void PutHexByte(WCHAR* at, unsigned char byte) {
    static const char digits[] = "0123456789abcdef";
    at[0] = static_cast<WCHAR>(digits[byte >> 4]);
    at[1] = static_cast<WCHAR>(digits[byte & 15]);
}

bool SetBytes(OBuffer<unsigned char>& buffer, const void* data, size_t size) {
    return buffer.Assign(static_cast<const unsigned char*>(data), static_cast<uint32_t>(size));
}

bool IsBlank(WCHAR c) {
    return c == ' ' || c == '\t';
}

bool IsLineEnd(WCHAR c) {
    return IsBlank(c) || c == '\r' || c == '\n' || c == '\\';
}

} // namespace

void RegistryTextWriter::WriteKey(const OString& path) {
    line_.Clear();
    line_.Add('[');
    line_.Add(path);
    line_.Add(']');
    lines_.Add(line_);
}

void RegistryTextWriter::WriteEnd() {
    line_.Clear();
    lines_.Add(line_);
}

void RegistryTextWriter::WriteValue(const WCHAR* name, uint32_t type, const unsigned char* data,
                                    uint32_t size) {
    line_.Clear();
    line_.Add('"');
    for (; *name; ++name) AddEscaped(line_, *name);
    line_.Add('"');
    line_.Add('=');
    switch (type) {
    case REG_SZ:
        line_.Add('"');
        for (uint32_t i = 0; i + 1 < size && UnitAt(data, i); i += 2)
            AddEscaped(line_, UnitAt(data, i));
        line_.Add('"');
        break;
    case REG_DWORD:
        line_.AddAscii("dword:");
        for (int i = 3; i >= 0; --i) PutHexByte(line_.Extend(2), size == 4 ? data[i] : 0);
        break;
    case REG_MULTI_SZ: {
        OBuffer<WCHAR> packed;
        size = PackMultiString(data, size, packed);
        line_.AddAscii("hex(7):");
        AddHex(reinterpret_cast<const unsigned char*>(packed.GetData()), size);
        break;
    }
    case REG_BINARY:
        line_.AddAscii("hex:");
        AddHex(data, size);
        break;
    default:
        line_.AddAscii("hex(");
        line_.Add(OString() << type);
        line_.AddAscii("):");
        AddHex(data, size);
    }
    lines_.Add(line_);
}

// Adds the rest of a value as bytes. The line begins with the text before them, and has the last of
// them afterwards.
void RegistryTextWriter::AddHex(const unsigned char* data, uint32_t size) {
    for (uint32_t i = 0; i < size; ++i) {
        if (line_.Length() > kWrapAfter) {
            line_.Add('\\');
            lines_.Add(line_);
            line_.Clear();
            line_.AddAscii("  ");
        }
        const bool last = i + 1 == size;
        WCHAR* at = line_.Extend(last ? 2 : 3);
        PutHexByte(at, data[i]);
        if (!last) at[2] = ',';
    }
}

RegistryTextReader::Event RegistryTextReader::Read(const OString& line) {
    const WCHAR* text = line.wstring();
    auto length = static_cast<size_t>(line.wlen());
    while (length > 0 && IsLineEnd(text[length - 1])) --length;
    while (length > 0 && IsBlank(*text)) ++text, --length;

    if (inside_) {
        if (length == 0) {
            inside_ = false;
            return Nothing;
        }
        entry_.Add(text, length);
        // Bytes continue after a comma. After a long name they may even begin in the next line.
        const bool wrapped = text[length - 1] == ':' && text[length] == '\\';
        if (text[length - 1] == ',' || wrapped) return Nothing;
        const bool complete = ParseEntry();
        entry_.Clear();
        return complete ? StoreValue : Nothing;
    }

    if (length == 0 || *text != '[') return Nothing;
    ++text, --length;
    if (length > 0 && text[length - 1] == ']') --length;
    const bool deleted = length > 0 && *text == '-';
    if (deleted) ++text, --length;
    WideText key;
    key.Add(text, length);
    key_ = key.String();
    if (deleted) return DeleteKey;
    inside_ = true;
    entry_.Clear();
    return BeginKey;
}

bool RegistryTextReader::ParseEntry() {
    const WCHAR* text = entry_.Text();
    const size_t length = entry_.Length();

    // The name ends at its closing quote, one without a backslash before it. Other programs may not
    // escape names in their texts: there the first quote before an equals sign ends it.
    size_t end = length;
    bool escaped = *text == '"';
    for (size_t i = 1; escaped && i + 1 < length; ++i) {
        if (text[i] == '\\') {
            ++i;
        } else if (text[i] == '"' && text[i + 1] == '=') {
            end = i;
            break;
        }
    }
    if (end == length) {
        escaped = false;
        for (end = 0; end + 1 < length && (text[end] != '"' || text[end + 1] != '=');) ++end;
        if (end + 1 >= length) return false;
    }

    const size_t start = *text == '"' && end > 0 ? 1 : 0;
    if (escaped) {
        value_.name = Unescape(text + start, end - start);
    } else {
        WideText name;
        name.Add(text + start, end - start);
        value_.name = name.String();
    }
    return ParseData(text + end + 2, length - end - 2);
}

bool RegistryTextReader::ParseData(const WCHAR* text, size_t length) {
    if (length > 0 && *text == '"') {
        ++text, --length;
        if (length > 0 && text[length - 1] == '"') --length;
        const OString string = Unescape(text, length);
        value_.type = REG_SZ;
        const WCHAR* wide = string.wstring();
        return SetBytes(value_.data, wide,
                        (static_cast<size_t>(string.wlen()) + 1) * sizeof(WCHAR));
    }
    if (BeginsNoCase(text, "dword:")) {
        if (length < 6 + 8) return false;
        unsigned char bytes[4];
        for (int i = 0; i < 4; ++i) bytes[3 - i] = xtohex2(text[6 + 2 * i], text[7 + 2 * i]);
        value_.type = REG_DWORD;
        return SetBytes(value_.data, bytes, sizeof bytes);
    }
    if (!BeginsNoCase(text, "hex")) return false;

    value_.type = BeginsNoCase(text + 3, "(7)") ? REG_MULTI_SZ : REG_BINARY;
    size_t start = 0;
    while (start < length && text[start] != ':') ++start;
    if (start == length) return false;
    ++start;
    // A byte begins at every third character. One with a single digit is incomplete and does not
    // count.
    const size_t count = (length - start + 1) / 3;
    if (!value_.data.SetSize(static_cast<uint32_t>(count))) return false;
    for (size_t i = 0; i < count; ++i) {
        value_.data.GetData()[i] = xtohex2(text[start + 3 * i], text[start + 3 * i + 1]);
    }
    if (value_.type == REG_MULTI_SZ) {
        OBuffer<WCHAR> packed;
        const uint32_t size = PackMultiString(value_.data.GetData(), value_.data.GetSize(), packed);
        return size != 0 && SetBytes(value_.data, packed.GetData(), size);
    }
    return true;
}
