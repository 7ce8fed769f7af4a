// Header controls (SysHeader32): titles beside each other that can be clicked, and made wider by
// dragging the line after them.
#pragma once

#include "window/control.h"

#include <commctrl.h>

#include <string>
#include <vector>

namespace win32host {

class HeaderControl : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    struct Title {
        std::u16string text;
        int width = 0;
        int format = HDF_LEFT | HDF_STRING;
        LPARAM data = 0;
        int image = 0;
    };

    LRESULT Insert(int at, const HDITEMW& item);
    LRESULT Delete(int at);
    LRESULT Get(int at, HDITEMW& item) const;
    LRESULT Set(int at, const HDITEMW& item);
    LRESULT SetOrder(int count, const int* order);
    LRESULT GetOrder(int count, int* order) const;
    LRESULT Layout(const HDLAYOUT& layout) const;
    LRESULT HitTest(HDHITTESTINFO& info) const;

    void MouseDown(POINT point);
    void MouseMove(POINT point);
    void MouseUp(POINT point);
    void DoubleClick(POINT point);
    LRESULT Notify(UINT code, int at, HDITEMW* item = nullptr) const;

    bool Has(int at) const { return at >= 0 && at < static_cast<int>(titles_.size()); }
    Title& At(int at) { return titles_[static_cast<size_t>(at)]; }
    const Title& At(int at) const { return titles_[static_cast<size_t>(at)]; }
    RECT RectOf(int at) const;
    void Paint(WPARAM context) const; // header_painting.cpp

    std::vector<Title> titles_;
    std::vector<int> order_; // from left to right
    HFONT font_ = nullptr;
    int pressed_ = -1; // the title that is held down
    int dragged_ = -1; // the title whose width is being changed
    int grip_ = 0;     // from the point that is held to its right edge
};

} // namespace win32host
