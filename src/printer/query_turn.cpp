#include "printer/query_turn.h"

#include "core/open_to_all.h"

namespace {

constexpr DWORD kLongestWait = 60 * 60 * 1000;

HANDLE OpenTurns() {
    OpenToAll security;
    const HANDLE turns =
        CreateMutexW(security.Get(), FALSE, TEXT("Global\\Valdrick Printer Query"));
    if (turns || GetLastError() != ERROR_PATH_NOT_FOUND) return turns;
    // Systems without sessions do not know such a name.
    return CreateMutexW(security.Get(), FALSE, TEXT("Valdrick Printer Query"));
}

} // namespace

QueryTurn::QueryTurn()
    : mutex_(OpenTurns()) {
    if (!mutex_) return;
    const DWORD answer = WaitForSingleObject(mutex_, kLongestWait);
    own_ = answer == WAIT_OBJECT_0 || answer == WAIT_ABANDONED;
}

QueryTurn::~QueryTurn() {
    if (own_) ReleaseMutex(mutex_);
    if (mutex_) CloseHandle(mutex_);
}
