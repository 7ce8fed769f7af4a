#include "sheet/script_words.h"

#include "fault.h"
#include "text.h"

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

char Escaped(char c) {
    switch (c) {
    case '"':
    case '\\':
        return c;
    case 'n':
        return '\n';
    case 't':
        return '\t';
    default:
        throw UsageFault(std::string("'\\") + c + "' is no escape: \\\", \\\\, \\n and \\t are");
    }
}

// The word in quotation marks, the first of which is at `at`; leaves `at` after the second one.
std::string QuotedWord(const std::string& line, size_t& at) {
    std::string word;
    for (++at; at < line.size(); ++at) {
        if (line[at] == '"') {
            ++at;
            if (at < line.size() && !IsBlank(line[at]))
                throw UsageFault("a blank is missing after a quotation mark");
            return word;
        }
        if (line[at] != '\\')
            word += line[at];
        else if (++at < line.size())
            word += Escaped(line[at]);
    }
    throw UsageFault("a quotation mark is not closed");
}

} // namespace

std::vector<ScriptWord> WordsOfLine(const std::string& line) {
    std::vector<ScriptWord> words;
    for (size_t at = 0; at < line.size();) {
        if (IsBlank(line[at])) {
            ++at;
        } else if (line[at] == '"') {
            words.push_back({QuotedWord(line, at), true});
        } else {
            const size_t start = at;
            while (at < line.size() && !IsBlank(line[at])) ++at;
            words.push_back({line.substr(start, at - start), false});
        }
    }
    return words;
}

const ScriptWord& ScriptWords::Next(const char* what) {
    if (AtEnd()) throw UsageFault(std::string(what) + " is missing");
    return words_[next_++];
}

std::string ScriptWords::Text(const char* what) {
    return Next(what).text;
}

int ScriptWords::Number(const char* what, int least, int most) {
    const ScriptWord& word = Next(what);
    int64_t value = 0;
    const bool decimal = word.text.find_first_of("xX") == std::string::npos;
    if (word.quoted || !decimal || !ToNumber(word.text, value) || value < least || value > most)
        throw UsageFault("'" + word.text + "' is not " + what);
    return static_cast<int>(value);
}

bool ScriptWords::IsPosition() const {
    return !AtEnd() && !words_[next_].quoted && words_[next_].text.starts_with('#');
}

int ScriptWords::Position() {
    const ScriptWord& word = Next("a position");
    int64_t value = 0;
    if (word.quoted || !word.text.starts_with('#') ||
        word.text.find_first_not_of("0123456789", 1) != std::string::npos ||
        !ToNumber(word.text.substr(1), value) || value > INT32_MAX)
        throw UsageFault("'" + word.text + "' is not a position, as #0 is");
    return static_cast<int>(value);
}

bool ScriptWords::OneOf(const char* first, const char* second) {
    const std::string either = std::string(first) + " or " + second;
    const ScriptWord& word = Next(either.c_str());
    if (word.quoted || (word.text != first && word.text != second))
        throw UsageFault("'" + word.text + "' is not " + either);
    return word.text == first;
}

void ScriptWords::End() const {
    if (!AtEnd()) throw UsageFault("'" + words_[next_].text + "' is too much");
}
