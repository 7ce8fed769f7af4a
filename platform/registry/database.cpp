#include "registry/database.h"

#include <winerror.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>

namespace win32host::registry {
namespace {

constexpr int kVersion = 1;

// Names are UTF-8 text as first written, beside the form that is compared. Ids grow and are never
// reused: they give the order of creation, and a handle on a deleted key never names another.
constexpr const char* kSchema = R"(
CREATE TABLE keys (
    id INTEGER PRIMARY KEY AUTOINCREMENT,
    parent INTEGER NOT NULL,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    class TEXT NOT NULL DEFAULT '',
    read_only INTEGER NOT NULL DEFAULT 0,
    UNIQUE (parent, folded));
CREATE TABLE key_values (
    id INTEGER PRIMARY KEY,
    key INTEGER NOT NULL REFERENCES keys (id) ON DELETE CASCADE,
    name TEXT NOT NULL,
    folded TEXT NOT NULL,
    type INTEGER NOT NULL,
    data BLOB NOT NULL,
    UNIQUE (key, folded));
INSERT INTO keys (id, parent, name, folded) VALUES (1, 0, 'MACHINE', 'MACHINE'),
                                                   (2, 0, 'USER', 'USER');
PRAGMA user_version = 1;
)";

// Waits for another connection's lock, with short sleeps first, since a commit takes microseconds.
int WaitForLock(void*, int attempt) {
    constexpr int kShort = 8;
    constexpr int kAttempts = 6000; // half a minute
    if (attempt >= kAttempts) return 0;
    const timespec pause{0, attempt < kShort ? 50'000L << attempt : 5'000'000L};
    nanosleep(&pause, nullptr);
    return 1;
}

LSTATUS CodeOf(int result) {
    switch (result & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_AUTH:
        return ERROR_ACCESS_DENIED;
    case SQLITE_CANTOPEN:
        return ERROR_CANTOPEN;
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        return ERROR_BADDB;
    case SQLITE_CONSTRAINT:
        // The only constraint that an operation can break is that a value has a key.
        return result == SQLITE_CONSTRAINT_FOREIGNKEY ? ERROR_KEY_DELETED : ERROR_BADDB;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

// Held while one process makes the database, so that others wait.
class SetUpLock {
public:
    explicit SetUpLock(const std::string& folder)
        : file_(open((folder + "/registry.lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
        if (file_ < 0) throw Error{ERROR_CANTOPEN};
        while (flock(file_, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~SetUpLock() { close(file_); }
    SetUpLock(const SetUpLock&) = delete;
    SetUpLock& operator=(const SetUpLock&) = delete;

private:
    int file_;
};

} // namespace

Database::Database(const std::string& folder) {
    try {
        Open(folder + "/registry.db");
        const int version = Version();
        if (version > kVersion) throw Error{ERROR_BADDB};
        if (version == 0) SetUp(folder);
        FindHeader();
    } catch (...) {
        Close();
        throw;
    }
}

Database::~Database() {
    Close();
}

void Database::Open(const std::string& file) {
    const int result =
        sqlite3_open_v2(file.c_str(), &handle_,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    if (result != SQLITE_OK) Fail(result);
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_handler(handle_, WaitForLock, nullptr);
    // A commit is in the log file when it returns, so it outlives the process. Only checkpoints
    // wait for the disk. They happen once in 16 MB of log, so that writing many values is not held
    // up.
    Run("PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON; PRAGMA wal_autocheckpoint = 4000");
}

void Database::Close() {
    for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
    statements_.clear();
    sqlite3_close(handle_);
    handle_ = nullptr;
}

int Database::Version() {
    Query query(*this, "PRAGMA user_version");
    return query.Next() ? static_cast<int>(query.Number(0)) : 0;
}

void Database::SetUp(const std::string& folder) {
    SetUpLock lock(folder);
    Run("PRAGMA journal_mode = WAL");
    Transaction transaction(*this, Transaction::Writing);
    if (Version() == 0) Run(kSchema);
    transaction.Commit();
}

// The index is mapped once something has been read, and stays mapped until the connection closes.
void Database::FindHeader() {
    Version();
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(handle_, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK)
        return;
    if (!file || !file->pMethods || file->pMethods->iVersion < 2 || !file->pMethods->xShmMap)
        return;
    constexpr int kRegionSize = 32768; // the size in which SQLite maps the index
    void volatile* region = nullptr;
    if (file->pMethods->xShmMap(file, 0, kRegionSize, 0, &region) != SQLITE_OK || !region) return;
    const auto* words = static_cast<const uint32_t*>(const_cast<const void*>(region));
    constexpr uint32_t kIndexVersion = 3007000;
    if (words[0] == kIndexVersion) header_ = words;
}

bool Database::Changed() {
    if (!header_) return true;
    // A record that is caught while it is being renewed differs from both its old and its new form,
    // or is still the old one. The commit has not been acknowledged yet.
    bool same = true;
    for (size_t i = 0; i < kHeaderWords; ++i) {
        const uint32_t word = __atomic_load_n(header_ + i, __ATOMIC_ACQUIRE);
        same = same && word == seen_[i];
        seen_[i] = word;
    }
    return !same;
}

void Database::Run(const char* sql) {
    const int result = sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) Fail(result);
}

void Database::Flush() {
    const int result =
        sqlite3_wal_checkpoint_v2(handle_, "main", SQLITE_CHECKPOINT_FULL, nullptr, nullptr);
    if (result != SQLITE_OK) Fail(result);
}

sqlite3_stmt* Database::Prepared(const char* sql) {
    sqlite3_stmt*& statement = statements_[sql];
    if (!statement) {
        const int result =
            sqlite3_prepare_v3(handle_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
        if (result != SQLITE_OK) Fail(result);
    }
    return statement;
}

void Database::Fail(int result) {
    throw Error{CodeOf(result)};
}

Query::Query(Database& database, const char* sql)
    : database_(database)
    , statement_(database.Prepared(sql)) {
    if (database.depth_ > 0 && sqlite3_get_autocommit(database.handle_))
        throw Error{ERROR_TRANSACTION_NOT_ACTIVE};
}

Query::~Query() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

Query& Query::Bind(int64_t number) {
    sqlite3_bind_int64(statement_, ++parameter_, number);
    return *this;
}

Query& Query::Bind(std::string_view text) {
    const int result = sqlite3_bind_text64(statement_, ++parameter_, text.data(), text.size(),
                                           SQLITE_TRANSIENT, SQLITE_UTF8);
    if (result != SQLITE_OK) database_.Fail(result);
    return *this;
}

Query& Query::Bind(const BYTE* bytes, size_t size) {
    const int result =
        size == 0 ? sqlite3_bind_zeroblob(statement_, ++parameter_, 0)
                  : sqlite3_bind_blob64(statement_, ++parameter_, bytes, size, SQLITE_STATIC);
    if (result != SQLITE_OK) database_.Fail(result);
    return *this;
}

bool Query::Next() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) database_.Fail(result);
    return false;
}

std::string_view Query::Bytes(int column) const {
    const void* bytes = sqlite3_column_blob(statement_, column);
    const int size = sqlite3_column_bytes(statement_, column);
    return {static_cast<const char*>(bytes), bytes ? static_cast<size_t>(size) : 0};
}

Transaction::Transaction(Database& database, Kind kind)
    : database_(database)
    , inner_(database.InTransaction()) {
    if (inner_)
        Query(database_, "SAVEPOINT inner_one").Run();
    else
        Query(database_, kind == Writing ? "BEGIN IMMEDIATE" : "BEGIN").Run();
    ++database_.depth_;
}

Transaction::~Transaction() {
    --database_.depth_;
    if (open_ && !sqlite3_get_autocommit(database_.handle_))
        sqlite3_exec(database_.handle_,
                     inner_ ? "ROLLBACK TO inner_one; RELEASE inner_one" : "ROLLBACK", nullptr,
                     nullptr, nullptr);
}

void Transaction::Commit() {
    Query(database_, inner_ ? "RELEASE inner_one" : "COMMIT").Run();
    open_ = false;
}

} // namespace win32host::registry
