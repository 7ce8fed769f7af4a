#include "window/notify.h"

namespace win32host {

LRESULT NotifyParent(HWND control, UINT code, NMHDR& head) {
    head.hwndFrom = control;
    head.idFrom = static_cast<UINT_PTR>(GetWindowLongPtrW(control, GWLP_ID));
    head.code = code;
    return SendMessageW(GetParent(control), WM_NOTIFY, head.idFrom,
                        reinterpret_cast<LPARAM>(&head));
}

LRESULT NotifyParent(HWND control, UINT code) {
    NMHDR head = {};
    return NotifyParent(control, code, head);
}

int CopyText(std::u16string_view text, LPWSTR buffer, int size) {
    if (!buffer || size <= 0) return 0;
    const size_t count = std::min(text.size(), static_cast<size_t>(size) - 1);
    *std::copy_n(text.begin(), count, buffer) = u'\0';
    return static_cast<int>(count);
}

} // namespace win32host
