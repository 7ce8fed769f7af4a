// How a property sheet ends, read from what it tells its pages.
#pragma once

#include <windows.h>

class SheetWatch {
public:
    // Watches the windows of this thread. Only one object may exist at a time.
    SheetWatch();
    ~SheetWatch();
    SheetWatch(const SheetWatch&) = delete;
    SheetWatch& operator=(const SheetWatch&) = delete;

    // The sheet is known and shown from now on.
    void SetSheet(HWND sheet) { sheet_ = sheet; }
    HWND sheet() const { return sheet_; }

    // To be called when the sheet waits for its user.
    void Settle();

    bool cancelled() const { return cancelled_; }
    // Whether at least one page has applied its settings while the sheet stayed open.
    bool applied() const { return applied_; }

private:
    void Notified(const NMHDR& notification);
    static LRESULT CALLBACK Hook(int code, WPARAM first, LPARAM second);

    static SheetWatch* current_;
    HHOOK hook_;
    HWND sheet_ = nullptr;
    int asked_ = 0; // pages that were asked to apply since the sheet last waited
    bool cancelled_ = false;
    bool applied_ = false;
};
