// Options blocks: a printer's settings as text.
#include "core/ostring_array.h"
#include "settings/driver_settings.h"

namespace {

constexpr char kBlockStart[] = "<options model='";
constexpr char kBlockEnd[] = "</options>";
constexpr char kData[] = "DATA:";
constexpr char kBlanks[] = " \t\r\n";

bool IsKeyLine(const OString& line) {
    return line.wstring()[0] == '[';
}

bool StartsWith(const OString& text, const OString& start) {
    return text.Left(start.GetLength()).CompareNoCase(start) == 0;
}

OString BlockHeader(const char* model) {
    return OString(kBlockStart) << model << "'>";
}

// A key line "[key]" or "[-key]" whose key lies below another root. Names of keys, and so roots,
// match in either case.
OString ReplaceRoot(const OString& line, const OString& from, const OString& to) {
    line.wstring(); // from here on lengths and positions are those of the UTF-16 form
    from.wstring();
    const int start = line.wstring()[1] == '-' ? 2 : 1;
    const OString key = line.Mid(start);
    if (from.IsEmpty() || !StartsWith(key, from)) return line;
    return line.Left(start) << to << key.Mid(from.GetLength());
}

} // namespace

OString DriverSettings::DataPath() {
    return core_.registry->SubstituteWindowsSyntax(kData);
}

bool DriverSettings::Export(OFile& file, const char* model) {
    if (!core_.registry) return false;
    OStringArray lines;
    core_.registry->Export("Settings:", lines);
    const OString data_path = DataPath();

    file << BlockHeader(model) << OCore::endl;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const OString& line = lines[i];
        if (line.IsEmpty()) continue;
        file << (IsKeyLine(line) ? ReplaceRoot(line, data_path, kData) : line) << OCore::endl;
    }
    file << kBlockEnd << OCore::endl << OCore::endl;
    return true;
}

bool DriverSettings::Import(OFile& file, const char* model) {
    if (!core_.registry) return false;
    const OString header = BlockHeader(model);
    const OString data_path = DataPath();
    bool found = false;
    bool inside = false;
    OStringArray lines;

    file.Seek(0, FILE_BEGIN);
    OString line;
    line.SetCodePage(file.GetCodePage());
    while (file.ReadLine(line)) {
        line.TrimLeft(kBlanks);
        line.TrimRight(kBlanks);
        if (line.IsEmpty()) continue;
        if (StartsWith(line, kBlockStart)) {
            // A block that another one cuts off counts for nothing.
            inside = line == header;
            lines.SetSize(0);
        } else if (!inside) {
            continue;
        } else if (line == kBlockEnd) {
            lines.Add(OString());
            core_.registry->Import(lines);
            lines.SetSize(0);
            inside = false;
            found = true;
        } else if (IsKeyLine(line)) {
            lines.Add(OString()); // ends the key before it
            lines.Add(ReplaceRoot(line, kData, data_path));
        } else {
            lines.Add(line);
        }
    }
    return found;
}
