// The command line of one command: positional arguments and options.
#pragma once

#include <map>
#include <string>
#include <vector>

class Arguments {
public:
    // `words` are the words behind the command. An option is "--name VALUE" or, for the names in
    // `switches`, just "--name"; the other names that the command knows are in `options`. "--" ends
    // the options. Throws UsageFault for an unknown option or one without its value.
    Arguments(const std::vector<std::string>& words, const std::vector<std::string>& options,
              const std::vector<std::string>& switches);

    // Throws UsageFault unless there are `least` to `most` positional arguments.
    void RequireCount(size_t least, size_t most, const std::string& usage) const;

    size_t size() const { return positional_.size(); }
    const std::string& operator[](size_t index) const { return positional_[index]; }

    bool Has(const std::string& name) const { return options_.count(name) != 0; }
    std::string Get(const std::string& name, const std::string& otherwise) const;

private:
    std::vector<std::string> positional_;
    std::map<std::string, std::string> options_;
};
