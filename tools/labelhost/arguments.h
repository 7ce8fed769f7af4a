// The command line of one command: positional arguments and options.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

class Arguments {
public:
    // `words` are the words after the command. An option is "--name VALUE", which may be repeated,
    // or, for the names in `switches`, just "--name". The other names that the command knows are in
    // `options`. "--" ends the options. Throws UsageFault for an unknown option or one without its
    // value.
    Arguments(const std::vector<std::string>& words, const std::vector<std::string>& options,
              const std::vector<std::string>& switches);

    // Throws UsageFault unless there are `least` to `most` positional arguments.
    void RequireCount(size_t least, size_t most, const std::string& usage) const;

    size_t size() const { return positional_.size(); }
    const std::string& operator[](size_t index) const { return positional_[index]; }

    bool Has(const std::string& name) const { return options_.count(name) != 0; }
    // The value of an option; the last one if it was given more than once.
    std::string Get(const std::string& name, const std::string& otherwise) const;
    // All its values in their order.
    std::vector<std::string> All(const std::string& name) const;
    // Its value as a number (decimal or 0x...). Throws UsageFault unless it is a number from 0 to
    // `most`.
    uint32_t Number(const std::string& name, uint32_t most, uint32_t otherwise) const;

private:
    std::vector<std::string> positional_;
    std::map<std::string, std::vector<std::string>> options_;
};
