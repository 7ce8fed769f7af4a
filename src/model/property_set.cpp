#include "model/property_set.h"

#include "core/memory.h"

OPropertySet::~OPropertySet() {
    Clear();
}

OProperty* OPropertySet::Find(const OString& name) const {
    OProperty* property = nullptr;
    properties_.Lookup(name, property);
    return property;
}

OString OPropertySet::GetString(const OString& name, const OString& default_value) const {
    const OProperty* property = Find(name);
    return property ? property->value : default_value;
}

void OPropertySet::SetString(const OString& name, const OString& value) {
    const AllocationWatch memory;
    if (OProperty* property = Find(name)) {
        property->value = value;
        return;
    }
    // Without memory it may be there all the same.
    auto* property = new (kCounted) OProperty{value};
    if (property && (memory.Failed() || !properties_.Set(name, property))) delete property;
}

int32_t OPropertySet::GetInt(const OString& name, int32_t default_value) const {
    const OString value = GetString(name, OString());
    return value.IsEmpty() ? default_value : static_cast<int32_t>(value);
}

void OPropertySet::SetInt(const OString& name, int32_t value) {
    SetString(name, FormatInt(value));
}

bool OPropertySet::GetBool(const OString& name, bool default_value) const {
    return GetInt(name, default_value ? 1 : 0) != 0;
}

void OPropertySet::SetBool(const OString& name, bool value) {
    SetInt(name, value ? 1 : 0);
}

void OPropertySet::Clear() {
    for (int i = 0; i < properties_.GetSize(); ++i) delete properties_.ValueAt(i);
    properties_.RemoveAll();
}

int OPropertySet::GetCount() const {
    return properties_.GetSize();
}

OString OPropertySet::GetName(int index) const {
    return properties_.KeyAt(index);
}
