#include "config/shared_keys_text.h"

#include "config/oregistry_names.h"
#include "config/oregistry_text.h"
#include "core/crc.h"
#include "core/lz77.h"

namespace {

// What is left of a path that is being taken apart, in Windows notation.
class Path {
public:
    explicit Path(const OString& path)
        : rest_(path.wstring()) {}

    // Takes whole names from the front, in any case.
    bool Take(const OString& names) {
        const OString wanted(names.wstring());
        if (wanted.IsEmpty() || rest_.Left(wanted.wlen()).CompareNoCase(wanted) != 0) return false;
        const WCHAR* behind = rest_.wstring() + wanted.wlen();
        if (*behind != '\\') return false;
        while (*behind == '\\') ++behind;
        rest_ = OString(behind);
        return true;
    }

    // Takes one name that begins with a character.
    bool TakeName(char first) {
        const WCHAR* text = rest_.wstring();
        if (*text != static_cast<WCHAR>(first)) return false;
        while (*text && *text != '\\') ++text;
        while (*text == '\\') ++text;
        rest_ = OString(text);
        return true;
    }

    // What follows; empty when that is no name.
    OString Rest() const {
        const WCHAR* text = rest_.wstring();
        int length = rest_.wlen();
        while (length > 0 && text[length - 1] == '\\') --length;
        return rest_.Left(length);
    }

private:
    OString rest_;
};

// Renames one key; empty when it is not shared.
OString Renamed(const OString& key, const OString& printer, const OString& data,
                const OString& local) {
    Path path(key);
    bool print = path.Take("HKEY_LOCAL_MACHINE\\SYSTEM\\CurrentControlSet\\Control\\Print");
    bool machine = !print && path.Take("HKEY_LOCAL_MACHINE\\SOFTWARE\\Valdrick\\Drivers");
    if (!print && !machine) {
        if (!path.Take("HKEY_CURRENT_USER\\Software\\Valdrick\\Drivers")) return OString();
        path.TakeName('@');
        print = path.Take("PRINT:");
        machine = !print && path.Take("LOCAL:");
    }
    if (print)
        print = path.Take("Printers") && path.Take(printer) && path.Take("PrinterDriverData");
    if (!print && !machine) return OString();
    const OString rest = path.Rest();
    if (rest.wlen() == 0) return OString();
    WideText renamed;
    renamed.Add(print ? data : local);
    renamed.Add('\\');
    renamed.Add(rest);
    return renamed.String();
}

} // namespace

void RenameSharedKeys(const OStringArray& lines, const OString& printer, const OString& data,
                      const OString& local, OStringArray& result) {
    RegistryTextReader reader;
    bool shared = false; // the key that is being read
    const auto add_key = [&](const char* start) {
        const OString key = Renamed(reader.Key(), printer, data, local);
        if (key.IsEmpty()) return false;
        // A key begins behind an empty line only; one that was left out may have ended without.
        const int last = result.GetSize() - 1;
        if (last >= 0 && *result[last].wstring()) result.Add(OString());
        WideText header;
        header.AddAscii(start);
        header.Add(key);
        header.Add(']');
        result.Add(header.String());
        return true;
    };
    for (int i = 0; i < lines.GetSize(); ++i) {
        switch (reader.Read(lines[i])) {
        case RegistryTextReader::BeginKey:
            shared = add_key("[");
            break;
        case RegistryTextReader::DeleteKey:
            add_key("[-");
            shared = false;
            break;
        case RegistryTextReader::StoreValue:
        case RegistryTextReader::Nothing:
            if (shared) result.Add(lines[i]);
            break;
        }
    }
}

uint32_t SharedKeysChecksum(const OStringArray& lines) {
    OBuffer<char> bytes;
    const uint32_t size = lines.Pack(bytes, OPACK_PLAIN);
    return CRC32(bytes.GetData(), size, 0);
}

bool PackSharedKeys(const OStringArray& lines, OBuffer<char>& bytes) {
    const uint32_t size = lines.Pack(bytes, OPACK_SIZE);
    return size != 0 && bytes.SetSize(size) && LZ77::Encode(bytes);
}

bool UnpackSharedKeys(const OBuffer<char>& bytes, OStringArray& lines) {
    OBuffer<char> list;
    if (!LZ77::Decode(bytes, list)) return false;
    lines.Unpack(list, OPACK_SIZE);
    return true;
}
