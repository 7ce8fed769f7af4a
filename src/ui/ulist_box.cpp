#include "ui/ulist_box.h"

int UListBox::AddString(const OString& text, LPARAM data) {
    if (!window_) return -1;
    const auto index =
        static_cast<int>(Send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.wstring())));
    if (index < 0) return -1;
    SetData(index, data);
    return index;
}

int UListBox::InsertString(int index, const OString& text, LPARAM data) {
    if (!window_) return -1;
    const auto at = static_cast<int>(Send(LB_INSERTSTRING, static_cast<WPARAM>(index),
                                          reinterpret_cast<LPARAM>(text.wstring())));
    if (at < 0) return -1;
    SetData(at, data);
    return at;
}

int UListBox::AddSorted(const OString& text, LPARAM data) {
    if (GetStyle() & LBS_SORT) return AddString(text, data);
    int index = 0;
    while (index < GetCount() && GetString(index).CompareNoCase(text) <= 0) ++index;
    return InsertString(index, text, data);
}

void UListBox::SetString(int index, const OString& text) {
    if (index < 0 || index >= GetCount()) return;
    const LPARAM data = GetData(index);
    const bool selected = IsSelected(index);
    DeleteString(index);
    InsertString(index, text, data);
    if (selected) Select(index, true);
}

OString UListBox::GetString(int index) const {
    OString text;
    const auto length =
        window_ ? static_cast<int>(Send(LB_GETTEXTLEN, static_cast<WPARAM>(index))) : 0;
    WCHAR* const room = length > 0 ? text.GetBufferW(length) : nullptr;
    if (room) Send(LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(room));
    return text;
}

LPARAM UListBox::GetData(int index) const {
    if (index < 0 || index >= GetCount()) return 0;
    return Send(LB_GETITEMDATA, static_cast<WPARAM>(index));
}

void UListBox::SetData(int index, LPARAM data) {
    Send(LB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int UListBox::FindData(LPARAM data) const {
    const int count = GetCount();
    for (int index = 0; index < count; ++index)
        if (GetData(index) == data) return index;
    return -1;
}

LPARAM UListBox::GetCurSelData(LPARAM none) const {
    const int index = GetCurSel();
    return index < 0 ? none : GetData(index);
}

bool UListBox::SetCurSelData(LPARAM data) {
    const int index = FindData(data);
    if (index >= 0) SetCurSel(index);
    return index >= 0;
}

bool UListBox::IsSelected(int index) const {
    return Send(LB_GETSEL, static_cast<WPARAM>(index)) > 0;
}

void UListBox::Select(int index, bool select) {
    if (IsMultiple())
        Send(LB_SETSEL, select, index);
    else if (select)
        SetCurSel(index);
    else if (IsSelected(index))
        SetCurSel(-1);
}

void UListBox::SelectRange(int first, int last, bool select) {
    for (int index = first; index <= last; ++index) Select(index, select);
}

int UListBox::GetSelectedCount() const {
    if (IsMultiple()) return static_cast<int>(Send(LB_GETSELCOUNT));
    return GetCurSel() < 0 ? 0 : 1;
}

void UListBox::GetSelected(OTypedArray<int>& items) const {
    items.SetSize(0);
    const int count = GetCount();
    for (int index = 0; index < count; ++index)
        if (IsSelected(index)) items.Add(index);
}

void UListBox::GetSelected(OStringArray& texts) const {
    texts.SetSize(0);
    const int count = GetCount();
    for (int index = 0; index < count; ++index)
        if (IsSelected(index)) texts.Add(GetString(index));
}

void UListBox::SetSelected(const OStringArray& texts) {
    const int count = GetCount();
    for (int index = 0; index < count; ++index) {
        const OString text = GetString(index);
        bool wanted = false;
        for (int i = 0; i < texts.GetSize() && !wanted; ++i) wanted = texts[i] == text;
        if (wanted != IsSelected(index)) Select(index, wanted);
    }
}
