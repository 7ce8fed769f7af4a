#include "model/data_set.h"

#include "core/memory.h"

ODataSet::~ODataSet() {
    for (int i = 0; i < tables_.GetSize(); ++i) delete tables_.ValueAt(i);
}

void ODataSet::SetTable(const OString& name) {
    const int colon = name.Find(TEXT(":"));
    if (colon >= 0) table_ = name.Left(colon);
    section_ = name.Mid(colon + 1);
    current_ = nullptr;
}

ODataTable* ODataSet::CurrentTable() {
    if (current_) return current_;
    const AllocationWatch memory;
    const OString key = table_ + ":" + section_;
    if (tables_.Lookup(key, current_)) return current_;
    auto* table = new (kCounted) ODataTable(file_, table_, section_);
    // Without memory the table may be incomplete, or there already under a key that could not be
    // compared.
    if (table && (memory.Failed() || !tables_.Set(key, table))) {
        delete table;
        table = nullptr;
    }
    current_ = table;
    return table;
}

OString ODataSet::GetString(const OString& key, const OString& default_value) {
    const ODataTable* table = CurrentTable();
    return table ? table->GetString(key, default_value) : default_value;
}

void ODataSet::GetStringArray(const OString& key, OStringArray& values) {
    values.Split(GetString(key, OString()), ",");
}

bool ODataSet::PropertyExists(const OString& key) {
    return !ODataSet::GetString(key, OString()).IsEmpty();
}

bool ODataSet::GetBool(const OString& key, bool default_value) {
    const OString value = GetString(key, OString());
    for (const char* text : {"true", "yes", "on", "1"})
        if (value.CompareNoCase(OString(text)) == 0) return true;
    for (const char* text : {"false", "no", "off", "0"})
        if (value.CompareNoCase(OString(text)) == 0) return false;
    return default_value;
}

int32_t ODataSet::GetInt(const OString& key, int32_t default_value) {
    const OString value = GetString(key, OString());
    return value.IsEmpty() ? default_value : static_cast<int32_t>(value);
}

bool ODataSet::GetFlag(const OString& key, const OString& flag) {
    OStringArray values;
    GetStringArray(key, values);
    for (int i = 0; i < values.GetSize(); ++i)
        if (values[i].CompareNoCase(flag) == 0) return true;
    return false;
}
