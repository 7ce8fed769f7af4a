#include "window/static.h"

#include "window/control_paint.h"

namespace win32host {

StaticControl::~StaticControl() {
    if (own_bitmap_) DeleteObject(own_bitmap_);
}

LRESULT StaticControl::Handle(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_CREATE:
        LoadNamedPicture(*reinterpret_cast<const CREATESTRUCTW*>(second));
        return 0;
    case WM_NCHITTEST:
        return Style() & SS_NOTIFY ? HTCLIENT : HTTRANSPARENT;
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_SETTEXT: {
        const LRESULT answer = DefWindowProcW(Self(), message, first, second);
        InvalidateRect(Self(), nullptr, TRUE);
        return answer;
    }
    case WM_SETFONT:
        font_ = reinterpret_cast<HFONT>(first);
        if (LOWORD(second)) InvalidateRect(Self(), nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font_);
    case STM_SETIMAGE:
        return SetImage(static_cast<UINT>(first), reinterpret_cast<HANDLE>(second));
    case STM_GETIMAGE:
        return GetImage(static_cast<UINT>(first));
    case STM_SETICON:
        return SetImage(IMAGE_ICON, reinterpret_cast<HANDLE>(first));
    case STM_GETICON:
        return GetImage(IMAGE_ICON);
    case WM_LBUTTONDOWN:
        Tell(STN_CLICKED);
        return 0;
    case WM_LBUTTONDBLCLK:
        Tell(STN_DBLCLK);
        return 0;
    case WM_ENABLE:
        InvalidateRect(Self(), nullptr, TRUE);
        Tell(first ? STN_ENABLE : STN_DISABLE);
        return 0;
    case WM_STYLECHANGED:
        InvalidateRect(Self(), nullptr, TRUE);
        return 0;
    case WM_ERASEBKGND:
        return TRUE; // everything is painted at once
    case WM_PAINT:
    case WM_PRINTCLIENT:
        Paint(first);
        return 0;
    default:
        return DefWindowProcW(Self(), message, first, second);
    }
}

LRESULT StaticControl::SetImage(UINT type, HANDLE image) {
    const bool fits = type == IMAGE_BITMAP
                          ? ShowsBitmap()
                          : ShowsIcon() && (type == IMAGE_ICON || type == IMAGE_CURSOR);
    if (!fits) return 0;
    const HANDLE before = image_;
    image_ = image;
    if (ShowsBitmap()) {
        // Whoever gets it back need not know where it came from.
        if (before == own_bitmap_) own_bitmap_ = nullptr;
        TakeBitmapSize();
    }
    InvalidateRect(Self(), nullptr, TRUE);
    return reinterpret_cast<LRESULT>(before);
}

LRESULT StaticControl::GetImage(UINT type) const {
    const bool fits = type == IMAGE_BITMAP ? ShowsBitmap() : ShowsIcon();
    return fits ? reinterpret_cast<LRESULT>(image_) : 0;
}

void StaticControl::LoadNamedPicture(const CREATESTRUCTW& created) {
    // Templates have 0xFFFF and the number in place of a text, or the resource's name.
    LPCWSTR name = created.lpszName;
    if (!name || !(ShowsBitmap() || ShowsIcon())) return;
    if (reinterpret_cast<UINT_PTR>(name) > 0xFFFF) {
        if (name[0] == 0xFFFF)
            name = MAKEINTRESOURCEW(name[1]);
        else if (name[0] == u'\0')
            return;
    }
    if (ShowsIcon()) {
        image_ = LoadIconW(created.hInstance, name);
        return;
    }
    own_bitmap_ = LoadBitmapW(created.hInstance, name);
    image_ = own_bitmap_;
    TakeBitmapSize();
}

void StaticControl::TakeBitmapSize() {
    if (Style() & (SS_CENTERIMAGE | SS_REALSIZECONTROL)) return;
    const SIZE size = SizeOfBitmap(static_cast<HBITMAP>(image_));
    if (size.cx == 0 || size.cy == 0) return;
    RECT window, client;
    GetWindowRect(Self(), &window);
    GetClientRect(Self(), &client);
    SetWindowPos(Self(), nullptr, 0, 0, size.cx + (window.right - window.left) - client.right,
                 size.cy + (window.bottom - window.top) - client.bottom,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void RegisterStatic() {
    RegisterControl<StaticControl>(u"Static", CS_DBLCLKS | CS_PARENTDC | CS_HREDRAW | CS_VREDRAW);
}

} // namespace win32host
