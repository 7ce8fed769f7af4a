#include "window/property_page.h"

#include "host/guarded.h"
#include "window/dialog.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

namespace win32host {
namespace {

bool IsNumber(LPCWSTR name) {
    return reinterpret_cast<ULONG_PTR>(name) <= 0xFFFF;
}

// Keeps a text of the caller's and lets `text` point to the copy. Numbers stay.
void KeepText(LPCWSTR& text, std::u16string& copy) {
    if (IsNumber(text)) return;
    copy = text;
    text = copy.c_str();
}

} // namespace

PropertyPage::PropertyPage(const PROPSHEETPAGEW& page)
    : record_((std::max<size_t>(page.dwSize, sizeof page) + sizeof(uint64_t) - 1) /
              sizeof(uint64_t)) {
    std::memcpy(record_.data(), &page, page.dwSize);
    if (Has(PSP_USETITLE)) KeepText(Stored()->pszTitle, title_);
    if (!Has(PSP_DLGINDIRECT)) KeepText(Stored()->pszTemplate, template_name_);
}

PROPSHEETPAGEW* PropertyPage::Stored() const {
    return reinterpret_cast<PROPSHEETPAGEW*>(const_cast<uint64_t*>(record_.data()));
}

UINT PropertyPage::Tell(UINT message, HWND window) {
    if (!Has(PSP_USECALLBACK) || !Record().pfnCallback) return 1;
    return Record().pfnCallback(window, message, Stored());
}

bool PropertyPage::ReadTemplate() {
    template_ = Has(PSP_DLGINDIRECT) ? TemplateAt(Record().pResource)
                                     : TemplateNamed(Record().hInstance, Record().pszTemplate);
    if (!template_) return false;
    template_->style &=
        ~static_cast<DWORD>(WS_POPUP | WS_VISIBLE | WS_DISABLED | WS_CAPTION | WS_SYSMENU |
                            WS_THICKFRAME | DS_MODALFRAME | DS_CENTER | DS_ABSALIGN);
    template_->style |= WS_CHILD | WS_TABSTOP | DS_CONTROL | DS_3DLOOK;
    return true;
}

std::u16string PropertyPage::Title() const {
    if (Has(PSP_USETITLE)) {
        if (!IsNumber(Record().pszTitle)) return Record().pszTitle;
        char16_t text[256] = {};
        LoadStringW(Record().hInstance,
                    static_cast<UINT>(reinterpret_cast<ULONG_PTR>(Record().pszTitle)), text,
                    static_cast<int>(std::size(text)));
        return text;
    }
    return template_ ? template_->title : std::u16string();
}

SIZE PropertyPage::Size() const {
    if (!template_) return {};
    const SIZE base = BaseUnitsOf(*template_);
    return {MulDiv(template_->width, base.cx, 4), MulDiv(template_->height, base.cy, 8)};
}

bool PropertyPage::Make(HWND sheet) {
    if (window_) return true;
    if (!template_ || Tell(PSPCB_CREATE, nullptr) == 0) return false;
    const auto keep = Find<PropertyPage>(handle_); // the page may be removed while it is made
    window_ = MakeDialog(Record().hInstance, *template_, sheet, Record().pfnDlgProc,
                         reinterpret_cast<LPARAM>(Stored()), false);
    return window_ != nullptr;
}

void PropertyPage::End() {
    const auto self = Close<PropertyPage>(handle_);
    if (!self) return;
    if (const HWND window = std::exchange(window_, nullptr); window && IsWindow(window))
        DestroyWindow(window);
    Tell(PSPCB_RELEASE, nullptr);
    if (Has(PSP_USEREFPARENT) && Record().pcRefParent) --*Record().pcRefParent;
}

HPROPSHEETPAGE NewPropertyPage(const PROPSHEETPAGEW& page) {
    if (page.dwSize < PROPSHEETPAGEW_V1_SIZE) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto made = std::make_shared<PropertyPage>(page);
    made->handle_ = static_cast<HPROPSHEETPAGE>(NewHandle(made));
    if (!made->handle_) return nullptr;
    made->Tell(PSPCB_ADDREF, nullptr);
    if (made->Has(PSP_USEREFPARENT) && page.pcRefParent) ++*page.pcRefParent;
    return made->handle_;
}

} // namespace win32host

extern "C" {

HPROPSHEETPAGE WINAPI CreatePropertySheetPageW(LPCPROPSHEETPAGEW page) {
    using namespace win32host;
    return Guarded(HPROPSHEETPAGE(nullptr), [&]() -> HPROPSHEETPAGE {
        if (page) return NewPropertyPage(*page);
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    });
}

BOOL WINAPI DestroyPropertySheetPage(HPROPSHEETPAGE page) {
    using namespace win32host;
    const auto found = Find<PropertyPage>(page);
    if (!found) return FALSE;
    found->End();
    return TRUE;
}

} // extern "C"
