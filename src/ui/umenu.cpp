#include "ui/umenu.h"

#include <utility>

#include "locale/prtlocale.h"

namespace {

UINT ItemFlags(bool by_position) {
    return by_position ? MF_BYPOSITION : MF_BYCOMMAND;
}

} // namespace

UMenu::UMenu(UMenu&& other) noexcept
    : menu_(std::exchange(other.menu_, nullptr))
    , owned_(std::exchange(other.owned_, false)) {}

UMenu& UMenu::operator=(UMenu&& other) noexcept {
    std::swap(menu_, other.menu_);
    std::swap(owned_, other.owned_);
    return *this;
}

void UMenu::Destroy() {
    if (owned_) DestroyMenu(menu_);
    menu_ = nullptr;
    owned_ = false;
}

bool UMenu::CreatePopup() {
    Destroy();
    menu_ = CreatePopupMenu();
    owned_ = menu_ != nullptr;
    return owned_;
}

bool UMenu::Load(const prtlocale& locale, const OString& name) {
    Destroy();
    menu_ = locale.LoadMenuW(name);
    owned_ = menu_ != nullptr;
    return owned_;
}

bool UMenu::Attach(HMENU menu) {
    Destroy();
    menu_ = menu;
    return menu_ != nullptr;
}

int UMenu::GetCount() const {
    return menu_ ? GetMenuItemCount(menu_) : 0;
}

int UMenu::GetItemID(int position) const {
    return menu_ ? static_cast<int>(GetMenuItemID(menu_, position)) : -1;
}

UMenu UMenu::GetSubMenu(int position) const {
    UMenu sub;
    if (menu_) sub.Attach(::GetSubMenu(menu_, position));
    return sub;
}

void UMenu::Check(int item, bool check, bool by_position) {
    if (!menu_) return;
    CheckMenuItem(menu_, static_cast<UINT>(item),
                  ItemFlags(by_position) | (check ? MF_CHECKED : MF_UNCHECKED));
}

bool UMenu::IsChecked(int item, bool by_position) const {
    const UINT state =
        menu_ ? GetMenuState(menu_, static_cast<UINT>(item), ItemFlags(by_position)) : 0;
    return state != UINT(-1) && (state & MF_CHECKED);
}

void UMenu::Enable(int item, bool enable, bool by_position) {
    if (!menu_) return;
    EnableMenuItem(menu_, static_cast<UINT>(item),
                   ItemFlags(by_position) | UINT(enable ? MF_ENABLED : MF_GRAYED));
}

OString UMenu::GetText(int item, bool by_position) const {
    OString text;
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    if (!menu_ || !GetMenuItemInfoW(menu_, static_cast<UINT>(item), by_position, &info) ||
        info.cch == 0)
        return text;
    info.dwTypeData = text.GetBufferW(static_cast<int>(info.cch));
    if (!info.dwTypeData) return text;
    info.dwTypeData[0] = 0;
    ++info.cch;
    GetMenuItemInfoW(menu_, static_cast<UINT>(item), by_position, &info);
    return text;
}

void UMenu::SetText(int item, const OString& text, bool by_position) {
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STRING;
    info.dwTypeData = const_cast<WCHAR*>(text.wstring());
    if (menu_) SetMenuItemInfoW(menu_, static_cast<UINT>(item), by_position, &info);
}

bool UMenu::Append(int id, const OString& text) {
    return menu_ && ::AppendMenuW(menu_, MF_STRING, static_cast<UINT_PTR>(id), text.wstring());
}

bool UMenu::AppendSeparator() {
    return menu_ && ::AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr);
}

bool UMenu::AppendSubMenu(UMenu& menu, const OString& text) {
    if (!menu_ || !menu.menu_ ||
        !::AppendMenuW(menu_, MF_POPUP, reinterpret_cast<UINT_PTR>(menu.menu_), text.wstring()))
        return false;
    menu.owned_ = false;
    return true;
}

bool UMenu::Insert(int before, int id, const OString& text, bool by_position) {
    return menu_ &&
           ::InsertMenuW(menu_, static_cast<UINT>(before), ItemFlags(by_position) | MF_STRING,
                         static_cast<UINT_PTR>(id), text.wstring());
}

bool UMenu::Delete(int item, bool by_position) {
    return menu_ && DeleteMenu(menu_, static_cast<UINT>(item), ItemFlags(by_position));
}

int UMenu::Track(HWND owner, POINT at, uint32_t flags) const {
    if (!menu_) return 0;
    return TrackPopupMenu(menu_, flags | TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, 0, owner,
                          nullptr);
}

int UMenu::Track(HWND owner, POINT at, uint32_t flags, const RECT& exclude) const {
    if (!menu_) return 0;
    TPMPARAMS about = {sizeof about, exclude};
    return TrackPopupMenuEx(menu_, flags | TPM_RETURNCMD | TPM_NONOTIFY, at.x, at.y, owner, &about);
}
