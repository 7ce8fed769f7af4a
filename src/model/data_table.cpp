#include "model/data_table.h"

#include <algorithm>

namespace {

// Part of a line.
struct Span {
    const char* begin;
    const char* end;
};

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

OString Trimmed(Span span) {
    while (span.begin != span.end && IsBlank(*span.begin)) ++span.begin;
    while (span.begin != span.end && IsBlank(span.end[-1])) --span.end;
    OString text;
    text.Insert(0, span.begin, static_cast<int>(span.end - span.begin));
    return text;
}

} // namespace

ODataTable::ODataTable(OResourceFile* file, const OString& table, const OString& section) {
    OResource* resource = file ? file->Find(table + ".d") : nullptr;
    if (!resource) return;
    resource->GetTextData().ReadSection(
        section, [this](const char* line, uint32_t length) { Apply(line, length); });
}

void ODataTable::Apply(const char* line, uint32_t length) {
    const char* const end = line + length;
    static constexpr char kAppend[] = {'+', '='};
    const char* const append = std::search(line, end, kAppend, kAppend + 2);
    if (append != end) {
        const OString key = Trimmed({line, append});
        const OString value = Trimmed({append + 2, end});
        OString joined = GetString(key, OString());
        if (!joined.IsEmpty()) joined << ",";
        joined << value;
        SetString(key, joined);
        return;
    }
    const char* const equals = std::find(line, end, '=');
    if (equals != end) SetString(Trimmed({line, equals}), Trimmed({equals + 1, end}));
}
