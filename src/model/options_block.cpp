#include "model/options_block.h"

namespace {

constexpr char kBlockStart[] = "<options model='";
constexpr char kBlockEnd[] = "</options>";
constexpr char kData[] = "DATA:";
constexpr char kAroundLines[] = " \t\r\n";

bool IsKeyLine(const OString& line) {
    return line.wstring()[0] == '[';
}

bool StartsWith(const OString& text, const OString& start) {
    start.wstring(); // the length must be that of the UTF-16 form
    return text.Left(start.GetLength()).CompareNoCase(start) == 0;
}

OString BlockHeader(const char* model) {
    return OString(kBlockStart) << model << "'>";
}

// Puts the key of a key line, "[key]" or "[-key]", below another root. Names of keys, and so roots,
// match in any case.
OString ReplaceRoot(const OString& line, const OString& from, const OString& to) {
    const int start = line.wstring()[1] == '-' ? 2 : 1;
    const OString key = line.Mid(start);
    if (from.IsEmpty() || !StartsWith(key, from)) return line;
    return line.Left(start) << to << key.Mid(from.GetLength());
}

// Whether a key line names a key below another one.
bool IsBelow(const OString& line, const OString& root) {
    const int start = line.wstring()[1] == '-' ? 2 : 1;
    const OString key = line.Mid(start);
    if (root.IsEmpty() || !StartsWith(key, root)) return false;
    const WCHAR* rest = key.wstring() + root.wlen();
    if (*rest != '\\') return false;
    while (*rest == '\\') ++rest;
    return *rest && *rest != ']';
}

} // namespace

void WriteOptionsBlock(OCore::OStream& stream, const char* model, const OStringArray& lines,
                       const OString& data_path) {
    stream << BlockHeader(model) << OCore::endl;
    for (int i = 0; i < lines.GetSize(); ++i) {
        const OString& line = lines[i];
        if (line.IsEmpty()) continue;
        stream << (IsKeyLine(line) ? ReplaceRoot(line, data_path, kData) : line) << OCore::endl;
    }
    stream << kBlockEnd << OCore::endl << OCore::endl;
}

OptionsBlockReader::OptionsBlockReader(const char* model, const OString& data_path)
    : header_(BlockHeader(model))
    , data_path_(data_path) {}

bool OptionsBlockReader::Read(const OString& text) {
    OString line(text);
    line.TrimLeft(kAroundLines);
    line.TrimRight(kAroundLines);
    if (line.IsEmpty()) return false;
    if (StartsWith(line, kBlockStart)) {
        inside_ = line == header_;
        foreign_ = false;
        lines_.SetSize(0);
        return false;
    }
    if (!inside_) return false;
    if (line == kBlockEnd) {
        lines_.Add(OString());
        inside_ = false;
        return true;
    }
    if (IsKeyLine(line)) {
        line = ReplaceRoot(line, kData, data_path_);
        foreign_ = !IsBelow(line, data_path_);
        if (!foreign_) lines_.Add(OString()); // ends the key before it
    }
    if (!foreign_) lines_.Add(line);
    return false;
}
