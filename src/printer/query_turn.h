// The turn of one query.
#pragma once

#include <windows.h>

// The answers of a query are stored in one place for the whole machine, for any printer. So queries
// take turns: one holds its turn from before its job is made until it has read the answers. All
// others wait, in all processes.
class QueryTurn {
public:
    // Waits for its turn: for an hour at most, which no query takes.
    QueryTurn();
    ~QueryTurn();
    QueryTurn(const QueryTurn&) = delete;
    QueryTurn& operator=(const QueryTurn&) = delete;

    // False if the turn never came. Then nothing may be asked.
    bool IsOwn() const { return own_; }

private:
    HANDLE mutex_;
    bool own_ = false;
};
