#include "story.h"

#include <fstream>
#include <stdexcept>

namespace {

using Json = nlohmann::json;

[[noreturn]] void Wrong(int line, const std::string& what) {
    throw std::runtime_error("line " + std::to_string(line) + ": " + what);
}

// The words of a step. Backslashes are nothing special.
std::vector<std::string> WordsOf(const std::string& text, int line) {
    std::vector<std::string> words;
    for (size_t i = 0; i < text.size();) {
        if (text[i] == ' ') {
            ++i;
            continue;
        }
        const bool quoted = text[i] == '"';
        const size_t from = quoted ? i + 1 : i;
        size_t to = text.find(quoted ? '"' : ' ', from);
        if (to == text.npos) {
            if (quoted) Wrong(line, "a quotation mark is not closed");
            to = text.size();
        }
        words.push_back(text.substr(from, to - from));
        i = quoted ? to + 1 : to;
    }
    return words;
}

Json JsonOf(const std::string& text, int line) {
    Json value = Json::parse(text, nullptr, false);
    if (value.is_discarded()) Wrong(line, "this is no JSON: " + text);
    return value;
}

// "= {...}", "= 512 {...}", "! 1 \"...\"", all without what marks them.
Expectation ExpectationOf(const std::string& text, int line, int state) {
    Expectation expected;
    expected.line = line;
    expected.state = state;
    const size_t from = text.find_first_not_of(' ', 1);
    if (from == text.npos) Wrong(line, "nothing is expected");
    size_t to = from;
    if (text[from] != '{') {
        to = text.find(' ', from);
        if (to == text.npos) Wrong(line, "an expectation without a value");
        expected.control = text.substr(from, to - from);
    }
    expected.value = JsonOf(text.substr(to), line);
    if (text[0] == '!') expected.status = std::stoi(expected.control);
    return expected;
}

bool MatchesText(const std::string& expected, const std::string& answer) {
    if (expected.rfind("!~", 0) == 0) return answer.find(expected.substr(2)) == answer.npos;
    if (expected.rfind('~', 0) == 0) return answer.find(expected.substr(1)) != answer.npos;
    return expected == answer;
}

bool MatchesMembers(const Json& expected, const Json& answer) {
    for (const auto& [name, value] : expected.items()) {
        static const Json kNothing;
        const Json* member = &kNothing;
        if (answer.is_object() && answer.contains(name)) member = &answer[name];
        if (answer.is_array() && name.find_first_not_of("0123456789") == name.npos &&
            std::stoul(name) < answer.size())
            member = &answer[std::stoul(name)];
        if (!Matches(value, *member)) return false;
    }
    return true;
}

} // namespace

bool Matches(const Json& expected, const Json& answer) {
    if (expected.is_object()) return MatchesMembers(expected, answer);
    if (expected.is_string() && answer.is_string())
        return MatchesText(expected.get<std::string>(), answer.get<std::string>());
    if (expected.is_number() && answer.is_array()) return expected == Json(answer.size());
    if (!expected.is_array() || !answer.is_array()) return expected == answer;
    if (expected.size() != answer.size()) return false;
    for (size_t i = 0; i < expected.size(); ++i)
        if (!Matches(expected[i], answer[i])) return false;
    return true;
}

std::vector<StoryStep> ReadStory(const std::string& file) {
    std::ifstream stream(file);
    if (!stream) throw std::runtime_error("cannot be read");
    std::vector<StoryStep> steps;
    int number = 0, states = 0;
    for (std::string line; std::getline(stream, line);) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const size_t first = line.find_first_not_of(' ');
        if (first == line.npos || line[first] == '#') {
            if (!steps.empty()) steps.back().text += "\n";
            continue;
        }
        const std::string text = line.substr(first);
        const bool expects = text[0] == '=' || text[0] == '!';
        if (first == 0 && !expects) {
            StoryStep step;
            step.line = number;
            step.words = WordsOf(text, number);
            steps.push_back(step);
            states = 0;
            continue;
        }
        if (steps.empty()) Wrong(number, "no step comes before this");
        StoryStep& step = steps.back();
        if (expects) {
            if (first && !states) Wrong(number, "no state comes before this");
            step.expectations.push_back(ExpectationOf(text, number, first ? states - 1 : -1));
            step.text += "\n";
        } else {
            if (text == "state" || text.rfind("state ", 0) == 0) ++states;
            step.text += text + "\n";
        }
    }
    return steps;
}
