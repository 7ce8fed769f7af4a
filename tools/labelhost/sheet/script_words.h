// A line of a script, taken apart.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A word; one in quotation marks is always a text.
struct ScriptWord {
    std::string text;
    bool quoted = false;
};

// The words of a line. Throws UsageFault if quotation marks or escapes in them are not right.
std::vector<ScriptWord> WordsOfLine(const std::string& line);

// Takes the words of an act one after the other. Each function throws UsageFault if the next word
// is missing or not of its form.
class ScriptWords {
public:
    explicit ScriptWords(std::vector<ScriptWord> words)
        : words_(std::move(words)) {}

    bool AtEnd() const { return next_ == words_.size(); }
    std::string Text(const char* what);
    // A whole number, `least` to `most`.
    int Number(const char* what, int least, int most);
    int Id() { return Number("the identifier of a control", 0, INT32_MAX); }
    // The position that "#N" names.
    int Position();
    // Whether the next word is "#N".
    bool IsPosition() const;
    // One of two words: true for the first one.
    bool OneOf(const char* first, const char* second);
    // Nothing may follow.
    void End() const;

private:
    const ScriptWord& Next(const char* what);

    std::vector<ScriptWord> words_;
    size_t next_ = 0;
};
