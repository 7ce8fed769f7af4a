// List views (SysListView32), always in report mode: a header with columns, and a row for each
// item.
#pragma once

#include "window/control.h"
#include "window/notify.h"

#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

namespace win32host {

class ListView : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

private:
    struct Cell {
        std::u16string text;
        bool asks = false; // the parent is asked for the text
    };
    struct Item {
        std::vector<Cell> cells; // by sub-item; those that are missing are empty
        UINT state = 0;          // LVIS_ bits
        LPARAM data = 0;
        int image = 0;
        int indent = 0;
    };
    struct Column {
        int format = LVCFMT_LEFT;
        int sub_item = 0;
    };

    // list_view.cpp: messages.
    LRESULT HandleItems(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleColumns(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleView(UINT message, WPARAM first, LPARAM second);
    bool Create();
    LRESULT SetExtendedStyle(DWORD mask, DWORD style);

    // list_view_items.cpp
    LRESULT Insert(const LVITEMW& item);
    LRESULT Delete(int at);
    LRESULT DeleteAll();
    LRESULT Get(LVITEMW& item);
    LRESULT Set(const LVITEMW& item);
    LRESULT GetText(int at, LVITEMW& item);
    LRESULT SetText(int at, const LVITEMW& item);
    LRESULT SetState(int at, const LVITEMW& item);
    LRESULT Find(int start, const LVFINDINFOW& wanted);
    LRESULT Next(int start, UINT flags) const;
    LRESULT Sort(PFNLVCOMPARE compare, LPARAM parameter, bool by_number);
    std::u16string TextOf(int at, int sub_item);
    int SortedPlace(const std::u16string& text);
    static void TakeText(Item& item, int sub_item, LPCWSTR text);
    // Changes an item's state after asking the parent, and tells it. False if it refused.
    bool ChangeState(int at, UINT state, UINT mask);
    LRESULT Tell(UINT code, int at, int sub_item = 0, UINT changed = 0, UINT old_state = 0,
                 UINT new_state = 0);
    int Focused() const;
    UINT SelectedCount() const;

    // list_view_columns.cpp
    LRESULT InsertColumn(int at, const LVCOLUMNW& column);
    LRESULT DeleteColumn(int at);
    LRESULT GetColumn(int at, LVCOLUMNW& column) const;
    LRESULT SetColumn(int at, const LVCOLUMNW& column);
    int ColumnWidth(int at) const;
    LRESULT SetColumnWidth(int at, int width);
    int WidthForTexts(int at, bool with_title);
    LRESULT FromHeader(const NMHDR& head, LPARAM record);
    RECT ColumnRect(int at) const;
    int ColumnsWidth() const;

    // list_view_input.cpp: what the user does.
    void MouseDown(POINT point);
    void MouseUp(POINT point);
    void DoubleClick(POINT point);
    void RightClick(UINT code, POINT point);
    void KeyDown(WPARAM key, LPARAM flags);
    void Character(WCHAR character);
    void MoveFocus(int to);
    void SelectOnly(int at);
    void SelectRange(int to);
    void Toggle(int at);
    void DeselectAll(int except);
    void ToggleCheck(int at);
    void Activate();
    void TellMouse(UINT code, POINT point);

    // list_view_places.cpp
    void Arrange(); // header, scroll bars
    void Changed();
    int PageCount() const;
    int RowTop(int at) const;
    RECT BoundsOf(int at) const;
    RECT LabelOf(int at) const;
    int CheckWidth() const;
    LRESULT ItemRect(int at, RECT* rect);
    LRESULT SubItemRect(int at, RECT* rect) const;
    LRESULT HitTest(LVHITTESTINFO& info, bool sub_items);
    void ScrollTo(int top);
    void ScrollSideways(int left);
    bool Show(int at);

    // list_view_painting.cpp
    void Paint(WPARAM context);
    void PaintRow(HDC dc, int at);
    void PaintCell(HDC dc, int at, int column);
    RECT SelectionRect(HDC dc, int at);
    void PaintGrid(HDC dc, const RECT& client) const;

    bool Has(int at) const { return at >= 0 && at < Count(); }
    int Count() const { return static_cast<int>(items_.size()); }
    Item& At(int at) { return *items_[static_cast<size_t>(at)]; }
    const Item& At(int at) const { return *items_[static_cast<size_t>(at)]; }
    bool HasChecks() const { return extended_ & LVS_EX_CHECKBOXES; }
    bool IsFullRow() const { return extended_ & LVS_EX_FULLROWSELECT; }
    bool IsSingle() const { return Style() & LVS_SINGLESEL; }

    std::vector<std::unique_ptr<Item>> items_;
    std::vector<Column> columns_;
    HWND header_ = nullptr;
    HFONT font_ = nullptr;
    DWORD extended_ = 0;
    COLORREF background_ = CLR_DEFAULT; // CLR_DEFAULT: the system's
    COLORREF text_color_ = CLR_DEFAULT;
    COLORREF text_background_ = CLR_DEFAULT;
    int top_ = 0;   // the first item that is seen
    int left_ = 0;  // pixels that are scrolled away
    int mark_ = -1; // where a range of items begins
    int row_height_ = 1;
    int header_height_ = 0;
    bool arranging_ = false;
    bool has_focus_ = false;
    bool pressed_ = false;
    std::u16string typed_; // letters that are searched for
    DWORD typed_at_ = 0;
};

} // namespace win32host
