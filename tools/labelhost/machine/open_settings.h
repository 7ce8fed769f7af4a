// A printer's settings, open in its driver. Closing saves them.
#pragma once

#include "fault.h"
#include "machine/driver_module.h"

class OpenSettings {
public:
    // Throws Fault.
    explicit OpenSettings(const std::string& printer)
        : printer_(printer)
        , opened_(printer, PRINTER_ACCESS_USE)
        , driver_(printer)
        , close_(driver_.Export<void(WINAPI*)(HANDLE)>("DAL_Printer_Close"))
        , handle_(driver_.Export<HANDLE(WINAPI*)(HANDLE)>("DAL_Printer_Open")(opened_.handle())) {
        if (!handle_) throw Fault("the driver does not open the settings of '" + printer + "'");
    }
    ~OpenSettings() { close_(handle_); }
    OpenSettings(const OpenSettings&) = delete;
    OpenSettings& operator=(const OpenSettings&) = delete;

    HANDLE handle() const { return handle_; }
    const std::string& printer() const { return printer_; }

    // An exported function of the driver. Throws Fault if there is no such function.
    template <class Function>
    Function Export(const char* name) const {
        return driver_.Export<Function>(name);
    }

private:
    const std::string printer_;
    const OpenedPrinter opened_;
    const DriverModule driver_;
    void(WINAPI* const close_)(HANDLE);
    const HANDLE handle_;
};
