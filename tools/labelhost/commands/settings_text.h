// The contents of a settings file.
#pragma once

#include <string>

// One kind of content.
struct SettingsKind {
    int content;      // its DAL_SETTINGS_ bit
    const char* name; // as --only and JSON call it
    const char* one;  // for people
    const char* many;
    const char* block;     // the line that starts one
    const char* signature; // of a binary file of old drivers; empty if there is no such file
};

inline constexpr int kSettingsKindCount = 5;
extern const SettingsKind kSettingsKinds[kSettingsKindCount]; // options last

// The contents in a comma-separated list of names; all of them for an empty list. Throws UsageFault
// for an unknown name.
int ContentsOf(const std::string& names);

class SettingsText {
public:
    explicit SettingsText(const std::string& bytes);

    // The contents that the file can have: any for text, one for a binary file, 0 for other files.
    int Contents() const { return contents_; }

    // The number of blocks of a kind in the text.
    int Count(const SettingsKind& kind) const { return counts_[&kind - kSettingsKinds]; }

    // True if there are options, and if they are a model's.
    bool HasOptions() const { return !models_.empty(); }
    bool HasOptionsOf(const std::string& model) const;

    // True if the file starts with the byte order mark of UTF-8.
    bool HasMark() const { return mark_; }

private:
    bool mark_;
    int contents_ = 0;
    int counts_[kSettingsKindCount] = {};
    std::string models_; // a line for each block of options
};
