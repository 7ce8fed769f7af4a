// A property sheet of the module's own, over a page or as a window.
#pragma once

#include <windows.h>

#include <prsht.h>

#include <cstdint>

#include "core/oarray.h"
#include "core/ostring.h"

class PageList;
class prtui;

// Init, then AddPage for each page, then Display. Pages that were never displayed go with the
// object.
class prtPropSheet {
public:
    prtPropSheet() = default;
    ~prtPropSheet();
    prtPropSheet(const prtPropSheet&) = delete;
    prtPropSheet& operator=(const prtPropSheet&) = delete;

    // The UI object of all pages, which outlives the sheet.
    void Init(prtui* ui);
    void SetTitle(const OString& title) { title_ = title; }
    // Adds PSH_ flags.
    void SetFlags(uint32_t flags) { header_.dwFlags |= flags; }
    // The page shown first, from 0.
    void SetStartPage(int page) { header_.nStartPage = static_cast<UINT>(page); }

    // Add a page: the name of its template in the language libraries or the template itself, and
    // its dialog procedure. False if there is no such template or no memory; the sheet then lacks
    // the page.
    bool AddPage(const OString& name, DLGPROC procedure);
    bool AddPageTemplate(const void* dialog_template, DLGPROC procedure);
    // Adds all pages of a list, which is empty then.
    void AddPages(PageList& pages);
    int GetPageCount() const { return pages_.GetSize(); }

    // Runs the sheet until it is closed. 1 for OK, 2 for Cancel and without pages.
    int Display(HWND parent);

private:
    prtui* ui_ = nullptr;
    OString title_;
    PROPSHEETHEADERW header_ = {};
    PROPSHEETPAGEW page_ = {}; // what all pages have in common
    OTypedArray<HPROPSHEETPAGE> pages_;
};
