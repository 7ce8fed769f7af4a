// The SQLite database behind one registry, as one thread uses it.
#pragma once

#include <winreg.h>

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace win32host::registry {

// What a failure of the database becomes; the exported functions answer its code.
struct Error {
    LSTATUS code;
};

// A connection. It belongs to the thread that made it. Every operation throws Error when the
// database fails it.
class Database {
public:
    // The registry of a root folder, which must exist. Makes the database when it is missing; any
    // number of processes may do so at once.
    explicit Database(const std::string& folder);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // Whether anybody, in this process or another, may have written since the last call. It costs
    // no system call and no lock: the write-ahead log's index, which all connections share in
    // memory, begins with a record that every commit renews before it is acknowledged. What is
    // read after this call may be kept until the next one that answers true.
    bool Changed();

    // Statements that answer nothing.
    void Run(const char* sql);

    // How many rows the last statement wrote.
    int WrittenRows() const { return sqlite3_changes(handle_); }
    // How many all statements so far have written.
    int64_t AllWrittenRows() const { return sqlite3_total_changes64(handle_); }

    int64_t LastId() const { return sqlite3_last_insert_rowid(handle_); }

    // Brings everything written so far to the disk.
    void Flush();

    bool InTransaction() const { return depth_ > 0; }

private:
    friend class Query;
    friend class Transaction;

    // The record at the begin of the log's index, in words.
    static constexpr size_t kHeaderWords = 12;
    using Header = std::array<uint32_t, kHeaderWords>;

    void Open(const std::string& file);
    void Close();
    int Version();
    void SetUp(const std::string& folder);
    void FindHeader();
    sqlite3_stmt* Prepared(const char* sql);
    [[noreturn]] void Fail(int result);

    sqlite3* handle_ = nullptr;
    int depth_ = 0;                                             // of transactions
    std::unordered_map<const char*, sqlite3_stmt*> statements_; // by the address of their text
    const uint32_t* header_ = nullptr; // null: not known, so every call finds a change
    Header seen_{};
};

// One run of a statement. Within a transaction that a failure of the disk has undone it throws
// Error, so that nothing is written outside of it. `sql` is a literal that lives as long as the
// program: the prepared form is kept under its address.
class Query {
public:
    Query(Database& database, const char* sql);
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    // Parameters, in their order. Bytes must outlive the query; text is copied.
    Query& Bind(int64_t number);
    Query& Bind(std::string_view text);
    Query& Bind(const BYTE* bytes, size_t size);

    // The next row; false after the last one. A statement that writes is done when it is false.
    bool Next();

    // For statements without rows.
    void Run() { Next(); }

    // Columns of the row, counted from 0. Views last until the next Next.
    int64_t Number(int column) const { return sqlite3_column_int64(statement_, column); }
    bool IsNull(int column) const { return sqlite3_column_type(statement_, column) == SQLITE_NULL; }
    std::string_view Bytes(int column) const;

private:
    Database& database_;
    sqlite3_stmt* statement_;
    int parameter_ = 0;
};

// All or nothing, and one state of the database throughout. Undone unless committed. One within
// another is undone alone or stored with that; they end in the reverse of their order.
class Transaction {
public:
    enum Kind { Reading, Writing };
    Transaction(Database& database, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Database& database_;
    const bool inner_;
    bool open_ = true;
};

// The keys that every registry has.
constexpr int64_t kMachineKey = 1;
constexpr int64_t kUsersKey = 2;

} // namespace win32host::registry
