#include "ui/udialog.h"

#include "ui/ucontrol.h"

OString UDialog::GetString(int) {
    return OString();
}

bool UDialog::OnDrawItem(const DRAWITEMSTRUCT&) {
    return false;
}

HWND UDialog::GetItem(int id) const {
    return window_ ? GetDlgItem(window_, id) : nullptr;
}

UControl* UDialog::GetControl(int id) const {
    for (int i = 0; i < controls_.GetSize(); ++i)
        if (controls_[i]->GetWindow() && controls_[i]->GetID() == id) return controls_[i];
    return nullptr;
}

void UDialog::BindControl(UControl* control) {
    control->MarkInvalid();
    controls_.Add(control);
}

void UDialog::Refresh() {
    for (int i = 0; i < controls_.GetSize(); ++i) controls_[i]->MarkRefreshed();
}

bool UDialog::DlgProc(UINT message, WPARAM, LPARAM second, INT_PTR& result) {
    switch (message) {
    case WM_DRAWITEM: {
        const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(second);
        UControl* control = GetControl(static_cast<int>(item->CtlID));
        result = (control && control->OnDrawItem(*item)) || OnDrawItem(*item);
        return true;
    }
    case WM_HSCROLL:
    case WM_VSCROLL: {
        const auto source = reinterpret_cast<HWND>(second);
        UControl* control = source ? GetControl(GetDlgCtrlID(source)) : nullptr;
        if (control) control->OnUpdate();
        result = FALSE;
        return true;
    }
    default:
        return false;
    }
}
