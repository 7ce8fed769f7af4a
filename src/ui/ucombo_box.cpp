#include "ui/ucombo_box.h"

int UComboBox::AddString(const OString& text, LPARAM data) {
    if (!window_) return -1;
    const auto index =
        static_cast<int>(Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.wstring())));
    if (index < 0) return -1;
    SetData(index, data);
    return index;
}

int UComboBox::InsertString(int index, const OString& text, LPARAM data) {
    if (!window_) return -1;
    const auto at = static_cast<int>(Send(CB_INSERTSTRING, static_cast<WPARAM>(index),
                                          reinterpret_cast<LPARAM>(text.wstring())));
    if (at < 0) return -1;
    SetData(at, data);
    return at;
}

int UComboBox::AddSorted(const OString& text, LPARAM data) {
    if (GetStyle() & CBS_SORT) return AddString(text, data);
    int index = 0;
    while (index < GetCount() && GetString(index).CompareNoCase(text) <= 0) ++index;
    return InsertString(index, text, data);
}

OString UComboBox::GetString(int index) const {
    OString text;
    const auto length =
        window_ ? static_cast<int>(Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index))) : 0;
    WCHAR* const room = length > 0 ? text.GetBufferW(length) : nullptr;
    if (room) Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(room));
    return text;
}

LPARAM UComboBox::GetData(int index) const {
    if (index < 0 || index >= GetCount()) return 0;
    return Send(CB_GETITEMDATA, static_cast<WPARAM>(index));
}

void UComboBox::SetData(int index, LPARAM data) {
    Send(CB_SETITEMDATA, static_cast<WPARAM>(index), data);
}

int UComboBox::FindData(LPARAM data) const {
    const int count = GetCount();
    for (int index = 0; index < count; ++index)
        if (GetData(index) == data) return index;
    return -1;
}

LPARAM UComboBox::GetCurSelData(LPARAM none) const {
    const int index = GetCurSel();
    return index < 0 ? none : GetData(index);
}

bool UComboBox::SetCurSelData(LPARAM data) {
    const int index = FindData(data);
    if (index >= 0) SetCurSel(index);
    return index >= 0;
}
