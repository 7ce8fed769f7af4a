#include "registry/oregistry_transaction.h"

#include "registry/oregistry.h"
#include "registry/oregistry_system.h"

ORegistryTransaction::ORegistryTransaction(ORegistry& registry, Kind kind)
    : registry_(registry)
    , kind_(kind)
    , inner_(registry.in_transaction_) {
    if (inner_) return;
    registry_.ReleaseKey(); // it was opened outside of the transaction
    registry_.ForgetFailures();
    registry_.in_transaction_ = true;
    registry_.only_reads_ = kind == READING;
    const RegistryTransactions& system = RegistryTransactions::OfSystem();
    if (system.IsThere() && !(registry_.transaction_ = system.Create())) registry_.failed_ = true;
}

ORegistryTransaction::~ORegistryTransaction() {
    if (inner_) {
        if (!committed_ && kind_ == WRITING) registry_.failed_ = true;
        return;
    }
    registry_.ReleaseKey();
    registry_.in_transaction_ = registry_.only_reads_ = false;
    if (!registry_.transaction_) return;
    if (!committed_) RegistryTransactions::OfSystem().Rollback(registry_.transaction_);
    CloseHandle(registry_.transaction_);
    registry_.transaction_ = nullptr;
}

bool ORegistryTransaction::Commit() {
    if (registry_.HasFailed()) return false;
    committed_ = inner_ || !registry_.transaction_;
    if (committed_) return true;
    registry_.ReleaseKey();
    committed_ = RegistryTransactions::OfSystem().Commit(registry_.transaction_);
    if (!committed_) registry_.failed_ = true;
    return committed_;
}
