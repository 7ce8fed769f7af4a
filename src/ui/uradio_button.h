// Groups of radio buttons.
#pragma once

#include "core/oarray.h"
#include "ui/ucontrol.h"

// One object for a group. It is bound with identifier 0, and has no window of its own.
class URadioButton : public UControl {
public:
    // Adds a button of the dialog; its index is the number of those before it.
    void AddButton(int id) { buttons_.Add(id); }
    int GetCount() const { return buttons_.GetSize(); }

    // The index of the checked button, or -1.
    int GetCurSel() const;
    // Checks one button and no other. -1 checks none.
    void SetCurSel(int index);

    // For all buttons.
    void Show(bool show) override;
    void Enable(bool enable) override;
    void EnableButton(int index, bool enable);

private:
    HWND Button(int index) const;

    OTypedArray<int> buttons_;
};
