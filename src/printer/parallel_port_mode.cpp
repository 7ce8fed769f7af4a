#include "printer/parallel_port_mode.h"

#include "core/windows_version.h"
#include "printer/port_info.h"
#include "registry/oregistry.h"

namespace {

// Searches the devices below a key (the instances of each class) for the one whose value `name`, in
// the instance's key or below it, is the port.
bool SearchParPortMode(const OString& root, const char* name, const OString& port, uint32_t& mode) {
    ORegistry registry;
    OStringArray classes;
    registry.EnumKeys(root, classes);
    for (int i = 0; i < classes.GetSize(); ++i) {
        const OString device = root + "/" + ORegistry::EncodeName(classes[i]);
        OStringArray instances;
        registry.EnumKeys(device, instances);
        for (int j = 0; j < instances.GetSize(); ++j) {
            const OString instance = device + "/" + ORegistry::EncodeName(instances[j]) + "/";
            if (registry.GetString(instance + name, "").CompareNoCase(port) != 0) continue;
            const OString description = registry.GetString(instance + "DeviceDesc", "");
            mode = description.Find("ECP") >= 0   ? PortInfo::ECP
                   : description.Find("EPP") >= 0 ? PortInfo::EPP
                                                  : PortInfo::STANDARD;
            return true;
        }
    }
    return false;
}

} // namespace

bool GetParPortMode(const OString& port, uint32_t& mode) {
    mode = PortInfo::STANDARD;
    if (WindowsMajorVersion() < 5) {
        if (IsWindowsNT()) return true;
        mode = PortInfo::UNKNOWN;
        return SearchParPortMode("LOCAL_MACHINE:Enum/Root", "PortName", port, mode) ||
               SearchParPortMode("LOCAL_MACHINE:Enum/BIOS", "PORTNAME", port, mode);
    }
    mode = PortInfo::UNKNOWN;
    constexpr char kName[] = "Device Parameters/PortName";
    return SearchParPortMode("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/ACPI", kName, port,
                             mode) ||
           SearchParPortMode("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/Root", kName, port, mode);
}
