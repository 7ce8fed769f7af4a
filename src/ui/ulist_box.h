// List boxes.
#pragma once

#include <windows.h>

#include "core/oarray.h"
#include "core/ostring_array.h"
#include "ui/ucontrol.h"

// Items are numbered from 0; -1 is none. An item's data is a number or a pointer that the dialog
// attaches to it. The list takes one selected item or, by its style, several.
class UListBox : public UControl {
public:
    bool IsMultiple() const { return (GetStyle() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }

    void ResetContent() { Send(LB_RESETCONTENT); }
    int GetCount() const { return static_cast<int>(Send(LB_GETCOUNT)); }

    // As in UComboBox.
    int AddString(const OString& text, LPARAM data);
    int InsertString(int index, const OString& text, LPARAM data);
    int AddSorted(const OString& text, LPARAM data);
    void DeleteString(int index) { Send(LB_DELETESTRING, static_cast<WPARAM>(index)); }
    // Replaces an item's text and keeps its data and selection.
    void SetString(int index, const OString& text);

    OString GetString(int index) const;
    LPARAM GetData(int index) const;
    void SetData(int index, LPARAM data);
    int FindData(LPARAM data) const;

    // ---- A list of one selected item; one of several has the item with the focus.

    int GetCurSel() const { return window_ ? static_cast<int>(Send(LB_GETCURSEL)) : -1; }
    void SetCurSel(int index) { Send(LB_SETCURSEL, static_cast<WPARAM>(index)); }
    LPARAM GetCurSelData(LPARAM none = 0) const;
    bool SetCurSelData(LPARAM data);

    // ---- Selected items of either kind of list.

    bool IsSelected(int index) const;
    // In a list of one selected item this moves the selection, or clears it.
    void Select(int index, bool select);
    // All items from one to another, both included.
    void SelectRange(int first, int last, bool select);
    int GetSelectedCount() const;
    // Replace the array with the selected items, in order, or their texts.
    void GetSelected(OTypedArray<int>& items) const;
    void GetSelected(OStringArray& texts) const;
    // Selects exactly the items with these texts, as far as there are any.
    void SetSelected(const OStringArray& texts);

    // The first item in view.
    int GetTopIndex() const { return static_cast<int>(Send(LB_GETTOPINDEX)); }
    void SetTopIndex(int index) { Send(LB_SETTOPINDEX, static_cast<WPARAM>(index)); }
};
