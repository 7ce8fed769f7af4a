#include "sheet/control_state.h"

#include "sheet/items.h"
#include "sheet/text_colors.h"
#include "sheet/windows_read.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>

namespace {

// The window property in which a picture control keeps the number of the bitmap resource that it
// shows.
constexpr const WCHAR* kBitmapNumber = TEXT("Bitmap");

int Ask(HWND control, UINT message, WPARAM first = 0, LPARAM second = 0) {
    return static_cast<int>(SendMessageW(control, message, first, second));
}

void AddButton(Json& told, HWND button) {
    if (IsCheckable(button)) told["checked"] = Ask(button, BM_GETCHECK) & 3;
}

void AddItems(Json& told, HWND list) {
    const int columns = ListKindOf(list) == ListKind::ListView ? ColumnCount(list) : 0;
    Json items = Json::array();
    for (int i = 0; i < ItemCount(list); ++i) {
        if (columns == 0) {
            items.push_back(ItemText(list, i));
            continue;
        }
        Json row = Json::array();
        for (int column = 0; column < columns; ++column) row.push_back(ItemText(list, i, column));
        items.push_back(row);
    }
    told["items"] = items;
    told["selection"] = SelectedItems(list);
}

void AddEdit(Json& told, HWND edit) {
    DWORD from = 0, to = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    told["limit"] = static_cast<DWORD>(Ask(edit, EM_GETLIMITTEXT));
    told["readonly"] = (StyleOf(edit) & ES_READONLY) != 0;
    told["caret"] = {from, to};
}

void AddRichEdit(Json& told, HWND edit) {
    CHARRANGE range = {};
    SendMessageW(edit, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
    told["limit"] = static_cast<DWORD>(Ask(edit, EM_GETLIMITTEXT));
    told["readonly"] = (StyleOf(edit) & ES_READONLY) != 0;
    told["caret"] = {range.cpMin, range.cpMax};
    told["colors"] = TextColors(edit);
}

void AddTrackBar(Json& told, HWND bar) {
    told["position"] = Ask(bar, TBM_GETPOS);
    told["range"] = {Ask(bar, TBM_GETRANGEMIN), Ask(bar, TBM_GETRANGEMAX)};
}

void AddUpDown(Json& told, HWND arrows) {
    int least = 0, most = 0;
    told["position"] = Ask(arrows, UDM_GETPOS32);
    SendMessageW(arrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&least),
                 reinterpret_cast<LPARAM>(&most));
    told["range"] = {least, most};
}

void AddProgress(Json& told, HWND bar) {
    told["position"] = Ask(bar, PBM_GETPOS);
    told["range"] = {Ask(bar, PBM_GETRANGE, TRUE), Ask(bar, PBM_GETRANGE, FALSE)};
}

void AddBitmap(Json& told, HWND control) {
    const HANDLE number = GetPropW(control, kBitmapNumber);
    told["bitmap"] = number ? Json(reinterpret_cast<UINT_PTR>(number)) : Json(nullptr);
}

void AddStatic(Json& told, HWND control) {
    if ((StyleOf(control) & SS_TYPEMASK) == SS_BITMAP) AddBitmap(told, control);
}

struct ClassFields {
    const char* name;
    void (*add)(Json& told, HWND control);
};

constexpr ClassFields kFields[] = {
    {"Button", AddButton},
    {"Static", AddStatic},
    {"Edit", AddEdit},
    {"ComboBox", AddItems},
    {"ListBox", AddItems},
    {"SysListView32", AddItems},
    {"SysTabControl32", AddItems},
    {"msctls_trackbar32", AddTrackBar},
    {"msctls_updown32", AddUpDown},
    {"msctls_progress32", AddProgress},
    {"RichEdit20W", AddRichEdit},
    {"prtbitmap", AddBitmap},
};

} // namespace

Json RectState(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

Json ControlState(HWND control, HWND dialog) {
    const DWORD style = StyleOf(control);
    Json told = {{"id", IdOf(control)},
                 {"class", ClassOf(control)},
                 {"text", TextOf(control)},
                 {"visible", (style & WS_VISIBLE) != 0},
                 {"enabled", !(style & WS_DISABLED)},
                 {"rect", RectState(RectIn(control, dialog))}};
    for (const ClassFields& fields : kFields)
        if (IsOfClass(control, fields.name)) fields.add(told, control);
    return told;
}
