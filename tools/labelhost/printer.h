// A printer opened through the spooler, and the spooler's answers in UTF-8.
#pragma once

#include <windows.h>
#include <winspool.h>

#include "text.h"

#include <string>
#include <vector>

class OpenedPrinter {
public:
    // Throws Fault when there is no such printer or `access` is denied.
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

// All printers of this machine and its connections, in the spooler's order.
std::vector<PrinterFacts> AllPrinters();

// Throws Fault when there is no such printer.
PrinterFacts FactsOf(const std::string& name);
