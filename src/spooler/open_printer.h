// A printer handle for as long as an object lives.
#pragma once

#include <windows.h>
#include <winspool.h>

#include "core/ostring.h"

class OpenPrinter {
public:
    // Borrows `handle` if there is one, else opens the printer by its full name with that access.
    // An empty name opens nothing, as it means the print server to the spooler.
    OpenPrinter(const OString& name, DWORD access, HANDLE handle = nullptr)
        : handle_(handle) {
        if (handle_ || name.IsEmpty()) return;
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        opened_ = OpenPrinterW(const_cast<WCHAR*>(name.wstring()), &handle_, &defaults) != FALSE;
        if (!opened_) handle_ = nullptr;
    }
    // Preserves the last error, so that a failure can be reported after the printer is closed.
    ~OpenPrinter() {
        if (!opened_) return;
        const DWORD error = GetLastError();
        ClosePrinter(handle_);
        SetLastError(error);
    }
    OpenPrinter(const OpenPrinter&) = delete;
    OpenPrinter& operator=(const OpenPrinter&) = delete;

    // Null if the printer could not be opened.
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
    bool opened_ = false;
};
