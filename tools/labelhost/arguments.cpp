#include "arguments.h"

#include "fault.h"
#include "text.h"

#include <algorithm>

namespace {

bool Contains(const std::vector<std::string>& list, const std::string& name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

} // namespace

Arguments::Arguments(const std::vector<std::string>& words, const std::vector<std::string>& options,
                     const std::vector<std::string>& switches) {
    bool options_ended = false;
    for (size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (options_ended || word.rfind("--", 0) != 0) {
            positional_.push_back(word);
        } else if (word == "--") {
            options_ended = true;
        } else if (Contains(switches, word.substr(2))) {
            options_[word.substr(2)];
        } else if (!Contains(options, word.substr(2))) {
            throw UsageFault("unknown option '" + word + "'");
        } else if (i + 1 == words.size()) {
            throw UsageFault("option '" + word + "' needs a value");
        } else {
            options_[word.substr(2)].push_back(words[++i]);
        }
    }
}

void Arguments::RequireCount(size_t least, size_t most, const std::string& usage) const {
    if (positional_.size() < least || positional_.size() > most)
        throw UsageFault("usage: labelhost " + usage);
}

std::string Arguments::Get(const std::string& name, const std::string& otherwise) const {
    const auto found = options_.find(name);
    return found == options_.end() ? otherwise : found->second.back();
}

std::vector<std::string> Arguments::All(const std::string& name) const {
    const auto found = options_.find(name);
    return found == options_.end() ? std::vector<std::string>() : found->second;
}

uint32_t Arguments::Number(const std::string& name, uint32_t most, uint32_t otherwise) const {
    if (!Has(name)) return otherwise;
    const std::string text = Get(name, "");
    int64_t value = 0;
    if (!ToNumber(text, value) || value < 0 || value > most)
        throw UsageFault("--" + name + " is a number from 0 to " + std::to_string(most) +
                         ", not '" + text + "'");
    return static_cast<uint32_t>(value);
}
