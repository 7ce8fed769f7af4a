// A mark that something must be refreshed.
#pragma once

#include "core/oarray.h"

// Setting it sets all triggers that are chained to it, unless it is set already; so chains may run
// in a circle. Reading clears it. Chained triggers must live as long.
class UTrigger {
public:
    UTrigger() = default;

    void Set();
    // True is Set; false clears this mark only.
    bool operator=(bool set);
    // The mark, which is clear afterwards.
    bool Get();

    void Chain(UTrigger& other) { chained_.Add(&other); }

private:
    bool set_ = false;
    OPointerArray<UTrigger*> chained_;
};
