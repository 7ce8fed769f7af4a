// The sheet that the common property sheets show for a UI object.
#pragma once

#include <windows.h>

#include <winddiui.h>

#include <cstddef>
#include <cstdint>
#include <memory>

// How the sheet is talked to, and the pages that it has. Outside of a sheet (Open was not called)
// there is nobody to talk to.
class CommonSheet {
public:
    // Takes what the sheet's call brings.
    void Open(const PROPSHEETUI_INFO& info);

    // Takes the handles of the pages that there are now, those of the system too.
    void ReadPages();
    int32_t GetPageCount() const { return page_count_; }

    // Tells the sheet how it ends, CPSUI_OK or CPSUI_CANCEL, in the name of the driver's last page
    // but the one about the driver. False when the sheet refuses; true outside of a sheet.
    bool SetResult(LPARAM result) const;

private:
    HANDLE sheet_ = nullptr;
    PFNCOMPROPSHEET call_ = nullptr;
    std::unique_ptr<HANDLE[]> pages_;
    int32_t page_count_ = 0;
};

// Whether settings of `size` bytes fit into pdmOut as far as cbOut tells its room: 0, and the
// dmSize of what lies there, leave it unsaid and are taken for enough.
bool HasRoom(const DOCUMENTPROPERTYHEADER& header, size_t size);
