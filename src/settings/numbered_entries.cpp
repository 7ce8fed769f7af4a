#include "settings/numbered_entries.h"

#include <algorithm>

#include "core/ostring_array.h"
#include "registry/oregistry_names.h"

void GetStoredEntries(prtreg& registry, const OString& key, int first, int last,
                      OString (*key_name)(int), OTypedArray<int>& numbers) {
    numbers.SetSize(0);
    OStringArray names;
    registry.EnumValues(key, names);
    for (int i = 0; i < names.GetSize(); ++i) {
        const OString& name = names[i];
        const auto number = static_cast<int32_t>(name.Mid(name.Find(' ') + 1));
        if (number < first || number > last) continue;
        OString prefix = key_name(number);
        prefix.Replace("::", ":"); // as the registry has it
        if (BeginsNoCase(name.wstring(), prefix.nstring())) numbers.Add(number);
    }
    int* const begin = numbers.GetData();
    int* const end = begin + numbers.GetSize();
    std::sort(begin, end);
    numbers.SetSize(static_cast<int>(std::unique(begin, end) - begin));
}
