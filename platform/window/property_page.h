// A page of a property sheet: what its maker said of it and, once it is shown, its dialog.
#pragma once

#include "window/dialog_template.h"

#include "host/handles.h"

#include <windows.h>

#include <prsht.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace win32host {

class PropertyPage : public HandleObject {
public:
    // A copy of the record, with the data that follows it. Its size must be right.
    explicit PropertyPage(const PROPSHEETPAGEW& page);

    const PROPSHEETPAGEW& Record() const { return *Stored(); }
    bool Has(DWORD flag) const { return (Record().dwFlags & flag) != 0; }
    HPROPSHEETPAGE Handle() const { return handle_; }
    HWND Window() const { return window_; }

    // Reads the dialog's template. False if there is none; the page then cannot be shown.
    bool ReadTemplate();
    // What the tab says: the page's own title, or that of its template.
    std::u16string Title() const;
    // The size of the dialog in pixels.
    SIZE Size() const;

    // Makes the dialog, invisible, unless it exists. False if that fails or the page's callback
    // forbids it.
    bool Make(HWND sheet);
    // Destroys the dialog, lets the callback know that the page ends, and forgets the handle.
    void End();

    bool changed = false; // since it was applied

private:
    friend HPROPSHEETPAGE NewPropertyPage(const PROPSHEETPAGEW& page);

    PROPSHEETPAGEW* Stored() const;
    UINT Tell(UINT message, HWND window);

    std::vector<uint64_t> record_;
    std::u16string title_;
    std::u16string template_name_;
    std::optional<DialogTemplate> template_;
    HPROPSHEETPAGE handle_ = nullptr;
    HWND window_ = nullptr;
};

// The page of a record, which CreatePropertySheetPageW answers; null with the last error.
HPROPSHEETPAGE NewPropertyPage(const PROPSHEETPAGEW& page);

} // namespace win32host
