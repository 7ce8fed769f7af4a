// The turn of one query.
#pragma once

#include "core/machine_lock.h"

// The answers of a query are stored in one place for the whole machine, for any printer. So queries
// take turns: one holds its turn from before its job is made until it has read the answers. All
// others wait, in all processes.
class QueryTurn {
public:
    // Waits for its turn: for an hour at most, which no query takes.
    QueryTurn()
        : lock_(TEXT("Valdrick Printer Query"), 60 * 60 * 1000) {}

    // False if the turn never came. Then nothing may be asked.
    bool IsOwn() const { return lock_.IsHeld(); }

private:
    const MachineLock lock_;
};
