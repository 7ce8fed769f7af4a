// What controls need when they paint: a context, the colours of their parent, their text.
#pragma once

#include <windows.h>

#include <string>

namespace win32host {

// The window's text.
std::u16string TextOfWindow(HWND window);

// The painting of a control, for as long as it lasts: WM_PAINT, or WM_PRINTCLIENT.
class ControlPaint {
public:
    // `context` is the message's first parameter: the context to paint on, or 0 to begin to paint.
    // `font`: of the text, null for the system's.
    ControlPaint(HWND control, WPARAM context, HFONT font);
    ~ControlPaint();
    ControlPaint(const ControlPaint&) = delete;
    ControlPaint& operator=(const ControlPaint&) = delete;

    HDC Context() const { return dc_; }
    const RECT& Client() const { return client_; }

    // Asks the parent for the colours of the control with `message` (WM_CTLCOLORSTATIC, ...). The
    // context has them afterwards. Answers the brush of the background; it is the parent's.
    HBRUSH AskColors(UINT message) const;
    // The same, and fills the control with it.
    void FillBackground(UINT message) const { FillRect(dc_, &client_, AskColors(message)); }

    // The text's size as DrawTextW breaks it into lines of `width`.
    SIZE TextSize(const std::u16string& text, int width, UINT format) const;
    // Draws the text in the context's colour, or in that of what is disabled.
    void DrawLabelText(const std::u16string& text, RECT rect, UINT format, bool disabled) const;
    // Draws the bitmap in the rectangle, stretched to it or in its own size at its upper left.
    void DrawBitmap(HBITMAP bitmap, const RECT& rect, bool stretch) const;

private:
    HWND control_;
    bool begun_;
    PAINTSTRUCT paint_ = {};
    HDC dc_;
    HGDIOBJ font_before_ = nullptr;
    RECT client_ = {};
};

// The size of a bitmap; 0, 0 if it is none.
SIZE SizeOfBitmap(HBITMAP bitmap);

} // namespace win32host
