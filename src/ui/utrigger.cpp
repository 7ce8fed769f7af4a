#include "ui/utrigger.h"

#include <utility>

void UTrigger::Set() {
    if (set_) return;
    set_ = true;
    for (int i = 0; i < chained_.GetSize(); ++i) chained_[i]->Set();
}

bool UTrigger::operator=(bool set) {
    if (set)
        Set();
    else
        set_ = false;
    return set;
}

bool UTrigger::Get() {
    return std::exchange(set_, false);
}
