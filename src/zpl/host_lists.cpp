#include "zpl/host_lists.h"

#include <algorithm>
#include <string_view>

#include "core/numbers.h"
#include "core/ostring.h"
#include "zpl/answer_text.h"

namespace {

// Shorter lines are ends of texts.
constexpr int kShortestLine = 5;

// The columns of a directory.
constexpr int kNameColumn = 2, kNameWidth = 14;
constexpr int kSizeColumn = 17, kSizeWidth = 6;
constexpr int kFlagsColumn = 26, kFlagsWidth = 3;

// The columns of a configuration: the value comes first.
constexpr int kValueWidth = 22;

void Trim(OString& text, const char* set) {
    text.TrimLeft(set);
    text.TrimRight(set);
}

bool IsFile(const OString& line) {
    return line.Find(':', 1) > 0 && line.Find('.', 1) > 0 && line.nlen() >= kShortestLine;
}

OString FileEntry(const OString& line) {
    const char* text = line.nstring();
    OString entry = AnswerPart(text, kNameColumn, kNameWidth);
    entry.Remove(' ');
    entry << ";" << xtol(AnswerPart(text, kSizeColumn, kSizeWidth).nstring()) << ";"
          << AnswerPart(text, kFlagsColumn, kFlagsWidth);
    Trim(entry, " \t\r\n");
    return entry;
}

bool IsOnDeviceZ(const OString& entry) {
    return entry.nstring()[0] == 'Z';
}

// The name without its device, up to the semicolon.
std::string_view NameIn(const OString& entry) {
    const std::string_view text = entry.nstring();
    const size_t semicolon = std::min(text.find(';'), text.size());
    return semicolon > 2 ? text.substr(2, semicolon - 2) : std::string_view();
}

void AddFile(const OString& entry, OStringArray& files) {
    const std::string_view name = NameIn(entry);
    bool listed = false;
    for (int i = 0; i < files.GetSize(); ++i) {
        if (NameIn(files[i]) != name) continue;
        if (IsOnDeviceZ(files[i])) {
            listed = true;
        } else if (IsOnDeviceZ(entry)) {
            files[i] = entry;
            listed = true;
        }
    }
    if (!listed) files.Add(entry);
}

} // namespace

void ReadFileList(const char* answer, uint32_t size, OStringArray& files) {
    OStringArray lines;
    lines.Split(WithoutControls(answer, size), ";");
    if (lines.GetSize() <= 3) return;
    for (int i = 1; i < lines.GetSize(); ++i)
        if (IsFile(lines[i])) AddFile(FileEntry(lines[i]), files);
}

void ReadConfigurationList(const char* answer, uint32_t size, OStringArray& configuration) {
    if (!answer) return;
    OStringArray lines;
    lines.Split(AnswerText(answer, size), "\r\n");
    for (int i = 1; i < lines.GetSize(); ++i) {
        const char* text = lines[i].nstring();
        if (lines[i].nlen() < kShortestLine) continue;
        OString value = AnswerPart(text, 0, kValueWidth);
        OString label = AnswerPart(text, kValueWidth, lines[i].nlen());
        Trim(value, " .");
        Trim(label, " .");
        if (value.IsEmpty()) continue;
        configuration.Add(OString(label) << "@" << value);
    }
}
