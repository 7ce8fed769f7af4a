// Combo boxes (ComboBox) and their lists (ComboLBox).
//
// A combo box is put together of a list box (identifier 1000) and, but for CBS_DROPDOWNLIST, an
// edit field (1001). A list that drops down is a window at the top, hidden while it is closed.
#pragma once

#include "window/control.h"
#include "window/list_box.h"

#include <string>

namespace win32host {

class ControlPaint;

class ComboBox : public Control {
public:
    using Control::Control;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

    bool FillInfo(COMBOBOXINFO& info) const;
    // The mouse chose an item of the list, or pressed outside of its items.
    void ListClicked(bool on_item);
    bool HasFocus() const { return has_focus_; }
    WNDPROC EditProcedure() const { return edit_procedure_; }
    // Keys of the edit field that are the combo box's; false: it is not one of them.
    bool TakesKey(UINT message, WPARAM key);

private:
    // combo_box.cpp: what programs do.
    LRESULT HandleItems(UINT message, WPARAM first, LPARAM second);
    LRESULT HandleField(UINT message, WPARAM first, LPARAM second);
    LRESULT HandlePlaces(UINT message, WPARAM first, LPARAM second);
    LRESULT FromList(UINT message, WPARAM first, LPARAM second) const {
        return SendMessageW(list_, message, first, second);
    }
    LRESULT SelectByProgram(UINT message, WPARAM first, LPARAM second);
    LRESULT DeleteItem(int at);
    void Reset();
    std::u16string SelectedText() const;
    void SetEditText(const std::u16string& text);
    LRESULT GetText(WPARAM size, LPARAM buffer) const;

    // combo_box_parts.cpp: its windows and their places.
    bool Create(const CREATESTRUCTW& create);
    bool CreateEdit();
    bool CreateList();
    void SetFont(HFONT font, LPARAM redraw);
    void MeasureField();
    void PlaceParts();
    void KeepHeight(WINDOWPOS& position);
    void PlaceList();
    int ClosedHeight() const;
    RECT ButtonRect() const;
    RECT FieldRect() const;
    LRESULT SetItemHeight(int part, int height);

    // combo_box_input.cpp: what the user does.
    LRESULT HandleCommand(int code, HWND from);
    void ListCommand(int code);
    void EditCommand(int code);
    void ListSelected(bool by_mouse);
    void DropDown();
    // Closes the list, if it dropped down, with what comes before that: `ok` tells whether what is
    // selected counts.
    void RollUp(bool ok);
    void MatchList(bool select);
    void GotFocus();
    void LostFocus(HWND to);
    void MouseDown(POINT point);
    void ForwardKey(UINT message, WPARAM first, LPARAM second);
    LRESULT ForwardOwnerDraw(UINT message, LPARAM item) const;

    // combo_box_painting.cpp
    void Paint(WPARAM context);
    void PaintField(const ControlPaint& paint) const;
    void AskOwnerToDrawField(HDC dc, const RECT& rect) const;

    bool IsSimple() const { return (Style() & CBS_DROPDOWNLIST) == CBS_SIMPLE; }
    bool HasEdit() const { return (Style() & CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST; }
    bool IsOwnerDrawn() const { return Style() & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE); }

    HWND edit_ = nullptr;
    HWND list_ = nullptr;
    WNDPROC edit_procedure_ = nullptr; // the edit field's own
    HFONT font_ = nullptr;
    int field_height_ = 0; // of the text, as CB_SETITEMHEIGHT sets it
    int open_height_ = 0;  // of everything with the list
    int dropped_width_ = 0;
    bool dropped_ = false;
    bool has_focus_ = false;
    bool quiet_ = false; // the program changes the edit field
    bool made_ = false;
    bool pressed_ = false;
};

// The list of a combo box.
class ComboList : public ListBox {
public:
    using ListBox::ListBox;
    LRESULT Handle(UINT message, WPARAM first, LPARAM second) override;

protected:
    HWND Owner() const override { return combo_; }
    LRESULT HandleMouse(UINT message, LPARAM point) override;
    bool ShowsFocus() const override { return true; }

private:
    HWND combo_ = nullptr;
    bool pressed_ = false;
};

// The combo box of a window of its class; null if it is none.
ComboBox* ComboBoxOf(HWND window);

} // namespace win32host
