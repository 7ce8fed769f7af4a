// The properties of one section of one table.
#pragma once

#include "core/ostring.h"
#include "model/property_set.h"
#include "model/resource_file.h"

// In a section, "Key = value" sets a property and "Key += value" appends "," and the value to it
// (or sets it if it is empty or absent). The first "+=" of a line counts, or else the first "=".
// Key and value lose the blanks, tabs and line ends around them. Lines without "=" are ignored.
// Lines apply from first to last, with those of ".default" among those of the section.
class ODataTable : public OPropertySet {
public:
    // Reads a section of the resource "<table>.d". The set is empty if there is no file (null), no
    // such resource or no such section.
    ODataTable(OResourceFile* file, const OString& table, const OString& section);

private:
    void Apply(const char* line, uint32_t length);
};
