// Queries to the tables of a model data file.
#pragma once

#include <cstdint>

#include "core/ostring.h"
#include "core/ostring_array.h"
#include "core/ostring_map.h"
#include "model/data_table.h"
#include "model/resource_file.h"

// One table and one section in it are current, and queries are about them. Each section is read
// once per set, on first use, and kept. A set belongs to one thread; several sets may read the same
// file at the same time.
class ODataSet {
public:
    // `file` (borrowed) may be null. Then every query returns its default.
    explicit ODataSet(OResourceFile* file = nullptr)
        : file_(file) {}
    ODataSet(const ODataSet&) = delete;
    ODataSet& operator=(const ODataSet&) = delete;
    virtual ~ODataSet();

    // Changes the file. Sections already read from the old one stay.
    void SetResourceFile(OResourceFile* file) { file_ = file; }

    // Makes a table and a section current. "Model:Desktop" names both; a name without a colon is
    // another section of the same table.
    void SetTable(const OString& name);

    // The value of a property, even if empty, or the default if there is no such property. The
    // queries below, except PropertyExists, read through this one, so overriding it changes them
    // all. To them an empty value is the same as none.
    virtual OString GetString(const OString& key, const OString& default_value);

    // Splits the value at its commas. Without a value the array is empty.
    void GetStringArray(const OString& key, OStringArray& values);

    // Whether the property of exactly this key has a value.
    bool PropertyExists(const OString& key);

    // "true", "yes", "on" and "1" are true, "false", "no", "off" and "0" are false, in either
    // case; anything else gives the default.
    bool GetBool(const OString& key, bool default_value);

    // The number at the start of the value, as OString reads it: "  -12abc" is -12, "abc" is 0.
    int32_t GetInt(const OString& key, int32_t default_value);

    // Whether the value, a comma-separated list, has the element `flag`, in any case.
    bool GetFlag(const OString& key, const OString& flag);

private:
    ODataTable* CurrentTable();

    OStringMap<ODataTable*> tables_; // by "table:section"; owned
    OString table_;
    OString section_;
    OResourceFile* file_;
    ODataTable* current_ = nullptr; // in tables_; null until first used
};
