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

// Thrown when the database fails; the exported functions answer its code.
struct Error {
    LSTATUS code;
};

// A connection, which belongs to the thread that made it. Every operation throws Error if the
// database fails.
class Database {
public:
    // Opens the registry of a root folder, which must exist. Makes the database if it is missing;
    // any number of processes may do so at once.
    explicit Database(const std::string& folder);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    // True if anybody, in this process or another, may have written since the last call. It costs
    // no system call and no lock: the write-ahead log's index, which all connections share in
    // memory, starts with a record that every commit renews before it is acknowledged. What is read
    // after this call may be kept until the next call that answers true.
    bool Changed();

    // Runs statements without rows.
    void Run(const char* sql);

    // How many rows the last statement wrote.
    int WrittenRows() const { return sqlite3_changes(handle_); }
    // How many rows all statements have written so far.
    int64_t AllWrittenRows() const { return sqlite3_total_changes64(handle_); }

    int64_t LastId() const { return sqlite3_last_insert_rowid(handle_); }

    // Forces everything written so far to the disk.
    void Flush();

    bool InTransaction() const { return depth_ > 0; }

private:
    friend class Query;
    friend class Transaction;

    // The record at the start of the log's index, in words.
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
    const uint32_t* header_ = nullptr; // null: not mapped, so every call finds a change
    Header seen_{};
};

// One run of a statement. Within a transaction that a disk failure has undone it throws Error, so
// that nothing is written outside of the transaction. `sql` must be a literal that lives as long as
// the program, because the prepared form is kept under its address.
class Query {
public:
    Query(Database& database, const char* sql);
    ~Query();
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    // Binds the parameters in their order. Bytes must outlive the query; text is copied.
    Query& Bind(int64_t number);
    Query& Bind(std::string_view text);
    Query& Bind(const BYTE* bytes, size_t size);

    // Moves to the next row; false after the last one. A statement that writes is complete at
    // false.
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

// All or nothing, and one state of the database throughout. Undone unless committed. A nested one
// is undone by itself or stored with the outer one. They end in reverse order.
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
