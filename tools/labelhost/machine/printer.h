// A printer opened through the spooler, and the spooler's answers in UTF-8.
#pragma once

#include <windows.h>
#include <winspool.h>

#include "text.h"

#include "fault.h"

#include <string>
#include <vector>

// The record from a call with the spooler's two-step protocol: ask for the size, then for the
// record. `call(buffer, size, needed)` makes the call. Throws the Fault `what` if it fails.
template <class Call>
std::vector<BYTE> Record(const std::string& what, Call call) {
    DWORD needed = 0;
    if (call(nullptr, 0, &needed)) return {};
    // The record may grow between the two calls.
    for (DWORD size = 0; GetLastError() == ERROR_INSUFFICIENT_BUFFER && needed > size;) {
        size = needed;
        std::vector<BYTE> buffer(size);
        if (call(buffer.data(), size, &needed)) return buffer;
    }
    throw SystemFault(what, GetLastError());
}

class OpenedPrinter {
public:
    // Throws Fault if there is no such printer or `access` is denied.
    OpenedPrinter(const std::string& name, ACCESS_MASK access);
    ~OpenedPrinter();
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;

    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_ = nullptr;
};

struct PrinterFacts {
    std::string name, driver, port, server;
};

// The full name of the configuration module of the printer's driver. Throws Fault.
WideString ConfigFileOf(const OpenedPrinter& printer, const std::string& name);

// The names of all printers of this machine and its connections, in the spooler's order.
std::vector<std::string> PrinterNames();

// The printer of that name or, if there is none and the name contains * or ?, all printers whose
// names match, without regard to the case of the letters a to z: * stands for any characters, ? for
// one. Throws Fault if no printer matches.
std::vector<std::string> PrintersNamed(const std::string& pattern);

bool PrinterExists(const std::string& name);

// Throws Fault if there is no such printer.
PrinterFacts FactsOf(const std::string& name);
