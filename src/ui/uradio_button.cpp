#include "ui/uradio_button.h"

#include "ui/udialog.h"

HWND URadioButton::Button(int index) const {
    if (!GetDialog() || index < 0 || index >= buttons_.GetSize()) return nullptr;
    return GetDialog()->GetItem(buttons_[index]);
}

int URadioButton::GetCurSel() const {
    for (int index = 0; index < buttons_.GetSize(); ++index)
        if (HWND button = Button(index))
            if (SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED) return index;
    return -1;
}

void URadioButton::SetCurSel(int selected) {
    for (int index = 0; index < buttons_.GetSize(); ++index)
        if (HWND button = Button(index))
            SendMessageW(button, BM_SETCHECK, index == selected ? BST_CHECKED : BST_UNCHECKED, 0);
}

void URadioButton::Show(bool show) {
    for (int index = 0; index < buttons_.GetSize(); ++index)
        if (HWND button = Button(index)) ShowWindow(button, show ? SW_SHOW : SW_HIDE);
}

void URadioButton::Enable(bool enable) {
    for (int index = 0; index < buttons_.GetSize(); ++index) EnableButton(index, enable);
}

void URadioButton::EnableButton(int index, bool enable) {
    if (HWND button = Button(index)) EnableWindow(button, enable);
}
