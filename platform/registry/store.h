// The tree of keys and values over a database. What was read last is kept in memory.
//
// Keys are identified by their id; a path is a text of names separated by backslashes. The
// functions answer Win32 error codes for mistakes of the caller and throw Error if the database
// fails.
#pragma once

#include "registry/database.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace win32host::registry {

constexpr size_t kLongestKeyName = 255;
constexpr size_t kLongestValueName = 16383;
constexpr size_t kLongestPath = 32767;

struct KeyFound {
    int64_t id = 0;         // 0: there is no such key
    bool read_only = false; // the key or one above it is
};

struct Value {
    bool found = false;
    DWORD type = REG_NONE;
    std::string bytes;
};

struct KeyInfo {
    std::u16string key_class;
    size_t subkeys = 0;
    size_t longest_subkey = 0;
    size_t longest_class = 0;
    size_t values = 0;
    size_t longest_value_name = 0;
    size_t longest_value_data = 0;
};

using NameList = std::vector<std::u16string>;

class Store {
public:
    explicit Store(const std::string& folder)
        : database_(folder) {}

    // The key at `path` below `base`. An empty path is the base itself. Also succeeds if there is
    // no such key (id 0); ERROR_KEY_DELETED if the base itself is gone.
    LSTATUS Find(int64_t base, std::u16string_view path, KeyFound& key);

    // The same, after making every missing key of the path, the last one with `key_class`.
    LSTATUS Create(int64_t base, std::u16string_view path, std::u16string_view key_class,
                   KeyFound& key, bool& created);

    LSTATUS Delete(int64_t base, std::u16string_view path);

    LSTATUS SetReadOnly(int64_t key, bool read_only);

    // Reads all values of a key at once and keeps them, as far as there is room. Call it before
    // reading all of them: one query to the database takes less time than one for each.
    void ReadAhead(int64_t key);

    // The value, found or not. Valid until the next call of this object.
    LSTATUS Read(int64_t key, std::u16string_view name, const Value*& value);
    LSTATUS Write(int64_t key, std::u16string_view name, DWORD type, const BYTE* data, size_t size);
    LSTATUS DeleteValue(int64_t key, std::u16string_view name);

    // The names of a key's subkeys and of its values, oldest first. Valid until the next call.
    LSTATUS Subkeys(int64_t key, const NameList*& names);
    LSTATUS ValueNames(int64_t key, const NameList*& names);

    LSTATUS Info(int64_t key, KeyInfo& info);

    void Flush() { database_.Flush(); }

    // Everything up to the matching End is stored together or, without `commit`, undone. They may
    // be nested. End throws if storing fails, and the transaction is over all the same. While one
    // for reading is open, everything that is read is as it was at one moment, even though others
    // write.
    void Begin(Transaction::Kind kind);
    void End(bool commit);

private:
    struct TextHash {
        using is_transparent = void;
        size_t operator()(std::u16string_view text) const {
            return std::hash<std::u16string_view>()(text);
        }
    };
    template <class T>
    using ByText = std::unordered_map<std::u16string, T, TextHash, std::equal_to<>>;
    using ById = std::unordered_map<int64_t, NameList>;

    void DropStale();
    void Forget();
    void MakeRoom(size_t bytes);
    std::u16string_view CacheName(int64_t id, std::u16string_view text);
    // What is known of the key at a path without asking the database; false if nothing is.
    bool Kept(int64_t base, std::u16string_view path, KeyFound& key);
    void Keep(int64_t base, std::u16string_view path, const KeyFound& key);
    bool Lookup(int64_t parent, std::u16string_view name, KeyFound& key);
    bool BaseState(int64_t id, KeyFound& key);
    bool Exists(int64_t id);
    LSTATUS Walk(int64_t base, const std::vector<std::u16string_view>& names, KeyFound& key);
    LSTATUS Names(ById& lists, const char* sql, int64_t key, const NameList*& names);

    Database database_;
    struct OpenTransaction {
        std::unique_ptr<Transaction> transaction;
        int64_t written_rows; // before it
        bool keeps;           // what was kept before and in it is valid after it
    };
    std::vector<OpenTransaction> transactions_;
    bool written_ = false; // within a transaction, since what was kept was dropped

    // What the database held when Changed last answered true. Missing keys and values are kept too.
    ByText<KeyFound> keys_; // by the base's id and the path as the caller spelled it
    ByText<Value> values_;  // by the key's id and the name as the caller spelled it
    ById subkeys_;
    ById value_names_;
    size_t kept_bytes_ = 0;
    std::u16string cache_name_;
    Value big_value_; // the last one that was too big to keep
};

} // namespace win32host::registry
