// What a settings file holds.
#pragma once

#include <string>

// One kind of content.
struct SettingsKind {
    int content;           // its DAL_SETTINGS_ bit
    const char* name;      // as --only and JSON call it
    const char* words;     // as people call several of them
    const char* block;     // the line that begins one
    const char* signature; // of a binary file of old drivers; empty when there is none
};

inline constexpr int kSettingsKindCount = 5;
extern const SettingsKind kSettingsKinds[kSettingsKindCount]; // options last

// The contents that a list of names with commas between them asks for, all for an empty one. Throws
// UsageFault for an unknown name.
int ContentsOf(const std::string& names);

class SettingsText {
public:
    explicit SettingsText(const std::string& bytes);

    // The contents that the file can have: any for text, one for a binary file, 0 for other files.
    int Contents() const { return contents_; }

    // How many blocks of a kind are in the text.
    int Count(const SettingsKind& kind) const { return counts_[&kind - kSettingsKinds]; }

    // Whether there are options, and whether they are a model's.
    bool HasOptions() const { return !models_.empty(); }
    bool HasOptionsOf(const std::string& model) const;

    // Whether the file begins with the byte order mark of UTF-8.
    bool HasMark() const { return mark_; }

private:
    bool mark_;
    int contents_ = 0;
    int counts_[kSettingsKindCount] = {};
    std::string models_; // a line for each block of options
};
