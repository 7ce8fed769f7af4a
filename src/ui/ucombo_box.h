// Combo boxes.
#pragma once

#include <windows.h>

#include "ui/ucontrol.h"

// Items are numbered from 0; -1 is none. An item's data is a number or a pointer that the dialog
// attaches to it.
class UComboBox : public UControl {
public:
    void ResetContent() { Send(CB_RESETCONTENT); }
    int GetCount() const { return static_cast<int>(Send(CB_GETCOUNT)); }

    // Add an item at the end, before another, or where it sorts among the others by its text
    // without regard to case. A list that the system sorts itself decides instead. The index, or -1
    // without memory.
    int AddString(const OString& text, LPARAM data);
    int InsertString(int index, const OString& text, LPARAM data);
    int AddSorted(const OString& text, LPARAM data);
    void DeleteString(int index) { Send(CB_DELETESTRING, static_cast<WPARAM>(index)); }

    OString GetString(int index) const;
    // 0 for an item that does not exist.
    LPARAM GetData(int index) const;
    void SetData(int index, LPARAM data);
    // The first item with that data, or -1.
    int FindData(LPARAM data) const;

    int GetCurSel() const { return window_ ? static_cast<int>(Send(CB_GETCURSEL)) : -1; }
    // Tells nobody. -1 selects none.
    void SetCurSel(int index) { Send(CB_SETCURSEL, static_cast<WPARAM>(index)); }
    // The data of the selected item, or `none` without one.
    LPARAM GetCurSelData(LPARAM none = 0) const;
    // Selects the first item with that data. False, with nothing changed, if there is none.
    bool SetCurSelData(LPARAM data);
};
