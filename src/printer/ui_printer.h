// The printer that a UI object works on, as the layers below the UI object see it.
#pragma once

#include <windows.h>

#include <memory>

#include "core/ostring.h"
#include "model/prtmodel.h"
#include "settings/dev_mode.h"

// Base of the UI object (prtui), which fills it in. Streams, queries and others that talk to the
// printer keep a pointer to it; they must not outlive it.
class UIPrinter {
public:
    UIPrinter() = default;
    UIPrinter(const UIPrinter&) = delete;
    UIPrinter& operator=(const UIPrinter&) = delete;

    // As the spooler spells them. Empty until the printer is known.
    OString printer_name;
    OString driver_name;
    OString port_name;

    // The open printer, borrowed; null until there is one.
    HANDLE hprinter = nullptr;

    // Null if no model can be built for the printer.
    std::unique_ptr<prtmodel> model;

    // The document settings being edited. Without a buffer as long as there is no model.
    DevMode devmode;

protected:
    ~UIPrinter() = default;
};
