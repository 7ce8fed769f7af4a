#include "ui/upop_button.h"

#include "ui/ucolor.h"
#include "ui/udialog.h"

namespace {

// An arrow of this many rows, pointing down or right from its middle.
void DrawMenuArrow(HDC dc, int x, int y, int rows, bool right, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    if (!brush) return;
    for (int row = 0; row < rows; ++row) {
        const int half = rows - 1 - row;
        const RECT line = right ? RECT{x + row, y - half, x + row + 1, y + half + 1}
                                : RECT{x - half, y + row, x + half + 1, y + row + 1};
        FillRect(dc, &line, brush);
    }
    DeleteObject(brush);
}

} // namespace

bool UPopButton::OnDrawItem(const DRAWITEMSTRUCT& item) {
    RECT area = item.rcItem;
    const bool disabled = (item.itemState & ODS_DISABLED) != 0;
    DrawFrameControl(item.hDC, &area, DFC_BUTTON,
                     DFCS_BUTTONPUSH | UINT(down_ ? DFCS_PUSHED : 0) |
                         UINT(disabled ? DFCS_INACTIVE : 0));
    if (down_) OffsetRect(&area, 1, 1);

    const UColor color = UColor::OfSystem(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
    const int height = static_cast<int>(area.bottom - area.top);
    const int rows = height / 6 > 3 ? height / 6 : 3;
    const int arrow = area.right - 3 * rows;
    DrawMenuArrow(item.hDC, arrow, area.top + (height - (OpensRight() ? 0 : rows)) / 2, rows,
                  OpensRight(), color.GetValue());

    const HFONT font = GetFont();
    const HGDIOBJ before = font ? SelectObject(item.hDC, font) : nullptr;
    const int mode = SetBkMode(item.hDC, TRANSPARENT);
    const COLORREF old_color = SetTextColor(item.hDC, color.GetValue());
    RECT text = area;
    text.right = arrow - rows;
    const OString label = GetText();
    DrawTextW(item.hDC, label.wstring(), -1, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    SetTextColor(item.hDC, old_color);
    SetBkMode(item.hDC, mode);
    if (before) SelectObject(item.hDC, before);

    if (item.itemState & ODS_FOCUS && !(item.itemState & ODS_NOFOCUSRECT)) {
        RECT focus = item.rcItem;
        InflateRect(&focus, -4, -4);
        DrawFocusRect(item.hDC, &focus);
    }
    return true;
}

bool UPopButton::OnLButtonDown(uint32_t, CPoint) {
    TakeFocus();
    Drop();
    return true;
}

bool UPopButton::OnLButtonDoubleClick(uint32_t flags, CPoint at) {
    return OnLButtonDown(flags, at);
}

bool UPopButton::OnKeyDown(uint32_t key, uint32_t, uint32_t) {
    if (key != VK_SPACE) return false;
    Drop();
    return true;
}

void UPopButton::Drop() {
    const HWND button = window_;
    const HWND dialog = GetDialog()->GetWindow();
    RECT area = {};
    if (!GetWindowRect(button, &area)) return;
    down_ = true;
    RedrawWindow(button, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const bool right = OpensRight();
    const POINT at = right ? POINT{area.right, area.top} : POINT{area.left, area.bottom};
    const int chosen = menu_.Track(
        dialog, at, TPM_LEFTALIGN | TPM_TOPALIGN | UINT(right ? TPM_HORIZONTAL : TPM_VERTICAL),
        area);
    if (!IsWindow(button)) return; // the object went with it
    down_ = false;
    RedrawWindow(button, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    // The click that closed the menu must not open it again.
    MSG message = {};
    while (PeekMessageW(&message, button, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, PM_REMOVE)) {
    }
    if (chosen != 0) SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(chosen), 0), 0);
}
