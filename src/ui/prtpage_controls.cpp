// prtpage: the controls of the page.
#include <windows.h>

#include <commctrl.h>

#include "core/numbers.h"
#include "model/prtmodel.h"
#include "ui/prtbitmap.h"
#include "ui/prtpage.h"
#include "ui/prtui.h"
#include "ui/uwindow.h"

namespace {

// The identifier of a field's up-down control is that of the field and this.
constexpr int kUpDown = 0x4000;

constexpr int kLongestNumber = 14;     // characters that a number field takes
constexpr int kLongestNumberRead = 15; // that count when it is read
constexpr int32_t kMicronsPerInch = 25400;

} // namespace

// ---- All controls -------------------------------------------------------------------------------

HWND prtpage::UpDownOf(int id) const {
    return GetItem(id + kUpDown);
}

bool prtpage::WM_Show(int id, bool show) {
    const HWND control = GetItem(id);
    if (!control) return false;
    ShowWindow(control, show ? SW_SHOW : SW_HIDE);
    if (const HWND arrows = UpDownOf(id)) ShowWindow(arrows, show ? SW_SHOW : SW_HIDE);
    return true;
}

bool prtpage::WM_Enable(int id, bool enable) {
    const HWND control = GetItem(id);
    if (!control) return false;
    EnableWindow(control, enable);
    if (const HWND arrows = UpDownOf(id)) EnableWindow(arrows, enable);
    return true;
}

bool prtpage::WM_SetFocus(int id) {
    const HWND control = GetItem(id);
    if (control) ::SetFocus(control);
    return control != nullptr;
}

void prtpage::WM_EnableAll(bool enable, int first, int last) {
    HWND control = first != 0 ? GetItem(first) : ::GetWindow(window_, GW_CHILD);
    for (; control; control = ::GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        if (id != OK_BUTTON && id != CANCEL_BUTTON && id != HELP_BUTTON)
            EnableWindow(control, enable);
        if (last != 0 && id == last) break;
    }
}

// ---- Texts --------------------------------------------------------------------------------------

bool prtpage::EM_SetText(int id, const OString& text) {
    const HWND control = GetItem(id);
    SetTextOfWindow(control, text);
    return control != nullptr;
}

bool prtpage::WM_GetText(int id, OString& text) const {
    const HWND control = GetItem(id);
    text = TextOfWindow(control);
    return control != nullptr;
}

bool prtpage::WM_GetText(int id, WCHAR* text, int size) const {
    if (size > 0) text[0] = 0;
    const HWND control = GetItem(id);
    if (control && size > 0) GetWindowTextW(control, text, size);
    return control != nullptr;
}

