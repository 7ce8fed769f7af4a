#include "sheet/state.h"

#include "sheet/control_state.h"
#include "sheet/items.h"
#include "sheet/system_dialogs.h"
#include "sheet/windows_read.h"
#include "text.h"

#include <algorithm>

namespace {

const char* NameOfKind(WindowKind kind) {
    constexpr const char* kNames[] = {"",     "sheet",  "dialog", "message",
                                      "file", "folder", "font",   "menu"};
    return kNames[static_cast<int>(kind)];
}

Json MenuItems(HMENU menu) {
    Json items = Json::array();
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const auto position = static_cast<UINT>(i);
        const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
        const HMENU below = GetSubMenu(menu, i);
        const int length = GetMenuStringW(menu, position, nullptr, 0, MF_BYPOSITION);
        WideString text(static_cast<size_t>(std::max(length, 0)) + 1, 0);
        GetMenuStringW(menu, position, text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
        // The state of a sub-menu has the number of its items in the upper byte.
        items.push_back({{"id", static_cast<int>(GetMenuItemID(menu, i))},
                         {"text", ToUtf8(text.c_str())},
                         {"enabled", !(state & (MF_GRAYED | MF_DISABLED))},
                         {"checked", (state & MF_CHECKED) != 0},
                         {"items", below ? MenuItems(below) : Json::array()}});
    }
    return items;
}

void AddMessage(Json& told, HWND box) {
    told["title"] = TextOf(box);
    told["text"] = MessageText(box);
    told["buttons"] = Json::array();
    for (const HWND button : MessageButtons(box)) told["buttons"].push_back(ButtonName(button));
    const std::string icon = MessageIcon(box);
    told["icon"] = icon.empty() ? Json(nullptr) : Json(icon);
}

void AddFileDialog(Json& told, const Topmost& topmost) {
    told["title"] = TextOf(topmost.window);
    told["folder"] = FolderIn(topmost.window);
    told["file"] = topmost.kind == WindowKind::File ? FileIn(topmost.window) : std::string();
    told["filters"] = Json::array();
    told["filter"] = nullptr;
    const HWND filters = topmost.kind == WindowKind::File ? FilterBox(topmost.window) : nullptr;
    if (!filters) return;
    for (int i = 0; i < ItemCount(filters); ++i) told["filters"].push_back(ItemText(filters, i));
    const std::vector<int> selected = SelectedItems(filters);
    if (!selected.empty()) told["filter"] = selected[0];
}

void AddControls(Json& told, const Topmost& topmost) {
    const HWND sheet = SheetOf(topmost.window);
    const bool is_page = topmost.kind == WindowKind::Sheet;
    const int page = is_page ? CurrentPageNumber(sheet) : -1;
    told["title"] = page >= 0 ? ItemText(TabsOf(sheet), page) : TextOf(topmost.window);
    told["sheet"] = sheet ? TextOf(sheet) : std::string();
    told["page"] = page >= 0 ? Json(page) : Json(nullptr);
    const HWND apply = sheet ? GetDlgItem(sheet, kApplyButton) : nullptr;
    told["apply"] = apply && IsWindowVisible(apply) && IsWindowEnabled(apply);
    const HWND focus = FocusIn(topmost.dialog);
    told["focus"] = focus ? Json(IdOf(focus)) : Json(nullptr);
    told["client"] = RectState(ClientInFrame(topmost.dialog, topmost.window));
    told["controls"] = Json::array();
    for (const HWND control : ControlsOf(topmost.dialog))
        told["controls"].push_back(ControlState(control, topmost.dialog));
}

} // namespace

Json StateOf(const Topmost& topmost, const std::string& name) {
    Json told = {{"name", name}, {"window", NameOfKind(topmost.kind)}};
    switch (topmost.kind) {
    case WindowKind::Menu:
        told["items"] = MenuItems(topmost.menu);
        break;
    case WindowKind::Message:
        AddMessage(told, topmost.window);
        break;
    case WindowKind::File:
    case WindowKind::Folder:
        AddFileDialog(told, topmost);
        break;
    default:
        AddControls(told, topmost);
    }
    return told;
}

Json PageTitles(HWND sheet) {
    Json titles = Json::array();
    const HWND tabs = TabsOf(sheet);
    for (int i = 0; i < ItemCount(tabs); ++i) titles.push_back(ItemText(tabs, i));
    return titles;
}

int CurrentPageNumber(HWND sheet) {
    const std::vector<int> selected = SelectedItems(TabsOf(sheet));
    return selected.empty() ? -1 : selected[0];
}
