#include "qstmon/xpml.h"

namespace {

constexpr std::string_view kDocument = "<xpml>";
constexpr std::string_view kQueryEnd = "</query>";

bool IsSeparator(char c) {
    return c == ' ' || c == ',' || c == '\t' || c == '\r' || c == '\n';
}

bool EndsName(char c) {
    return IsSeparator(c) || c == '>' || c == '/' || c == '=';
}

std::string_view TakeName(std::string_view text, size_t& at) {
    const size_t first = at;
    while (at < text.size() && !EndsName(text[at])) ++at;
    return text.substr(first, at - first);
}

uint32_t Number(std::string_view text) {
    uint32_t number = 0;
    for (size_t i = 0; i < text.size() && i < 9 && text[i] >= '0' && text[i] <= '9'; ++i)
        number = number * 10 + static_cast<uint32_t>(text[i] - '0');
    return number;
}

// Takes the attributes up to the tag's end and moves `at` past it. False if the tag breaks off or
// is not a tag.
bool TakeAttributes(std::string_view text, size_t& at, XpmlTag& tag) {
    while (at < text.size()) {
        if (text[at] == '>') {
            ++at;
            return true;
        }
        if (IsSeparator(text[at]) || text[at] == '/') {
            ++at;
            continue;
        }
        const std::string_view name = TakeName(text, at);
        if (at + 1 >= text.size() || text[at] != '=') return false;
        const char quote = text[at + 1];
        if (quote != '\'' && quote != '"') return false;
        const size_t end = text.find(quote, at + 2);
        if (end == text.npos) return false;
        tag.attributes.emplace_back(name, text.substr(at + 2, end - at - 2));
        at = end + 1;
    }
    return false;
}

} // namespace

std::string_view XpmlTag::Attribute(std::string_view attribute) const {
    for (const auto& [its_name, value] : attributes)
        if (its_name == attribute) return value;
    return {};
}

std::optional<XpmlTag> NextTag(std::string_view document, size_t& at) {
    for (at = document.find('<', at); at != document.npos; at = document.find('<', at)) {
        ++at;
        if (at < document.size() && document[at] == '/') continue;
        XpmlTag tag;
        size_t behind = at;
        tag.name = TakeName(document, behind);
        if (tag.name.empty() || !TakeAttributes(document, behind, tag)) continue;
        at = behind;
        return tag;
    }
    at = document.size();
    return std::nullopt;
}

bool IsXpml(std::string_view document) {
    return document.substr(0, kDocument.size()) == kDocument;
}

std::vector<XpmlQuery> QueriesIn(std::string_view document) {
    std::vector<XpmlQuery> queries;
    size_t at = 0;
    while (const auto tag = NextTag(document, at)) {
        if (tag->name != "query") continue;
        const size_t end = document.find(kQueryEnd, at);
        if (end == document.npos) break;
        XpmlQuery query;
        query.name = tag->Attribute("name");
        query.command = document.substr(at, end - at);
        query.exact = !tag->Attribute("response_length").empty();
        query.length =
            Number(tag->Attribute(query.exact ? "response_length" : "response_estimate"));
        queries.push_back(query);
        at = end + kQueryEnd.size();
    }
    return queries;
}