bool prtpage::EM_LimitText(int id, int32_t characters) {
    const HWND control = GetItem(id);
    if (control) SendMessageW(control, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
    return control != nullptr;
}

bool prtpage::EM_SetReadOnly(int id, bool read_only) {
    const HWND control = GetItem(id);
    if (control) SendMessageW(control, EM_SETREADONLY, read_only, 0);
    return control != nullptr;
}

bool prtpage::EM_SetSel(int id, int start, int end) {
    const HWND control = GetItem(id);
    if (control) SendMessageW(control, EM_SETSEL, static_cast<WPARAM>(start), end);
    return control != nullptr;
}

// ---- Numbers and lengths ------------------------------------------------------------------------

int32_t prtpage::EM_GetInt(int id) const {
    WCHAR text[kLongestNumberRead + 1] = {};
    WM_GetText(id, text, kLongestNumberRead + 1);
    return xtol(text);
}

bool prtpage::EM_SetInt(int id, int32_t number) {
    if (!EM_SetText(id, FormatInt(number))) return false;
    EM_LimitText(id, kLongestNumber);
    if (const HWND arrows = UpDownOf(id)) SendMessageW(arrows, UDM_SETPOS32, 0, number);
    return true;
}

bool prtpage::EM_AddUpDownInt(int id, int least, int most) {
    const HWND field = GetItem(id);
    if (!field) return false;
    HWND arrows = UpDownOf(id);
    if (!arrows) {
        arrows = CreateWindowExW(0, UPDOWN_CLASSW, nullptr,
                                 WS_CHILD | WS_VISIBLE | UDS_SETBUDDYINT | UDS_ALIGNRIGHT |
                                     UDS_ARROWKEYS | UDS_NOTHOUSANDS,
                                 0, 0, 0, 0, window_,
                                 reinterpret_cast<HMENU>(static_cast<INT_PTR>(id + kUpDown)),
                                 nullptr, nullptr);
        if (!arrows) return false;
        SendMessageW(arrows, UDM_SETBUDDY, reinterpret_cast<WPARAM>(field), 0);
        // After its field, so that both are in the same ranges of controls.
        SetWindowPos(arrows, field, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        EnableWindow(arrows, IsWindowEnabled(field));
    }
    SendMessageW(arrows, UDM_SETRANGE32, static_cast<WPARAM>(least), most);
    return true;
}

int32_t prtpage::EM_GetMicrons(int id) const {
    OString text;
    WM_GetText(id, text);
    return string_to_microns(text);
}

bool prtpage::EM_SetMicrons(int id, int32_t microns) {
    return EM_SetText(id, microns_to_string(microns));
}

int32_t prtpage::EM_GetDots(int id) const {
    return microns_to_dots(EM_GetMicrons(id));
}

bool prtpage::EM_SetDots(int id, int32_t dots) {
    return EM_SetMicrons(id, dots_to_microns(dots));
}

int32_t prtpage::microns_to_dots(int32_t microns) const {
    return GetModel() ? muldiv64s(microns, GetModel()->GetXResolution(), kMicronsPerInch) : 0;
}

int32_t prtpage::dots_to_microns(int32_t dots) const {
    return GetModel() ? muldiv64s(dots, kMicronsPerInch, GetModel()->GetXResolution()) : 0;
}

OString prtpage::microns_to_string(int32_t microns) const {
    return ui_->locale.microns_to_string(microns);
}

int32_t prtpage::string_to_microns(const OString& text) const {
    return ui_->locale.string_to_microns(text);
}

OString prtpage::xdimension_to_string(int dots, int dpi) const {
    return ui_->locale.xdimension_to_string(dots, dpi);
}

OString prtpage::dpi_to_string(int dpi) const {
    return ui_->locale.dpi_to_string(dpi);
}

// ---- Combo boxes --------------------------------------------------------------------------------

int prtpage::CB_GetCount(int id) const {
    const HWND list = GetItem(id);
    return list ? static_cast<int>(SendMessageW(list, CB_GETCOUNT, 0, 0)) : 0;
}

bool prtpage::CB_ResetContent(int id) {
    const HWND list = GetItem(id);
    if (list) SendMessageW(list, CB_RESETCONTENT, 0, 0);
    return list != nullptr;
}

int prtpage::CB_AddString(int id, const OString& text, LPARAM data) {
    const HWND list = GetItem(id);
    if (!list) return -1;
    const auto index = static_cast<int>(
        SendMessageW(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.wstring())));
    if (index < 0) return -1;
    SendMessageW(list, CB_SETITEMDATA, static_cast<WPARAM>(index), data);
    return index;
}

int prtpage::CB_AddSpeed(int id, int32_t speed, LPARAM data) {
    OString text = microns_to_string(speed);
    return CB_AddString(id, text << ui_->locale.GetSecondLabel(), data == -1 ? speed : data);
}

bool prtpage::CB_SetCurSel(int id, int index) {
    const HWND list = GetItem(id);
    if (list) SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    return list != nullptr;
}

int prtpage::CB_GetCurSel(int id) const {
    const HWND list = GetItem(id);
    return list ? static_cast<int>(SendMessageW(list, CB_GETCURSEL, 0, 0)) : -1;
}

LPARAM prtpage::CB_GetSelData(int id, int index) const {
    if (index < 0 || index >= CB_GetCount(id)) return 0;
    return SendMessageW(GetItem(id), CB_GETITEMDATA, static_cast<WPARAM>(index), 0);
}

LPARAM prtpage::CB_GetCurSelData(int id) const {
    return CB_GetSelData(id, CB_GetCurSel(id));
}

bool prtpage::CB_SetCurSelData(int id, LPARAM data) {
    const int count = CB_GetCount(id);
    for (int index = 0; index < count; ++index)
        if (CB_GetSelData(id, index) == data) return CB_SetCurSel(id, index);
    return false;
}

// ---- Others -------------------------------------------------------------------------------------

bool prtpage::BMM_SetBitmap(int id, int bitmap, bool stretch) {
    return prtbitmap::SetBitmap(GetItem(id), ui_->locale, bitmap, stretch);
}

bool prtpage::BMM_SetBitmapHandle(int id, HBITMAP bitmap) {
    return prtbitmap::SetBitmapHandle(GetItem(id), bitmap);
}

bool prtpage::SetTimer(int id, uint32_t milliseconds) {
    return ::SetTimer(window_, static_cast<UINT_PTR>(id), milliseconds, nullptr) != 0;
}

bool prtpage::KillTimer(int id) {
    return ::KillTimer(window_, static_cast<UINT_PTR>(id));
}

LRESULT prtpage::Forward(int id, UINT message, WPARAM first, LPARAM second) {
    const HWND control = GetItem(id);
    return control ? SendMessageW(control, message, first, second) : 0;
}
