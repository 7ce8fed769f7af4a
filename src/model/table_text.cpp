#include "model/table_text.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr char kDefaultSection[] = "[.default]";

} // namespace

void TableText::Parse(const void* data, uint32_t size) {
    if (data && size > 0 && ParseLines(static_cast<const char*>(data), size) && ParseBlocks())
        return;
    *this = TableText();
}

bool TableText::ParseLines(const char* data, uint32_t size) {
    if (const void* end = std::memchr(data, '\0', size))
        size = static_cast<uint32_t>(static_cast<const char*>(end) - data);
    const char* const end = data + size;
    const auto line_ends = static_cast<uint32_t>(std::count(data, end, '\n'));
    if (!text_.SetSize(size) || !lines_.SetSize(line_ends + 1)) return false;

    uint32_t used = 0;
    uint32_t count = 0;
    Line line = {0, 0};
    for (const char* at = data; at != end; ++at) {
        if (*at == '\n') {
            lines_[count++] = line;
            line = {used, 0};
        } else if (*at != '\r') {
            text_[used++] = *at;
            ++line.length;
        }
    }
    if (line.length > 0) lines_[count++] = line;
    return lines_.SetSize(count);
}

bool TableText::ParseBlocks() {
    const auto is_bracket = [this](const Line& line) {
        return line.length > 0 && text_[line.start] == '[';
    };
    const uint32_t lines = lines_.GetSize();
    if (lines == 0) return true;
    const auto brackets = std::count_if(&lines_[0], &lines_[0] + lines, is_bracket);
    if (!blocks_.SetSize(static_cast<uint32_t>(brackets))) return false;
    uint32_t count = 0;
    for (uint32_t i = 0; i < lines; ++i) {
        if (!is_bracket(lines_[i])) continue;
        if (count > 0) blocks_[count - 1].last = i;
        blocks_[count++] = {i, lines};
    }
    if (count == 0) return true;
    std::sort(&blocks_[0], &blocks_[0] + count, [this](const Block& a, const Block& b) {
        const Line& other = lines_[b.first];
        const int order = Compare(lines_[a.first], text_.GetData() + other.start, other.length);
        return order != 0 ? order < 0 : a.first < b.first;
    });
    return true;
}

int TableText::Compare(const Line& line, const char* text, uint32_t length) const {
    const int order =
        std::memcmp(text_.GetData() + line.start, text, std::min(line.length, length));
    if (order != 0 || line.length == length) return order;
    return line.length < length ? -1 : 1;
}

TableText::Range TableText::Find(const char* text, uint32_t length) const {
    const Block* const begin = blocks_.GetData();
    const Block* const end = begin + blocks_.GetSize();
    const Block* const first = std::partition_point(begin, end, [&](const Block& block) {
        return Compare(lines_[block.first], text, length) < 0;
    });
    const Block* const last = std::partition_point(first, end, [&](const Block& block) {
        return Compare(lines_[block.first], text, length) == 0;
    });
    return {static_cast<uint32_t>(first - begin), static_cast<uint32_t>(last - begin)};
}

TableText::Range TableText::FindSection(const OString& section) const {
    OString name("["); // in code page 0, as the text is
    name << section << "]";
    const char* text = name.nstring();
    return Find(text, static_cast<uint32_t>(std::strlen(text)));
}

TableText::Range TableText::FindDefault() const {
    return Find(kDefaultSection, sizeof(kDefaultSection) - 1);
}

OString TableText::GetLine(uint32_t index) const {
    const Line& line = lines_[index];
    OString text;
    if (line.length > 0)
        text.Insert(0, text_.GetData() + line.start, static_cast<int>(line.length));
    return text;
}
