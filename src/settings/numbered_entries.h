// Entries that are stored in one key under numbers.
#pragma once

#include <cstdint>

#include "core/oarray.h"
#include "keys/prtreg.h"

// Fills `numbers` with those of the entries from `first` to `last` of which the key (its path with
// the separator after it) has a value, in order. `key_name(i)` is what the names of the values of
// entry `i` begin with, as symbolic paths have it: a word, a blank, the number and more.
void GetStoredEntries(prtreg& registry, const OString& key, int first, int last,
                      OString (*key_name)(int), OTypedArray<int>& numbers);

// Calls `entry(i)` for the entries from `first` to `last`, in order, or only for existing ones: a
// range longer than the key, as from a damaged total, must not cost a look-up for each of its
// numbers.
template <class F>
void ForEachEntry(prtreg& registry, const OString& key, int first, int last,
                  OString (*key_name)(int), F entry) {
    if (first > last) return;
    uint32_t values = 0;
    registry.GetKeyInfo(key, nullptr, &values);
    if (static_cast<uint32_t>(last - first) < values) {
        for (int i = first; i <= last; ++i) entry(i);
        return;
    }
    OTypedArray<int> numbers;
    GetStoredEntries(registry, key, first, last, key_name, numbers);
    for (int i = 0; i < numbers.GetSize(); ++i) entry(numbers[i]);
}
