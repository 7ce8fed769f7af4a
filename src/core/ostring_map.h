// Maps with string keys.
#pragma once

#include <cstdint>

#include "core/crc.h"
#include "core/numbers.h"
#include "core/oarray.h"
#include "core/ostring.h"
#include "core/ostring_array.h"

// Values ordered by a 32-bit hash, the largest first. Among values of equal hash the newest comes
// first. The map does not own what its values point to.
template <class T>
class OHashMap {
public:
    OHashMap() = default;
    virtual ~OHashMap() = default;

    int GetSize() const { return hashes_.GetSize(); }
    // The value and the hash at an index below GetSize.
    T ValueAt(int index) const { return values_[index]; }
    uint32_t HashAt(int index) const { return hashes_[index]; }

    // The first index whose hash is not greater than `hash`: where it is, or belongs.
    int HashStart(uint32_t hash) const {
        const int size = GetSize();
        // Hashes are spread evenly, so the place is close to its share of the range, from above.
        int at = static_cast<int>(muldiv64u(~hash, static_cast<uint32_t>(size), UINT32_MAX));
        while (at > 0 && hashes_[at - 1] <= hash) --at;
        while (at < size && hashes_[at] > hash) ++at;
        return at;
    }

    // Appends the indices of the values with that hash to `matches`.
    void HashMatch(uint32_t hash, OTypedArray<int>& matches) const {
        for (int at = HashStart(hash); at < GetSize() && hashes_[at] == hash; ++at) matches.Add(at);
    }

protected:
    // Inserts a value before those with its hash. Returns its index, or -1 without memory.
    int HashInsert(uint32_t hash, T value) {
        const int at = HashStart(hash);
        if (!hashes_.InsertAt(at, hash, 1)) return -1;
        if (values_.InsertAt(at, value, 1)) return at;
        hashes_.RemoveAt(at, 1);
        return -1;
    }

    OTypedArray<T> values_;
    OTypedArray<uint32_t> hashes_;
};

// A map from strings, case-sensitive, to values. It can look up, store and empty itself, but not
// remove one key.
template <class T>
class OStringMap : public OHashMap<T> {
public:
    // The hash of a key: the checksum of its 8-bit form with the terminator.
    static uint32_t HashCalculate(const OString& key) {
        const char* text = key.nstring();
        return CRC32(text, static_cast<uint32_t>(key.nlen()) + 1, 0);
    }

    // The value of a key. False, with `value` unchanged, if the key is not in the map.
    bool Lookup(const OString& key, T& value) const {
        const int at = IndexOf(key, HashCalculate(key));
        if (at < 0) return false;
        value = this->values_[at];
        return true;
    }

    // Stores a value, replacing the one that the key has. False without memory.
    bool Set(const OString& key, T value) {
        // It may be one of ours.
        const OString held(key); // NOLINT(performance-unnecessary-copy-initialization)
        const uint32_t hash = HashCalculate(held);
        int at = IndexOf(held, hash);
        if (at >= 0) {
            this->values_[at] = value;
            return true;
        }
        at = this->HashInsert(hash, value);
        if (at < 0) return false;
        if (keys_.InsertAt(at, held, 1)) return true;
        this->values_.RemoveAt(at, 1);
        this->hashes_.RemoveAt(at, 1);
        return false;
    }

    // The key at an index below GetSize.
    const OString& KeyAt(int index) const { return keys_[index]; }

    // Empties the map. Objects that the values point to remain with their owner.
    void RemoveAll() {
        this->values_.SetSize(0);
        this->hashes_.SetSize(0);
        keys_.SetSize(0);
    }

private:
    int IndexOf(const OString& key, uint32_t hash) const {
        for (int at = this->HashStart(hash); at < this->GetSize() && this->hashes_[at] == hash;
             ++at)
            if (keys_[at] == key) return at;
        return -1;
    }

    OStringArray keys_;
};
