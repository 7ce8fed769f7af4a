// The documents that the configuration module writes to its status monitor: "<xpml>...</xpml>".
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One tag: <name attribute='value' attribute="value">. Attributes may be separated by blanks and
// commas; a tag may end in "/>".
struct XpmlTag {
    std::string_view name;
    std::vector<std::pair<std::string_view, std::string_view>> attributes;

    // Empty if there is no such attribute.
    std::string_view Attribute(std::string_view attribute) const;
};

// The next tag from `at` on that is not a closing one; moves `at` past it. Nothing if there is no
// further tag, or only one that breaks off. The tag's texts point into `document`.
std::optional<XpmlTag> NextTag(std::string_view document, size_t& at);

// True if a document or a job starts like one of these.
bool IsXpml(std::string_view document);

// One question of a query job.
struct XpmlQuery {
    std::string_view name;
    std::string_view command; // the bytes for the printer
    uint32_t length = 0;      // of the answer, as the asker expects it
    bool exact = false;       // the length is not an estimate
};

// The questions of a query job, in their order. A job that breaks off has those that are complete.
std::vector<XpmlQuery> QueriesIn(std::string_view document);
