// Check boxes.
#pragma once

#include "ui/ubutton.h"

class UCheckBox : public UButton {
public:
    bool IsChecked() const { return GetState() == BST_CHECKED; }
    void Check(bool check) { SetState(check ? BST_CHECKED : BST_UNCHECKED); }
};
