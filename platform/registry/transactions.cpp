#include "registry/transactions.h"

#include "host/handles.h"
#include "host/root.h"
#include "registry/access.h"

#include <ktmw32.h>

#include <algorithm>
#include <thread>
#include <vector>

using namespace win32host;
using namespace win32host::registry;

namespace {

class RegistryTransaction : public KernelObject {
public:
    ~RegistryTransaction() override {
        if (IsActive()) End(false);
    }

    // True if it has not ended and belongs to the calling thread.
    bool IsActive() const {
        return active_ && thread_ == std::this_thread::get_id() && generation_ == RootGeneration();
    }

    LSTATUS Cover(Location location, bool writing) {
        if (!IsActive()) return ERROR_TRANSACTION_NOT_ACTIVE;
        Store& store = StoreOf(location);
        if (std::find(stores_.begin(), stores_.end(), &store) != stores_.end())
            return ERROR_SUCCESS;
        stores_.reserve(stores_.size() + 1);
        store.Begin(writing ? Transaction::Writing : Transaction::Reading);
        stores_.push_back(&store);
        return ERROR_SUCCESS;
    }

    LSTATUS End(bool commit) {
        active_ = false;
        LSTATUS status = ERROR_SUCCESS;
        for (; !stores_.empty(); stores_.pop_back()) {
            const LSTATUS ended = Guarded([&]() -> LSTATUS {
                stores_.back()->End(commit && status == ERROR_SUCCESS);
                return ERROR_SUCCESS;
            });
            if (status == ERROR_SUCCESS) status = ended;
        }
        return status;
    }

private:
    const std::thread::id thread_ = std::this_thread::get_id();
    const uint32_t generation_ = RootGeneration();
    std::vector<Store*> stores_; // of this thread, in the order in which they joined
    bool active_ = true;
};

BOOL End(HANDLE handle, bool commit) {
    const auto transaction = Find<RegistryTransaction>(handle);
    if (!transaction) return FALSE;
    const LSTATUS status =
        transaction->IsActive() ? transaction->End(commit) : LSTATUS{ERROR_TRANSACTION_NOT_ACTIVE};
    if (status == ERROR_SUCCESS) return TRUE;
    SetLastError(static_cast<DWORD>(status));
    return FALSE;
}

} // namespace

namespace win32host::registry {

LSTATUS Enlist(HANDLE handle, Location location, bool writing) {
    const auto transaction = Find<RegistryTransaction>(handle);
    return transaction ? transaction->Cover(location, writing) : LSTATUS{ERROR_INVALID_HANDLE};
}

KeyTransaction::KeyTransaction(HKEY key) noexcept {
    status_ = Guarded([&]() -> LSTATUS {
        KeyInUse base;
        const LSTATUS status = Use(key, 0, base);
        if (status != ERROR_SUCCESS) return status;
        base.store->Begin(Transaction::Writing);
        store_ = base.store;
        return ERROR_SUCCESS;
    });
}

KeyTransaction::~KeyTransaction() {
    if (!store_) return;
    Guarded([&]() -> LSTATUS {
        store_->End(false);
        return ERROR_SUCCESS;
    });
}

LSTATUS KeyTransaction::Commit(LSTATUS done) noexcept {
    if (status_ == ERROR_SUCCESS) status_ = done;
    if (status_ != ERROR_SUCCESS || !store_) return status_;
    Store* const store = store_;
    store_ = nullptr;
    status_ = Guarded([&]() -> LSTATUS {
        store->End(true);
        return ERROR_SUCCESS;
    });
    return status_;
}

} // namespace win32host::registry

extern "C" {

HANDLE WINAPI CreateTransaction(LPSECURITY_ATTRIBUTES, void*, DWORD, DWORD, DWORD, DWORD, LPWSTR) {
    HANDLE handle = nullptr;
    Guarded([&]() -> LSTATUS {
        handle = NewHandle(std::make_shared<RegistryTransaction>());
        return ERROR_SUCCESS;
    });
    if (handle) return handle;
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return INVALID_HANDLE_VALUE;
}

BOOL WINAPI CommitTransaction(HANDLE transaction) {
    return End(transaction, true);
}

BOOL WINAPI RollbackTransaction(HANDLE transaction) {
    return End(transaction, false);
}

} // extern "C"
