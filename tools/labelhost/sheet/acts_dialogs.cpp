// Acts on text fields, and in the system's font dialog.
#include "sheet/acts.h"

#include "fault.h"
#include "sheet/input.h"
#include "sheet/items.h"
#include "sheet/system_dialogs.h"
#include "sheet/windows_read.h"
#include "text.h"

#include <cstdio>

namespace {

std::string PointsText(double points) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", points);
    return text;
}

} // namespace

HWND FieldOf(HWND control) {
    if (IsOfClass(control, "ComboBox"))
        for (const HWND child : ChildrenOf(control))
            if (IsOfClass(child, "Edit")) return child;
    const LRESULT code = SendMessageW(control, WM_GETDLGCODE, 0, 0);
    if (!(code & DLGC_HASSETSEL) || IsOfClass(control, "ComboBox"))
        throw Fault("control " + std::to_string(IdOf(control)) + " is not an edit field");
    return control;
}

void EnterFont(const Topmost& topmost, const Act& act) {
    const HWND families = UsableControl(topmost, kFontFamily);
    ChooseItem(topmost, families, FindItem(families, {act.text, -1}));
    const int style = FontStylePosition(topmost.window, act.bold, act.italic);
    if (style < 0) throw Fault("'" + act.text + "' has no such style");
    ChooseItem(topmost, UsableControl(topmost, kFontStyle), style);
    // A dialog for fonts of any size hides this list.
    if (!(GetWindowLongPtrW(GetDlgItem(topmost.window, kFontSize), GWL_STYLE) & WS_VISIBLE)) return;
    const HWND sizes = UsableControl(topmost, kFontSize);
    const std::string points = PointsText(act.points);
    for (int i = 0; i < ItemCount(sizes); ++i)
        if (ItemText(sizes, i) == points) return ChooseItem(topmost, sizes, i);
    const WideString text = ToWide(points);
    GoTo(topmost.dialog, sizes);
    SendMessageW(FieldOf(sizes), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    SendCommand(sizes, CBN_EDITCHANGE);
}
