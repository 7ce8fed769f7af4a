// Named text values.
#pragma once

#include <cstdint>

#include "core/ostring.h"
#include "core/ostring_map.h"

// A value of a property set.
struct OProperty {
    OString value;
};

// A map from names to values. Names are case-sensitive. Every value is a text; numbers are stored
// in decimal, flags as "1" and "0". A set belongs to one thread.
class OPropertySet {
public:
    OPropertySet() = default;
    OPropertySet(const OPropertySet&) = delete;
    OPropertySet& operator=(const OPropertySet&) = delete;
    virtual ~OPropertySet();

    // The value, even if empty, or the default if there is no such property.
    OString GetString(const OString& name, const OString& default_value) const;
    // Inserts or replaces.
    void SetString(const OString& name, const OString& value);

    // The number at the start of the value, as OString reads it, or the default if the value is
    // empty or absent.
    int32_t GetInt(const OString& name, int32_t default_value) const;
    void SetInt(const OString& name, int32_t value);

    // Whether the number is not 0.
    bool GetBool(const OString& name, bool default_value) const;
    void SetBool(const OString& name, bool value);

    // Removes every property.
    void Clear();

    // The properties in an order of the set's own, for iteration: their number, and the name of one
    // of them. The order changes when a property is inserted.
    int GetCount() const;
    OString GetName(int index) const;

private:
    OProperty* Find(const OString& name) const;

    OStringMap<OProperty*> properties_; // owned
};
