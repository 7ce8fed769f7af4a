#include "machine/driver_module.h"

#include "fault.h"

DriverModule::DriverModule(const std::string& printer)
    : printer_(printer)
    , module_(
          LoadLibraryW(ConfigFileOf(OpenedPrinter(printer, PRINTER_ACCESS_USE), printer).c_str())) {
    if (!module_) throw SystemFault("cannot load the driver of '" + printer + "'", GetLastError());
}

DriverModule::~DriverModule() {
    FreeLibrary(module_);
}

FARPROC DriverModule::Find(const char* name) const {
    if (const FARPROC function = GetProcAddress(module_, name)) return function;
    throw Fault("the driver of '" + printer_ + "' has no " + name);
}
