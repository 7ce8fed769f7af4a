// Tab controls (SysTabControl32).
//
// The tabs are above the page, in one row or, with TCS_MULTILINE, in as many as they need. A single
// row that is too long starts with the first tab that lets the selected one be seen. Tabs at other
// sides, buttons in place of tabs and tabs that the owner draws are not supported.
#pragma once

#include "window/control.h"
#include "window/notify.h"

#include <commctrl.h>

#include <string>
#include <vector>

namespace win32host {

class ControlPaint;

class TabControl : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    struct Tab {
        std::u16string text;
        LPARAM data = 0;
        DWORD state = 0;
        int image = -1;
        // Set by Layout:
        int row = 0;
        RECT rect = {};
    };

    // Messages.
    LRESULT Insert(int at, const TCITEMW& item);
    LRESULT Delete(int at);
    LRESULT DeleteAll();
    LRESULT Get(int at, TCITEMW& item) const;
    LRESULT Set(int at, const TCITEMW& item);
    LRESULT Select(int at);
    LRESULT HitTest(TCHITTESTINFO& info);
    LRESULT ItemRect(int at, RECT* rect);
    LRESULT AdjustRect(bool larger, RECT& rect);
    LRESULT SetItemSize(int width, int height);

    // What the user does.
    void MouseDown(POINT point);
    void KeyDown(WPARAM key, LPARAM flags);
    // Selects a tab as the user does: the parent may refuse.
    void Choose(int at);

    bool Has(int at) const { return at >= 0 && at < static_cast<int>(tabs_.size()); }
    int TabAt(POINT point);
    void Change(Tab& tab, const TCITEMW& item);
    // Something changed that the places of tabs depend on.
    void Changed();

    // tab_layout.cpp
    void Layout();
    void FillRows(int width);
    void JustifyRows(int width);
    void ScrollRow(int width);
    // The height of all rows of tabs.
    int TabsHeight();

    // tab_painting.cpp
    void Paint(WPARAM context);
    void PaintTab(const ControlPaint& paint, int at) const;

    std::vector<Tab> tabs_;
    int selected_ = -1;
    HFONT font_ = nullptr;
    int fixed_width_ = 0;  // TCM_SETITEMSIZE
    int fixed_height_ = 0; // 0: by the font
    int least_width_ = -1; // TCM_SETMINTABWIDTH; -1: the usual one
    int padding_x_ = -1;   // TCM_SETPADDING; -1: the usual one
    int padding_y_ = -1;
    bool placed_ = false; // the members that Layout sets are right
    int first_ = 0;       // the first tab of a single row that is too long
    int rows_ = 1;
    int row_height_ = 0;
};

} // namespace win32host
