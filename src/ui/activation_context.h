// The system's newer controls for the pages of a sheet.
#pragma once

#include <windows.h>

#include <prsht.h>

// An activation context made from a manifest in the system's folder, with which pages get the
// controls that it names. There is none without that file, and on systems that know no such
// contexts; then pages are made as usual.
class ActivationContext {
public:
    ActivationContext();
    ~ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    bool Exists() const { return context_ != INVALID_HANDLE_VALUE; }

    // Makes a page of this description, in the context if there is one. Null if the system refuses.
    HPROPSHEETPAGE CreatePropertySheetPageW(const PROPSHEETPAGEW* page) const;

private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
};
