#include "zpl/object_name.h"

#include <algorithm>

namespace {

std::string Upper(std::string text, size_t longest) {
    text.resize(std::min(text.size(), longest));
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return text;
}

// Patterns are at most eight characters long.
bool MatchesPart(const char* text, const char* pattern) {
    if (*pattern == '*')
        return MatchesPart(text, pattern + 1) || (*text && MatchesPart(text + 1, pattern));
    if (!*text || !*pattern) return *text == *pattern;
    return (*pattern == '?' || *pattern == *text) && MatchesPart(text + 1, pattern + 1);
}

} // namespace

ObjectName::ObjectName(const std::string& text) {
    std::string rest = text;
    if (rest.size() >= 2 && rest[1] == ':') {
        device = Upper(rest.substr(0, 1), 1)[0];
        rest.erase(0, 2);
    }
    const size_t dot = rest.find('.');
    name = Upper(rest.substr(0, dot), 8);
    if (dot != std::string::npos) extension = Upper(rest.substr(dot + 1), 3);
}

bool ObjectName::Matches(const ObjectName& pattern) const {
    return (pattern.device == '*' || pattern.device == '?' || pattern.device == device) &&
           MatchesPart(name.c_str(), pattern.name.c_str()) &&
           MatchesPart(extension.c_str(), pattern.extension.c_str());
}

bool ObjectName::IsPattern() const {
    return Text().find_first_of("*?") != std::string::npos;
}
