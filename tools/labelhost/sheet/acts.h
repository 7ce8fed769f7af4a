// What a person does to windows: the acts of a script but state and picture.
#pragma once

#include "sheet/script.h"
#include "sheet/topmost.h"

#include <functional>

// The rest of an act that takes more than one turn: to be called whenever the loops are idle, until
// it answers true. Empty: the act is done as soon as the loops are idle.
using Rest = std::function<bool()>;

// The hands of the person. Everything throws Fault if the act names what is not there, not visible
// or disabled, or if it has no window to act on; so does the rest of an act.
class Hands {
public:
    Rest Do(const Act& act, const Topmost& topmost);

    // Closes the topmost window without choosing anything, as far as it lets itself be closed.
    // `insistent` takes another button of a message box than the one that changes nothing.
    void Dismiss(const Topmost& topmost, bool insistent);

private:
    void Type(const Act& act, const Topmost& topmost);
    void Choose(const Act& act, const Topmost& topmost);
    void Select(const Act& act, const Topmost& topmost);
    // Whether another act has begun since this one did, in the loop of a window that this one
    // opened. A person does not go on with the first then.
    bool Interrupted(unsigned number) const { return number != begun_; }

    unsigned begun_ = 0;
};

// ---- For the files of acts
// -----------------------------------------------------------------------

// The control with this identifier, which can be used. Throws Fault.
HWND UsableControl(const Topmost& topmost, int id);
// A button of the window itself.
HWND UsableButton(HWND window, int id, const char* name);

void ChooseItem(const Topmost& topmost, HWND list, int item);
void ChooseTab(HWND tabs, int item);
void DoubleClickItem(HWND list, const ItemName& item);
void ClickColumn(HWND list_view, int column);
void Slide(const Topmost& topmost, HWND bar, int position);
Rest Spin(const Topmost& topmost, const Act& act);
Rest ChooseFromMenu(const Topmost& topmost, const Act& act);
void EnterFont(const Topmost& topmost, const Act& act);

// The text field in a control: the control, or the one in a combo box. Throws Fault.
HWND FieldOf(HWND control);
