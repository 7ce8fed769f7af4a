// Names of objects in a printer's memories.
#pragma once

#include <string>

// A name as in commands, "R:LOGO.GRF". Missing parts are empty, and a missing device is R. Names
// are cut to eight characters, extensions to three, and both become upper case.
struct ObjectName {
    ObjectName() = default;
    explicit ObjectName(const std::string& text);

    std::string Text() const { return std::string(1, device) + ':' + name + '.' + extension; }
    bool operator==(const ObjectName&) const = default;

    // Whether it matches a pattern, any part of which may have "*" and "?".
    bool Matches(const ObjectName& pattern) const;
    bool IsPattern() const;

    char device = 'R';
    std::string name, extension;
};
