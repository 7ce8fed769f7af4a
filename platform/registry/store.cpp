#include "registry/store.h"

#include "host/fault_point.h"
#include "host/text.h"

#include <winerror.h>

#include <algorithm>

namespace win32host::registry {
namespace {

constexpr size_t kMostKept = 8 << 20;
constexpr size_t kBiggestKeptValue = 256 << 10;
constexpr size_t kEntryCost = 128; // memory of a map entry besides its text and bytes

constexpr const char* kKeyExists = "SELECT 1 FROM keys WHERE id = ?";

std::string Folded(std::u16string_view name) {
    std::u16string upper(name);
    std::transform(upper.begin(), upper.end(), upper.begin(), UpperOf);
    return Utf8(upper);
}

// The names of a path. Several separators in a row count as one, and one at the end is ignored.
LSTATUS Split(std::u16string_view path, std::vector<std::u16string_view>& names) {
    if (path.size() > kLongestPath) return ERROR_INVALID_PARAMETER;
    if (!path.empty() && path.front() == u'\\') return ERROR_BAD_PATHNAME;
    while (!path.empty()) {
        const size_t end = std::min(path.find(u'\\'), path.size());
        if (end > kLongestKeyName) return ERROR_INVALID_PARAMETER;
        if (end > 0) names.push_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return ERROR_SUCCESS;
}

// Clearing walks through all of a map's buckets, however few are in use, so a map that has grown
// big for one listing would slow down every later write.
template <class Map>
void Empty(Map& map) {
    constexpr size_t kManyBuckets = 1024;
    if (map.bucket_count() > kManyBuckets)
        Map().swap(map);
    else
        map.clear();
}

// Makes an operation fail if a test wants it to.
void MayFail(FaultKind kind) {
    if (const DWORD error = FailureAt(kind)) throw Error{static_cast<LSTATUS>(error)};
}

size_t LongestOf(const NameList& names) {
    size_t longest = 0;
    for (const auto& name : names) longest = std::max(longest, name.size());
    return longest;
}

} // namespace

// Within a transaction Changed tells of others only: they wait, and this store's own writes do not
// show.
void Store::DropStale() {
    if (!written_ && (database_.InTransaction() || !database_.Changed())) return;
    written_ = false;
    Forget();
}

void Store::Forget() {
    Empty(keys_);
    Empty(values_);
    Empty(subkeys_);
    Empty(value_names_);
    kept_bytes_ = 0;
}

void Store::MakeRoom(size_t bytes) {
    if (kept_bytes_ + bytes > kMostKept) Forget();
    kept_bytes_ += bytes;
}

std::u16string_view Store::CacheName(int64_t id, std::u16string_view text) {
    cache_name_.clear();
    for (int shift = 0; shift < 64; shift += 16)
        cache_name_ += static_cast<char16_t>((static_cast<uint64_t>(id) >> shift) & 0xFFFF);
    cache_name_ += text;
    return cache_name_;
}

// ---- Keys ---------------------------------------------------------------------------------------

bool Store::Kept(int64_t base, std::u16string_view path, KeyFound& key) {
    const auto kept = keys_.find(CacheName(base, path));
    if (kept == keys_.end()) return false;
    key = kept->second;
    return true;
}

void Store::Keep(int64_t base, std::u16string_view path, const KeyFound& key) {
    CacheName(base, path);
    MakeRoom(cache_name_.size() * sizeof(char16_t) + kEntryCost);
    keys_.insert_or_assign(cache_name_, key);
}

bool Store::Lookup(int64_t parent, std::u16string_view name, KeyFound& key) {
    Query query(database_, "SELECT id, read_only FROM keys WHERE parent = ? AND folded = ?");
    if (!query.Bind(parent).Bind(Folded(name)).Next()) return false;
    key.id = query.Number(0);
    key.read_only = key.read_only || query.Number(1) != 0;
    return true;
}

bool Store::BaseState(int64_t id, KeyFound& key) {
    Query query(database_, "WITH RECURSIVE up (id, parent, read_only) AS ("
                           "SELECT id, parent, read_only FROM keys WHERE id = ? UNION "
                           "SELECT k.id, k.parent, k.read_only FROM keys k, up "
                           "WHERE k.id = up.parent) SELECT max(read_only) FROM up");
    query.Bind(id);
    if (!query.Next() || query.IsNull(0)) return false;
    key = {id, query.Number(0) != 0};
    return true;
}

bool Store::Exists(int64_t id) {
    return Query(database_, kKeyExists).Bind(id).Next();
}

LSTATUS Store::Walk(int64_t base, const std::vector<std::u16string_view>& names, KeyFound& key) {
    if (!BaseState(base, key)) return ERROR_KEY_DELETED;
    for (const auto name : names) {
        if (!Lookup(key.id, name, key)) {
            key = {};
            break;
        }
    }
    return ERROR_SUCCESS;
}

LSTATUS Store::Find(int64_t base, std::u16string_view path, KeyFound& key) {
    MayFail(FAULT_REGISTRY_READ);
    DropStale();
    if (Kept(base, path, key)) return ERROR_SUCCESS;
    std::vector<std::u16string_view> names;
    LSTATUS status = Split(path, names);
    if (status != ERROR_SUCCESS) return status;

    Transaction transaction(database_, Transaction::Reading);
    if (names.empty()) {
        status = Walk(base, names, key);
        if (status != ERROR_SUCCESS) return status;
    } else {
        // Sibling keys are often looked up one after the other, so their parent is kept as well.
        const std::u16string_view last = names.back();
        names.pop_back();
        const auto start = static_cast<size_t>(last.data() - path.data());
        const std::u16string_view above = path.substr(0, start == 0 ? 0 : start - 1);
        if (!Kept(base, above, key)) {
            status = Walk(base, names, key);
            if (status != ERROR_SUCCESS) return status;
            Keep(base, above, key);
        }
        if (key.id != 0 && !Lookup(key.id, last, key)) key = {};
    }
    Keep(base, path, key);
    return ERROR_SUCCESS;
}

LSTATUS Store::Create(int64_t base, std::u16string_view path, std::u16string_view key_class,
                      KeyFound& key, bool& created) {
    created = false;
    LSTATUS status = Find(base, path, key);
    if (status != ERROR_SUCCESS || key.id != 0) return status;

    MayFail(FAULT_REGISTRY_KEY);
    std::vector<std::u16string_view> names;
    status = Split(path, names);
    if (status != ERROR_SUCCESS) return status;
    Transaction transaction(database_, Transaction::Writing);
    written_ = true;
    if (!BaseState(base, key)) return ERROR_KEY_DELETED;
    for (const auto name : names) {
        const bool last = name.data() == names.back().data();
        if (Lookup(key.id, name, key)) continue;
        if (key.read_only) return ERROR_ACCESS_DENIED;
        Query(database_, "INSERT INTO keys (parent, name, folded, class) VALUES (?, ?, ?, ?)")
            .Bind(key.id)
            .Bind(Utf8(name))
            .Bind(Folded(name))
            .Bind(last ? Utf8(key_class) : std::string())
            .Run();
        key.id = database_.LastId();
        created = true;
    }
    transaction.Commit();
    return ERROR_SUCCESS;
}

LSTATUS Store::Delete(int64_t base, std::u16string_view path) {
    MayFail(FAULT_REGISTRY_DELETE);
    std::vector<std::u16string_view> names;
    LSTATUS status = Split(path, names);
    if (status != ERROR_SUCCESS) return status;

    Transaction transaction(database_, Transaction::Writing);
    written_ = true;
    KeyFound key;
    status = Walk(base, names, key);
    if (status != ERROR_SUCCESS) return status;
    if (key.id == 0) return ERROR_FILE_NOT_FOUND;
    if (key.read_only || key.id == kMachineKey || key.id == kUsersKey) return ERROR_ACCESS_DENIED;
    if (Query(database_, "SELECT 1 FROM keys WHERE parent = ? LIMIT 1").Bind(key.id).Next())
        return ERROR_ACCESS_DENIED;
    Query(database_, "DELETE FROM keys WHERE id = ?").Bind(key.id).Run();
    transaction.Commit();
    return ERROR_SUCCESS;
}

LSTATUS Store::SetReadOnly(int64_t key, bool read_only) {
    written_ = true;
    Query(database_, "UPDATE keys SET read_only = ? WHERE id = ?")
        .Bind(int64_t{read_only})
        .Bind(key)
        .Run();
    return database_.WrittenRows() == 1 ? ERROR_SUCCESS : ERROR_KEY_DELETED;
}

// ---- Values -------------------------------------------------------------------------------------

LSTATUS Store::Read(int64_t key, std::u16string_view name, const Value*& value) {
    MayFail(FAULT_REGISTRY_READ);
    DropStale();
    const auto kept = values_.find(CacheName(key, name));
    if (kept != values_.end()) {
        value = &kept->second;
        return ERROR_SUCCESS;
    }
    Value read;
    {
        Query query(database_, "SELECT v.type, v.data FROM keys k LEFT JOIN key_values v "
                               "ON v.key = k.id AND v.folded = ? WHERE k.id = ?");
        if (!query.Bind(Folded(name)).Bind(key).Next()) return ERROR_KEY_DELETED;
        if (!query.IsNull(0)) {
            read.found = true;
            read.type = static_cast<DWORD>(query.Number(0));
            read.bytes = query.Bytes(1);
        }
    }
    if (read.bytes.size() > kBiggestKeptValue) {
        big_value_ = std::move(read);
        value = &big_value_;
        return ERROR_SUCCESS;
    }
    MakeRoom(cache_name_.size() * sizeof(char16_t) + read.bytes.size() + kEntryCost);
    value = &values_.emplace(cache_name_, std::move(read)).first->second;
    return ERROR_SUCCESS;
}

void Store::ReadAhead(int64_t key) {
    const NameList* names = nullptr;
    if (ValueNames(key, names) != ERROR_SUCCESS || names->empty() ||
        values_.contains(CacheName(key, names->front())))
        return;
    Query query(database_, "SELECT name, type, data FROM key_values "
                           "WHERE key = ? AND length(data) <= ? ORDER BY id");
    query.Bind(key).Bind(int64_t{kBiggestKeptValue});
    while (query.Next()) {
        Value value;
        value.found = true;
        value.type = static_cast<DWORD>(query.Number(1));
        value.bytes = query.Bytes(2);
        CacheName(key, Utf16(query.Bytes(0)));
        const size_t bytes =
            cache_name_.size() * sizeof(char16_t) + value.bytes.size() + kEntryCost;
        if (kept_bytes_ + bytes > kMostKept) return;
        kept_bytes_ += bytes;
        values_.emplace(cache_name_, std::move(value));
    }
}

LSTATUS Store::Write(int64_t key, std::u16string_view name, DWORD type, const BYTE* data,
                     size_t size) {
    MayFail(FAULT_REGISTRY_WRITE);
    const bool written_before = written_;
    written_ = true;
    Query(database_, "INSERT INTO key_values (key, name, folded, type, data) "
                     "VALUES (?, ?, ?, ?, ?) ON CONFLICT (key, folded) "
                     "DO UPDATE SET type = excluded.type, data = excluded.data "
                     "WHERE type IS NOT excluded.type OR data IS NOT excluded.data")
        .Bind(key)
        .Bind(Utf8(name))
        .Bind(Folded(name))
        .Bind(int64_t{type})
        .Bind(data, size)
        .Run();
    // A value that was already there does not change what is kept.
    written_ = written_before || database_.WrittenRows() > 0;
    return ERROR_SUCCESS;
}

LSTATUS Store::DeleteValue(int64_t key, std::u16string_view name) {
    MayFail(FAULT_REGISTRY_DELETE);
    written_ = true;
    Query(database_, "DELETE FROM key_values WHERE key = ? AND folded = ?")
        .Bind(key)
        .Bind(Folded(name))
        .Run();
    if (database_.WrittenRows() > 0) return ERROR_SUCCESS;
    return Exists(key) ? ERROR_FILE_NOT_FOUND : ERROR_KEY_DELETED;
}

// ---- Lists --------------------------------------------------------------------------------------

LSTATUS Store::Names(ById& lists, const char* sql, int64_t key, const NameList*& names) {
    MayFail(FAULT_REGISTRY_READ);
    DropStale();
    const auto kept = lists.find(key);
    if (kept != lists.end()) {
        names = &kept->second;
        return ERROR_SUCCESS;
    }
    NameList read;
    size_t bytes = kEntryCost;
    {
        Transaction transaction(database_, Transaction::Reading);
        if (!Exists(key)) return ERROR_KEY_DELETED;
        Query query(database_, sql);
        query.Bind(key);
        while (query.Next()) {
            read.push_back(Utf16(query.Bytes(0)));
            bytes += sizeof(std::u16string) + read.back().size() * sizeof(char16_t);
        }
    }
    MakeRoom(bytes);
    names = &lists.emplace(key, std::move(read)).first->second;
    return ERROR_SUCCESS;
}

LSTATUS Store::Subkeys(int64_t key, const NameList*& names) {
    return Names(subkeys_, "SELECT name FROM keys WHERE parent = ? ORDER BY id", key, names);
}

LSTATUS Store::ValueNames(int64_t key, const NameList*& names) {
    return Names(value_names_, "SELECT name FROM key_values WHERE key = ? ORDER BY id", key, names);
}

LSTATUS Store::Info(int64_t key, KeyInfo& info) {
    const NameList* names = nullptr;
    LSTATUS status = Subkeys(key, names);
    if (status != ERROR_SUCCESS) return status;
    info.subkeys = names->size();
    info.longest_subkey = LongestOf(*names);
    status = ValueNames(key, names);
    if (status != ERROR_SUCCESS) return status;
    info.values = names->size();
    info.longest_value_name = LongestOf(*names);

    Query query(database_,
                "SELECT class, (SELECT max(length(data)) FROM key_values WHERE key = keys.id), "
                "(SELECT max(length(class)) FROM keys sub WHERE sub.parent = keys.id) "
                "FROM keys WHERE id = ?");
    if (!query.Bind(key).Next()) return ERROR_KEY_DELETED;
    info.key_class = Utf16(query.Bytes(0));
    info.longest_value_data = static_cast<size_t>(query.Number(1));
    info.longest_class = static_cast<size_t>(query.Number(2));
    return ERROR_SUCCESS;
}

// ---- Transactions -------------------------------------------------------------------------------

void Store::Begin(Transaction::Kind kind) {
    const bool outer = !database_.InTransaction();
    if (outer) DropStale();
    transactions_.reserve(transactions_.size() + 1);
    auto transaction = std::make_unique<Transaction>(database_, kind);
    const auto written_rows = database_.AllWrittenRows();
    bool keeps = kind == Transaction::Reading;
    if (kind == Transaction::Writing) {
        written_ = true; // others may have written before it began
    } else if (outer) {
        // Its first read decides which moment it shows. What is kept is of that moment too, unless
        // somebody has written since it was read.
        Exists(kMachineKey);
        if (database_.Changed()) {
            Forget();
            keeps = false;
        }
    }
    transactions_.push_back({std::move(transaction), written_rows, keeps});
}

void Store::End(bool commit) {
    const OpenTransaction ending = std::move(transactions_.back());
    transactions_.pop_back();
    if (!ending.keeps || database_.AllWrittenRows() != ending.written_rows) written_ = true;
    if (!commit) return;
    MayFail(FAULT_REGISTRY_COMMIT);
    ending.transaction->Commit();
}

} // namespace win32host::registry
