// Any bytes as the text of a table. The index must find the same sections as a walk over all lines.
#include "model/table_text.h"
#include "target.h"

#include <cstdlib>
#include <string>

namespace {

std::string Indexed(const TableText& text, const std::string& section) {
    std::string lines;
    text.ReadSection(section.c_str(), [&lines](const char* line, uint32_t length) {
        lines.append(line, length) += '\n';
    });
    return lines;
}

std::string Walked(const TableText& text, const std::string& section) {
    const std::string opening = "[" + section + "]";
    std::string lines;
    bool reading = false;
    for (uint32_t i = 0; i < text.GetLineCount(); ++i) {
        const std::string line = text.GetLine(i).nstring();
        if (line == opening || line == "[.default]")
            reading = true;
        else if (line.empty() || line[0] == '!')
            continue;
        else if (line[0] == '[')
            reading = false;
        else if (reading)
            lines.append(line) += '\n';
    }
    return lines;
}

} // namespace

FUZZ_TARGET(table_text)(const uint8_t* data, size_t size) {
    TableText text;
    text.Parse(data, static_cast<uint32_t>(size));
    for (const char* section : {"M", ".default", "", "N]"})
        if (Indexed(text, section) != Walked(text, section)) std::abort();
    return 0;
}
