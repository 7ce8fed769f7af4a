// A printer handle for as long as an object lives.
#pragma once

#include <windows.h>
#include <winspool.h>

#include "core/ostring.h"

class OpenPrinter {
public:
    // The handle when there is one, which is borrowed; else the printer opened by its full name
    // with that access. An empty name opens nothing: to the spooler it is the print server.
    OpenPrinter(const OString& name, DWORD access, HANDLE handle = nullptr)
        : handle_(handle) {
        if (handle_ || name.IsEmpty()) return;
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        opened_ = OpenPrinterW(const_cast<WCHAR*>(name.wstring()), &handle_, &defaults) != FALSE;
        if (!opened_) handle_ = nullptr;
    }
    // Leaves the last error as it is: what went wrong is told before the printer is closed.
    ~OpenPrinter() {
        if (!opened_) return;
        const DWORD error = GetLastError();
        ClosePrinter(handle_);
        SetLastError(error);
    }
    OpenPrinter(const OpenPrinter&) = delete;
    OpenPrinter& operator=(const OpenPrinter&) = delete;

    // Null when the printer cannot be opened.
    HANDLE Get() const { return handle_; }

private:
    HANDLE handle_;
    bool opened_ = false;
};
