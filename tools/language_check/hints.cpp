#include "hints.h"

#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>

std::set<uint32_t> ReadTextNumbers(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    const std::regex named(R"(^\s*TEXT_\w+ = (\d+),.*)");
    std::set<uint32_t> numbers;
    std::smatch found;
    for (std::string line; std::getline(file, line);)
        if (std::regex_match(line, found, named))
            numbers.insert(static_cast<uint32_t>(std::stoul(found[1])));
    numbers.erase(0);
    return numbers;
}

Hints ReadHints(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": cannot be read");
    Hints hints;
    int number = 0;
    for (std::string line; std::getline(file, line);) {
        ++number;
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string what, dialog;
        words >> what;
        if (what != "optional") words >> dialog;
        std::vector<uint32_t> numbers;
        for (uint32_t value = 0; words >> value;) numbers.push_back(value);
        if (what == "optional" && numbers.size() == 1 && words.eof()) {
            hints.optional_texts.insert(numbers[0]);
            continue;
        }
        DialogHints& of_dialog = hints.dialogs[std::u16string(dialog.begin(), dialog.end())];
        if (what == "texts" && numbers.size() > 1 && words.eof()) {
            auto& texts = of_dialog.texts[numbers[0]];
            texts.insert(texts.end(), numbers.begin() + 1, numbers.end());
        } else if (what == "turns" && numbers.size() == 2 && words.eof()) {
            of_dialog.turns.insert({numbers[0], numbers[1]});
            of_dialog.turns.insert({numbers[1], numbers[0]});
        } else {
            throw std::runtime_error(path + ":" + std::to_string(number) + ": what is meant?");
        }
    }
    return hints;
}
