#include "zpl/host_lists.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <span>
#include <string_view>

#include "core/numbers.h"
#include "core/obuffer.h"
#include "core/ostring.h"
#include "zpl/answer_text.h"

namespace {

// Shorter lines are the ends of texts.
constexpr int kShortestLine = 5;

// The columns of a directory.
constexpr size_t kNameColumn = 2, kNameWidth = 14;
constexpr size_t kSizeColumn = 17, kSizeWidth = 6;
constexpr size_t kFlagsColumn = 26, kFlagsWidth = 3;

// The columns of a configuration: the value comes first.
constexpr int kValueWidth = 22;

void Trim(OString& text, const char* set) {
    text.TrimLeft(set);
    text.TrimRight(set);
}

bool IsFile(const OString& line) {
    return line.Find(':', 1) > 0 && line.Find('.', 1) > 0 && line.nlen() >= kShortestLine;
}

std::string_view Column(std::string_view line, size_t start, size_t width) {
    return start < line.size() ? line.substr(start, width) : std::string_view();
}

OString FileEntry(const OString& line) {
    const std::string_view text = line.nstring();
    char name[kNameWidth + 1] = {}, size[kSizeWidth + 1] = {}, flags[kFlagsWidth + 1] = {};
    const std::string_view name_column = Column(text, kNameColumn, kNameWidth);
    std::remove_copy(name_column.begin(), name_column.end(), name, ' ');
    Column(text, kSizeColumn, kSizeWidth).copy(size, kSizeWidth);
    size_t kept = Column(text, kFlagsColumn, kFlagsWidth).copy(flags, kFlagsWidth);
    while (kept > 0 && flags[kept - 1] == ' ') flags[--kept] = '\0';
    char entry[kNameWidth + 16 + kFlagsWidth];
    std::snprintf(entry, sizeof entry, "%s;%d;%s", name, static_cast<int>(xtol(size)), flags);
    return OString(entry);
}

bool IsOnDeviceZ(const OString& entry) {
    return entry.nstring()[0] == 'Z';
}

// The part of the name between the device and the semicolon.
std::string_view NameIn(const OString& entry) {
    const std::string_view text = entry.nstring();
    const size_t semicolon = std::min(text.find(';'), text.size());
    return semicolon > 2 ? text.substr(2, semicolon - 2) : std::string_view();
}

// Marks the files to leave out among those of one name. `group` has their indices in ascending
// order; those below `listed` were in the list before.
void HideOthers(std::span<const int> group, int listed, OStringArray& files, OBuffer<char>& out) {
    int kept = 0; // how many at the front of the group are in the list by now
    bool hidden = false;
    for (const int file : group) {
        const bool made_with = IsOnDeviceZ(files[file]);
        if (file >= listed && (hidden || (made_with && kept > 0))) {
            // It replaces all the others.
            for (int i = 0; !hidden && i < kept; ++i)
                files[group[static_cast<size_t>(i)]] = files[file];
            out.GetData()[file] = true;
        } else {
            ++kept;
        }
        hidden |= made_with;
    }
}

} // namespace

void ReadFileList(const char* answer, uint32_t size, OStringArray& files) {
    OStringArray lines;
    lines.Split(WithoutControls(answer, size), ";");
    if (lines.GetSize() <= 3) return;
    const int listed = files.GetSize();
    for (int i = 1; i < lines.GetSize(); ++i)
        if (IsFile(lines[i])) files.Add(FileEntry(lines[i]));

    const auto count = static_cast<uint32_t>(files.GetSize());
    OBuffer<int> order(count);
    OBuffer<char> out(count);
    if (order.GetSize() != count || out.GetSize() != count) return;
    std::iota(order.GetData(), order.GetData() + count, 0);
    std::sort(order.GetData(), order.GetData() + count, [&files](int a, int b) {
        const int names = NameIn(files[a]).compare(NameIn(files[b]));
        return names != 0 ? names < 0 : a < b;
    });
    std::fill_n(out.GetData(), count, '\0');
    const std::span<const int> sorted(order.GetData(), count);
    for (size_t start = 0, end = 0; start < sorted.size(); start = end) {
        const std::string_view name = NameIn(files[sorted[start]]);
        for (end = start + 1; end < sorted.size() && NameIn(files[sorted[end]]) == name;) ++end;
        HideOthers(sorted.subspan(start, end - start), listed, files, out);
    }

    int kept = 0;
    for (int i = 0; i < files.GetSize(); ++i)
        if (!out.GetData()[i]) files[kept++] = files[i];
    if (kept < files.GetSize()) files.RemoveAt(kept, files.GetSize() - kept);
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
