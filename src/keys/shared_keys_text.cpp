#include "keys/shared_keys_text.h"

#include <algorithm>

#include "core/crc.h"
#include "core/lz77.h"
#include "registry/oregistry_names.h"

namespace {

// The rest of a path that is being split, in Windows notation.
class Path {
public:
    explicit Path(const OString& path)
        : rest_(path.wstring()) {}

    // Takes complete names from the front, in any case.
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

    // The remaining text, or empty if it is not a name.
    OString Rest() const {
        const WCHAR* text = rest_.wstring();
        int length = rest_.wlen();
        while (length > 0 && text[length - 1] == '\\') --length;
        return rest_.Left(length);
    }

private:
    OString rest_;
};

// Renames one key. Empty if it is not shared.
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

bool IsAscii(const WideText& line) {
    return std::none_of(line.Text(), line.Text() + line.Length(), [](WCHAR c) { return c > 127; });
}

// Whether a line comes back as it was from its 8-bit form.
bool Survives(const WideText& line) {
    if (IsAscii(line)) return true;
    const OString text = line.String();
    const OString back(text.nstring());
    return back == text;
}

// Sums lines up as they come.
class LineChecksum final : public RegistryLines {
public:
    void Add(const WideText& line) override {
        const WCHAR* text = line.Text();
        const WCHAR* end = text + line.Length();
        if (!IsAscii(line)) {
            // What the code page makes of it.
            Flush();
            const OString converted = line.String();
            const char* bytes = converted.nstring();
            sum_.CRC32(bytes, static_cast<uint32_t>(converted.nlen()) + 1);
            return;
        }
        ++end; // including the terminator
        while (text < end) {
            const size_t part =
                std::min<size_t>(static_cast<size_t>(end - text), sizeof waiting_ - waiting_size_);
            std::transform(text, text + part, waiting_ + waiting_size_,
                           [](WCHAR c) { return static_cast<char>(c); });
            text += part;
            waiting_size_ += part;
            if (waiting_size_ == sizeof waiting_) Flush();
        }
    }
    uint32_t Sum() {
        Flush();
        return sum_.GetValue();
    }

private:
    void Flush() {
        sum_.CRC32(waiting_, static_cast<uint32_t>(waiting_size_));
        waiting_size_ = 0;
    }

    CRC32_Calculator sum_{0};
    char waiting_[4096];
    size_t waiting_size_ = 0;
};

} // namespace

void RenameSharedKeys(const OStringArray& lines, const OString& printer, const OString& data,
                      const OString& local, OStringArray& result) {
    RegistryTextReader reader;
    bool shared = false; // the key that is being read
    const auto add_key = [&](const char* start) {
        const OString key = Renamed(reader.Key(), printer, data, local);
        if (key.IsEmpty()) return false;
        // A key begins only after an empty line. One that was left out may have ended without it.
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

void SurvivingLines::Add(const WideText& line) {
    switch (*line.Text()) {
    case '[':
        left_out_ = key_left_out_ = !Survives(line);
        break;
    case '"':
        left_out_ = key_left_out_ || !Survives(line);
        break;
    case 0: // the end of the key
        left_out_ = key_left_out_;
        break;
    default: // the rest of a value
        break;
    }
    if (!left_out_) lines_.Add(line.String());
}

uint32_t SharedKeysChecksum(const OStringArray& lines) {
    OBuffer<char> bytes;
    const uint32_t size = lines.Pack(bytes, OPACK_PLAIN);
    return CRC32(bytes.GetData(), size, 0);
}

uint32_t SharedKeysChecksum(ORegistry& registry, const OString& key) {
    LineChecksum checksum;
    registry.Export(key, checksum);
    return checksum.Sum();
}

bool PackSharedKeys(const OStringArray& lines, OBuffer<char>& bytes) {
    const uint32_t size = lines.Pack(bytes, OPACK_SIZE);
    return size != 0 && bytes.SetSize(size) && LZ77::Encode(bytes);
}

bool UnpackSharedKeys(const OBuffer<char>& bytes, OStringArray& lines) {
    OBuffer<char> list;
    if (!LZ77::Decode(bytes, list, kMaxSharedKeyText)) return false;
    const char* const text = list.GetData();
    if (std::count(text, text + list.GetSize(), '\0') > kMaxSharedKeyLines) return false;
    lines.Unpack(list, OPACK_SIZE);
    return true;
}
