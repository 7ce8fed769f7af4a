// Buttons that open a menu.
#pragma once

#include "ui/ubutton.h"
#include "ui/umenu.h"

// An owner-drawn push button with an arrow. Pressed with the mouse or the space key, it stays down
// and shows its menu, which the dialog fills, below it or, with the style BS_RIGHTBUTTON, to the
// right of it. The item that the user chooses is sent to the dialog as a command of its identifier.
class UPopButton : public UButton {
public:
    UMenu& GetMenu() { return menu_; }

    bool OnDrawItem(const DRAWITEMSTRUCT& item) override;
    bool OnLButtonDown(uint32_t flags, CPoint at) override;
    bool OnLButtonDoubleClick(uint32_t flags, CPoint at) override;
    bool OnKeyDown(uint32_t key, uint32_t repeat, uint32_t flags) override;

private:
    void Drop();
    bool OpensRight() const { return (GetStyle() & BS_RIGHTBUTTON) == BS_RIGHTBUTTON; }

    UMenu menu_;
    bool down_ = false;
};
