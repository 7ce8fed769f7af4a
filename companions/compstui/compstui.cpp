// What the library exports.
#include "compstui/property_pages.h"

#include <compstui.h>

#include <new>

#ifndef COMPSTUI_API
#define COMPSTUI_API
#endif

namespace {

// The window property that a page's value is kept in.
constexpr WCHAR kUserData[] = TEXT("compstui.UserData");

} // namespace

extern "C" {

COMPSTUI_API LONG APIENTRY CommonPropertySheetUIW(HWND owner, PFNPROPSHEETUI function,
                                                  LPARAM parameter, LPDWORD result) {
    if (!function) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return ERR_CPSUI_GETLASTERROR;
    }
    DWORD ended = CPSUI_CANCEL;
    LONG answer = ERR_CPSUI_ALLOCMEM_FAILED;
    try {
        compstui::PropertyPages pages(reinterpret_cast<compstui::PageFunction>(function),
                                      parameter);
        answer = pages.Run(owner, ended);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    }
    if (result) *result = ended;
    return answer;
}

COMPSTUI_API ULONG_PTR APIENTRY GetCPSUIUserData(HWND page) {
    return reinterpret_cast<ULONG_PTR>(GetPropW(page, kUserData));
}

COMPSTUI_API BOOL APIENTRY SetCPSUIUserData(HWND page, ULONG_PTR data) {
    return SetPropW(page, kUserData, reinterpret_cast<HANDLE>(data));
}

} // extern "C"
