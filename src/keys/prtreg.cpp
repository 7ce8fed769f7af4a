#include "keys/prtreg.h"

#include <windows.h>
#include <winspool.h>

#include "registry/oregistry_names.h"
#include "spooler/open_printer.h"
#include "spooler/platform_flags.h"
#include "spooler/printer_info.h"

namespace {

enum ShadowMode { ShadowWhenRemote = 0, ShadowNever = 1, ShadowAlways = 2 };

const char* DriverInfoKey() {
    if (!winNT) return "PRINT:Environments/Windows 4.0/Drivers/[MODEL]";
    return win2000 ? "PRINT:Environments/Windows NT x86/Drivers/Version-3/[MODEL]"
                   : "PRINT:Environments/Windows NT x86/Drivers/Version-2/[MODEL]";
}

} // namespace

prtreg::prtreg(const OString& printer_name) {
    init(printer_name);
}

prtreg::prtreg(const PrinterInfo& printer) {
    init(printer);
}

void prtreg::init(const OString& printer_name) {
    init(PrinterInfo(printer_name));
}

void prtreg::init(const PrinterInfo& printer) {
    ReleaseKey();
    const bool known = printer.IsKnown();
    printer_name_ = known ? printer.GetPrinterName() : OString();
    printer_part_ = known ? printer.PrinterPart() : OString();
    driver_name_ = printer.GetDriverName();
    port_name_ = printer.GetPortName();
    oem_ = printer.GetOEM();
    server_name_ = printer.GetServerName();
    if (BeginsNoCase(server_name_.wstring(), "\\\\")) server_name_ = server_name_.Mid(2);
    remote_ = !printer.IsLocal();

    shadow_ = false;
    const unsigned char mode = GetByte("LOCAL:Printers/[PRINTER]/Shadow", ShadowWhenRemote);
    SetShadow(mode == ShadowAlways || (mode == ShadowWhenRemote && remote_));
}

void prtreg::SetShadow(bool shadow) {
    // The same path leads to another key from now on.
    if (shadow != shadow_) ReleaseKey();
    shadow_ = shadow;
}

void prtreg::SubstituteKey(OString& key) {
    static const struct {
        const char* from;
        const char* to;
    } roots[] = {
        {"STOCK:", "LOCAL:Paper Sizes"},
        {"SETTINGS:", "DATA:Settings"},
        {"CACHE:", "DATA:Cache"},
        {"FONTS:", "DATA:Downloaded Fonts"},
        {"PRESETS:", "DATA:Presets"},
        {"DEBUG:", "DATA:Development"},
        {"USERSETTINGS:", "USER:Printers/[PRINTER]/Settings"},
        {"DATA:", "PRINT:Printers/[PRINTER]/PrinterDriverData"},
        {"MODEL:", "PRINT:Printers/[PRINTER]/PrinterDriverData/Model"},
    };
    if (!HasCharacter(key, ':')) return;
    if (BeginsNoCase(key.wstring(), "DRIVER_INFO:")) {
        Substitute(key, "DRIVER_INFO:", DriverInfoKey());
    }
    for (const auto& root : roots) {
        if (BeginsNoCase(key.wstring(), root.from)) Substitute(key, root.from, root.to);
    }

    const struct {
        const char* name;
        const OString& text;
        bool one_name; // the text stays one key name
    } placeholders[] = {
        {"[PRINTER]", printer_part_, true},
        {"[MODEL]", driver_name_, true},
        {"[PORT]", port_name_, true},
        {"[SERVER]", server_name_, false},
        {"[OEM]", oem_, false},
    };
    for (const auto& placeholder : placeholders) {
        if (!HasCharacter(key, '[')) break; // as nearly always after the first
        Substitute(key, placeholder.name,
                   placeholder.one_name ? EncodeName(placeholder.text) : placeholder.text);
    }
    ORegistry::SubstituteKey(key);
}

HKEY prtreg::OpenKey(const OString& key, bool create) {
    if (!shadow_) return ORegistry::OpenKey(key, create);

    OString prefix = "1:Software/Valdrick/Drivers/";
    if (!server_name_.IsEmpty()) prefix << "@" << server_name_ << "/";
    // "Software" is not "SOFTWARE": the second rule does not change results of the first.
    OString shadow = ReplaceText(key, "2:SOFTWARE/Valdrick/Drivers", prefix + "LOCAL%3A");
    shadow = ReplaceText(shadow, "1:SOFTWARE/Valdrick/Drivers", prefix + "USER%3A");
    shadow = ReplaceText(shadow, "2:SYSTEM/CurrentControlSet/Control/Print", prefix + "PRINT%3A");
    return ORegistry::OpenKey(shadow, create);
}

void prtreg::EnumShadowKeys(OStringArray& keys) {
    keys.SetSize(0);
    for (const char* root : {"DATA:", "LOCAL:"}) {
        OStringArray names;
        EnumKeys(root, names);
        for (int i = 0; i < names.GetSize(); ++i) {
            if (names[i].CompareNoCase("(shadow)") != 0)
                keys.Add(OString(root) << EncodeName(names[i]));
        }
    }
}

bool prtreg::Enable_BiDirectional_On() {
    const uint32_t attributes = GetDWORD("PRINT:Printers/[PRINTER]/Attributes", 0);
    return (attributes & PRINTER_ATTRIBUTE_ENABLE_BIDI) != 0;
}

bool prtreg::DeletePrinterDataKey(const OString& name) {
    return Delete(OString("DATA:") << ReplaceText(name, "/", "//"), false);
}

bool prtreg::GetPrinterDataW(const OString& name, uint32_t type, void* buffer, uint32_t size) {
    const OpenPrinter printer(printer_name_, PRINTER_ACCESS_ADMINISTER);
    if (!printer.Get()) return false;
    DWORD found_type = type;
    DWORD needed = 0;
    const DWORD error = GetPrinterDataA(printer.Get(), const_cast<char*>(name.nstring()),
                                        &found_type, static_cast<BYTE*>(buffer), size, &needed);
    return error == ERROR_SUCCESS && needed > 0 && needed <= size;
}

bool prtreg::SetPrinterDataW(const OString& name, uint32_t type, const void* data, uint32_t size) {
    const OpenPrinter printer(printer_name_, PRINTER_ACCESS_ADMINISTER);
    if (!printer.Get()) return false;
    auto* bytes = static_cast<BYTE*>(const_cast<void*>(data));
    return SetPrinterDataA(printer.Get(), const_cast<char*>(name.nstring()), type, bytes, size) ==
           ERROR_SUCCESS;
}
