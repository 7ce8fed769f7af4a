// Property sheets as programs open them.
#include "host/guarded.h"
#include "window/dialog.h"
#include "window/property_sheet.h"

namespace win32host {
namespace {

// The pages that a header names; pages for the records that it may have instead.
std::vector<HPROPSHEETPAGE> PagesOf(const PROPSHEETHEADERW& header) {
    std::vector<HPROPSHEETPAGE> pages;
    if (!(header.dwFlags & PSH_PROPSHEETPAGE)) {
        if (header.phpage) pages.assign(header.phpage, header.phpage + header.nPages);
        return pages;
    }
    const BYTE* record = reinterpret_cast<const BYTE*>(header.ppsp);
    for (UINT i = 0; record && i < header.nPages; ++i) {
        const auto* page = reinterpret_cast<LPCPROPSHEETPAGEW>(record);
        const HPROPSHEETPAGE made = NewPropertyPage(*page);
        if (!made) break; // where the next record starts is not known
        pages.push_back(made);
        record += page->dwSize;
    }
    return pages;
}

void RunSheet(const PropertySheet& sheet, HWND window) {
    MSG message;
    while (!sheet.Ended() && IsWindow(window)) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            // The program ends: the loop that the sheet interrupted must see it, too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (SendMessageW(window, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

INT_PTR ShowModal(PropertySheet& sheet, HWND parent) {
    const HWND owner = parent ? GetAncestor(parent, GA_ROOT) : nullptr;
    const HWND focus = GetFocus();
    const bool enabled = owner && IsWindowEnabled(owner);
    if (enabled) EnableWindow(owner, FALSE);
    const HWND window = sheet.Make();
    if (window) {
        sheet.Show();
        RunSheet(sheet, window);
    }
    if (enabled && IsWindow(owner)) EnableWindow(owner, TRUE);
    if (window && IsWindow(window)) DestroyWindow(window);
    if (focus && IsWindow(focus) && IsWindowVisible(focus)) SetFocus(focus);
    return window ? sheet.Result() : -1;
}

} // namespace
} // namespace win32host

extern "C" INT_PTR WINAPI PropertySheetW(LPCPROPSHEETHEADERW header) {
    using namespace win32host;
    return Guarded(INT_PTR(-1), [&]() -> INT_PTR {
        if (!header || header->dwSize < PROPSHEETHEADERW_V1_SIZE) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return -1;
        }
        const auto sheet = std::make_shared<PropertySheet>(*header, PagesOf(*header));
        if (!(header->dwFlags & PSH_MODELESS)) return ShowModal(*sheet, header->hwndParent);
        const HWND window = sheet->Make();
        if (!window) return -1;
        sheet->Show();
        return reinterpret_cast<INT_PTR>(window);
    });
}
