// The registry store bound to one printer.
#pragma once

#include "core/ostring.h"
#include "core/ostring_array.h"
#include "registry/oregistry.h"

class PrinterInfo;

// Adds to ORegistry's roots those of the driver, each usable wherever a root is:
//
//   DATA:          the printer's driver data, which the spooler also serves
//   SETTINGS:  CACHE:  FONTS:  PRESETS:  DEBUG:   keys below it: Settings, Cache, Downloaded
//                  Fonts, Presets, Development
//   MODEL:         Model, below the driver data
//   USERSETTINGS:  the current user's settings for the printer
//   STOCK:         Paper Sizes, below LOCAL:
//   DRIVER_INFO:   the driver's own key in the spooler's tree
//
// and placeholders, replaced everywhere in a key: [PRINTER] the printer part, [MODEL] the driver
// name, [PORT] the port name (each escaped, so that it stays one key name), [SERVER] the server
// name and [OEM] the OEM code (unchanged).
//
// With the shadow flag set, everything below LOCAL:, USER: and PRINT: is kept in a tree of the
// current user instead, one tree per server. That is how a client edits the settings of another
// machine's printer.
//
// An object belongs to one thread. A copy has the same printer and opens its own key.
class prtreg : public ORegistry {
public:
    // No printer: every placeholder is empty.
    prtreg() = default;
    prtreg(const prtreg&) = default;
    prtreg& operator=(const prtreg&) = delete;
    explicit prtreg(const OString& printer_name);
    explicit prtreg(const PrinterInfo& printer);

    // Rewrites a key in place: driver roots, placeholders, then ORegistry's roots. A key without a
    // colon is left alone.
    void SubstituteKey(OString& key) override;

    // Opens a substituted key, in the shadow tree if the shadow flag is set.
    HKEY OpenKey(const OString& key, bool create) override;

    // Binds to a printer: takes its names from the spooler and reads its shadow mode. For a printer
    // that the spooler does not know, all of them are empty.
    void init(const OString& printer_name);

    // The same with an existing PrinterInfo, so that the spooler is not asked twice.
    void init(const PrinterInfo& printer);

    const OString& GetPrinterName() const { return printer_name_; }
    const OString& GetPrinterPart() const { return printer_part_; } // the name without its server
    const OString& GetDriverName() const { return driver_name_; }   // the printer model
    const OString& GetPortName() const { return port_name_; }
    const OString& GetServerName() const { return server_name_; } // without leading backslashes
    const OString& GetOEM() const { return oem_; }

    // The printer is a connection to another machine's printer.
    bool IsRemote() const { return remote_; }

    // Keys are redirected to the shadow tree. Setting this affects only this object.
    bool IsShadow() const { return shadow_; }
    void SetShadow(bool shadow);

    // The keys that a shadow copy covers, as paths: each subkey of the driver data as "DATA:name",
    // except "(shadow)", then each subkey of the machine-wide settings as "LOCAL:name".
    void EnumShadowKeys(OStringArray& keys);

    // Whether the spooler's bidirectional support is switched on for the printer.
    bool Enable_BiDirectional_On();

    // Deletes the key DATA:name. Slashes belong to the name. A key with subkeys stays.
    bool DeletePrinterDataKey(const OString& name);

    // Reads or writes a printer data value through the spooler, which on a connection reaches the
    // server. `type` is a registry type; for a read it is only what the caller expects. A read
    // fails if there is no value, or it is empty or longer than `size` bytes. Both need the right
    // to administer the printer.
    bool GetPrinterDataW(const OString& name, uint32_t type, void* buffer, uint32_t size);
    bool SetPrinterDataW(const OString& name, uint32_t type, const void* data, uint32_t size);

private:
    OString printer_name_;
    OString printer_part_;
    OString driver_name_;
    OString port_name_;
    OString server_name_;
    OString oem_;
    bool remote_ = false;
    bool shadow_ = false;
};
