// The turn of one query.
#pragma once

#include <windows.h>

// The answers of a query are left in one place for the whole machine, whichever printer they are
// of. So queries take turns: one holds its turn from before its job is made until it has read the
// answers, and all others wait, in whatever process they are.
class QueryTurn {
public:
    // Waits until it is this one's turn: for an hour at most, which no query takes.
    QueryTurn();
    ~QueryTurn();
    QueryTurn(const QueryTurn&) = delete;
    QueryTurn& operator=(const QueryTurn&) = delete;

    // False when the turn never came: then nothing may be asked.
    bool IsOwn() const { return own_; }

private:
    HANDLE mutex_;
    bool own_ = false;
};
