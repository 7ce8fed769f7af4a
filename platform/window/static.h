// Static controls: labels, lines, frames and pictures.
#pragma once

#include "window/control.h"

namespace win32host {

class ControlPaint;

class StaticControl : public Control {
public:
    using Control::Control;
    ~StaticControl() override;

    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    DWORD Kind() const { return Style() & SS_TYPEMASK; }
    bool ShowsBitmap() const { return Kind() == SS_BITMAP; }
    bool ShowsIcon() const { return Kind() == SS_ICON; }

    LRESULT SetImage(UINT type, HANDLE image);
    LRESULT GetImage(UINT type) const;
    // A picture that the dialog template names by its number.
    void LoadNamedPicture(const CREATESTRUCTW& created);
    // Makes the control as large as its bitmap, unless a style forbids it.
    void TakeBitmapSize();
    void Tell(int code) const {
        if (Style() & SS_NOTIFY) NotifyCommand(code);
    }

    void Paint(WPARAM context);
    void PaintText(const ControlPaint& paint) const;
    void PaintBitmap(const ControlPaint& paint) const;
    void PaintIcon(const ControlPaint& paint) const;
    void PaintShape(const ControlPaint& paint) const;

    HFONT font_ = nullptr;
    HANDLE image_ = nullptr;
    HBITMAP own_bitmap_ = nullptr; // from the template
};

} // namespace win32host
