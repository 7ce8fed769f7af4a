// The sheet that the common property sheets show for a UI object.
#pragma once

#include <windows.h>

#include <prsht.h>
#include <winddiui.h>

#include <cstddef>
#include <cstdint>
#include <memory>

// The connection to the sheet, and its pages. Outside of a sheet (Open was not called) there is
// nothing to talk to.
class CommonSheet {
public:
    // Takes the connection from the sheet's call.
    void Open(const PROPSHEETUI_INFO& info);

    // Adds a page: after another one, or with INSPSUIPAGE_MODE_LAST_CHILD and null at the end. The
    // sheet then owns it. False if it does not take the page, and outside of a sheet.
    bool InsertPage(void* after, unsigned char mode, HPROPSHEETPAGE page) const;

    // Takes the handles of the current pages, those of the system too.
    void ReadPages();
    int32_t GetPageCount() const { return page_count_; }

    // Tells the sheet how it ends, CPSUI_OK or CPSUI_CANCEL, for the driver's last page before its
    // About page. False if the sheet refuses, true outside of a sheet.
    bool SetResult(LPARAM result) const;

private:
    HANDLE sheet_ = nullptr;
    PFNCOMPROPSHEET call_ = nullptr;
    std::unique_ptr<HANDLE[]> pages_;
    int32_t page_count_ = 0;
};

// Whether settings of `size` bytes fit into pdmOut, as far as cbOut tells its room. A cbOut of 0,
// or of the dmSize of the contents, does not tell it and is taken for enough.
bool HasRoom(const DOCUMENTPROPERTYHEADER& header, size_t size);
