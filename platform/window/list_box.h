// List boxes (ListBox). Lists in several columns and items of different heights are not supported.
#pragma once

#include "window/control.h"
#include "window/list_items.h"

#include <vector>

namespace win32host {

class ListBox : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

protected:
    // The window that is notified and draws: the parent, or the combo box that the list belongs to.
    virtual HWND Owner() const { return Parent(); }
    virtual LRESULT HandleMouse(UINT message, LPARAM point);

    // Whether selected items look as if the list had the keyboard.
    virtual bool ShowsFocus() const { return has_focus_; }

    bool IsMultiple() const { return Style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL); }
    bool IsOwnerDrawn() const { return Style() & (LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE); }
    bool HasStrings() const { return !IsOwnerDrawn() || Style() & LBS_HASSTRINGS; }
    // The item at a point of the client area, also if it is scrolled away; -1 for none.
    int ItemAt(POINT point) const;
    void SelectOnly(int at);
    void Notify(int code) const;
    int Current() const { return current_; }

private:
    // list_box.cpp: what programs do.
    LRESULT HandleItems(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleSelection(UINT message, WPARAM first, LPARAM second);
    LRESULT HandlePlaces(UINT message, WPARAM first, LPARAM second);
    void Create();
    LRESULT Add(LPARAM text, int at, bool sorted);
    LRESULT Delete(int at);
    void Reset();
    LRESULT GetText(int at, LPARAM buffer) const;
    LRESULT Find(int start, LPARAM text, bool all_of_it) const;
    LRESULT SelectText(int start, LPARAM text);
    LRESULT SetCurrent(int at);
    LRESULT SetSelected(bool selected, int at);
    LRESULT SelectedItems(int room, int* items) const;
    LRESULT SetTabStops(int count, const int* stops);
    LRESULT ItemFromPoint(POINT point) const;

    // list_box_items.cpp
    int SortedPlace(const ListItem& item) const;
    int Compare(const ListItem& first, int first_at, const ListItem& second, int second_at) const;
    void TellDeleted(int at) const;
    UINT OwnerDrawType() const { return ODT_LISTBOX; }
    void MeasureItems();

    // list_box_input.cpp: what the user does.
    void MouseDown(POINT point);
    void MouseMove(POINT point);
    void MouseUp();
    void DoubleClick(POINT point);
    void KeyDown(WPARAM key);
    void Character(WCHAR character);
    // Moves the caret as the keyboard does, with what that selects.
    void MoveTo(int at);
    void SelectRange(int from, int to, bool selected);

    // list_box_view.cpp: what is seen.
    int VisibleCount() const;
    RECT RectOf(int at) const;
    void ScrollTo(int top);
    void Show(int at);
    void SetCaret(int at);
    void Changed();
    void UpdateScrollBars();
    void FitHeight();
    void Redraw(int at) const;

    // list_box_painting.cpp
    void Paint(WPARAM context);
    void PaintItem(HDC dc, int at) const;
    void PaintItemText(HDC dc, std::u16string_view text, RECT rect) const;
    int NextTabStop(HDC dc, int from) const;
    void AskOwnerToDraw(HDC dc, int at) const;
    bool IsItemSelected(int at) const;

    ListItems items_;
    int current_ = -1; // the selected item where only one can be
    int caret_ = 0;
    int anchor_ = -1; // where a range of items began
    int top_ = 0;
    int item_height_ = 0;
    int extent_ = 0;             // LB_SETHORIZONTALEXTENT
    int left_ = 0;               // scrolled away to the left
    std::vector<int> tab_stops_; // in pixels
    HFONT font_ = nullptr;
    bool has_vertical_ = false;   // the styles of scroll bars that it was made with: these come and
    bool has_horizontal_ = false; // go with what they are needed for
    bool has_focus_ = false;
    bool pressed_ = false; // the mouse button is held
};

} // namespace win32host
