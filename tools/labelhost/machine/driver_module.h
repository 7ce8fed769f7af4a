// The configuration module of a printer's driver, loaded for calls for which the spooler has no
// function.
#pragma once

#include "machine/printer.h"

class DriverModule {
public:
    // Throws Fault if it cannot be loaded.
    explicit DriverModule(const std::string& printer);
    ~DriverModule();
    DriverModule(const DriverModule&) = delete;
    DriverModule& operator=(const DriverModule&) = delete;

    HMODULE module() const { return module_; }

    // An exported function. Throws Fault if there is no such function.
    template <class Function>
    Function Export(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(Find(name)));
    }

private:
    FARPROC Find(const char* name) const;

    const std::string printer_;
    HMODULE module_;
};
