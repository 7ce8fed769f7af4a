// Push buttons.
#pragma once

#include "ui/ucontrol.h"

class UButton : public UControl {
public:
    // BST_CHECKED, BST_UNCHECKED or BST_INDETERMINATE.
    int GetState() const { return static_cast<int>(Send(BM_GETCHECK)); }
    void SetState(int state) { Send(BM_SETCHECK, static_cast<WPARAM>(state)); }
};
