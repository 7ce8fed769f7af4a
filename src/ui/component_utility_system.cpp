// ComponentUtility: the running system.
#include "core/ascii.h"
#include "registry/oregistry.h"
#include "ui/component_utility.h"

namespace {

enum Suite : uint32_t { ENTERPRISE = 0x2, DATACENTER = 0x80, PERSONAL = 0x200, BLADE = 0x400 };

constexpr uint8_t kWorkstation = 1; // product

constexpr char kHotfix6a[] =
    "LOCAL_MACHINE:SOFTWARE/Microsoft/Windows NT/CurrentVersion/Hotfix/Q246009";

void DescribeWindows95(const OSVERSIONINFOEXW& system, OString& name, OString& service_pack) {
    const WCHAR release = system.szCSDVersion[0] ? system.szCSDVersion[1] : WCHAR{0};
    switch (system.dwMinorVersion) {
    case 0:
        name = "Windows 95";
        if (release == 'B' || release == 'C') service_pack = "OSR2";
        break;
    case 10:
        name = "Windows 98";
        if (release == 'A') service_pack = "Second Edition";
        break;
    case 90:
        name = "Windows Me";
        break;
    default:
        break;
    }
}

OString NameOfWindowsNT(const OSVERSIONINFOEXW& system) {
    if (system.dwMajorVersion == 5) {
        constexpr const char* kNames[] = {"Windows 2000", "Windows XP", "Windows Server 2003"};
        if (system.dwMinorVersion < 3) return kNames[system.dwMinorVersion];
    }
    OString name("Windows NT ");
    return name << system.dwMajorVersion << "." << system.dwMinorVersion;
}

const char* EditionOfServer(const OSVERSIONINFOEXW& system) {
    const uint32_t suites = system.wSuiteMask;
    const bool is_version_5 = system.dwMajorVersion == 5;
    if (is_version_5 && system.dwMinorVersion == 2) {
        if (suites & DATACENTER) return "Datacenter Edition";
        if (suites & ENTERPRISE) return "Enterprise Edition";
        return suites == BLADE ? "Web Edition" : "Standard Edition";
    }
    if (is_version_5 && system.dwMinorVersion == 0) {
        if (suites & DATACENTER) return "Datacenter Server";
        return suites & ENTERPRISE ? "Advanced Server" : "Server";
    }
    return suites & ENTERPRISE ? "Server (Enterprise Edition)" : "Server";
}

const char* EditionOfWorkstation(const OSVERSIONINFOEXW& system) {
    if (system.dwMajorVersion == 4) return "Workstation";
    if (system.dwMajorVersion != 5) return "";
    return system.wSuiteMask & PERSONAL ? "Home Edition" : "Professional";
}

const char* EditionInRegistry() {
    constexpr struct {
        const char* type;
        const char* edition;
    } kTypes[] = {{"WINNT", "Workstation"},
                  {"SERVERNT", "Server"},
                  {"LANMANNT", "Server (Enterprise Edition)"}};
    const OString type = ORegistry().GetString(
        "2:SYSTEM/CurrentControlSet/Control/ProductOptions/ProductType", OString());
    for (const auto& known : kTypes)
        if (type.CompareNoCase(known.type) == 0) return known.edition;
    return "";
}

OString ServicePackOf(const OSVERSIONINFOEXW& system) {
    OString pack(system.szCSDVersion);
    if (system.dwMajorVersion == 4 && pack.CompareNoCase("Service Pack 6") == 0 &&
        ORegistry().GetKeyInfo(kHotfix6a, nullptr, nullptr))
        pack = "Service Pack 6a";
    return pack << " (Build " << LOWORD(system.dwBuildNumber) << ")";
}

// Where the driver runs on another system, in a host that stands in for Windows, the registry names
// that system. False on Windows.
bool NameOtherSystem(OString& name, OString& kernel) {
    ORegistry registry;
    name = registry.GetString("LOCAL_MACHINE:HARDWARE/DESCRIPTION/Host/Name", OString());
    kernel = registry.GetString("LOCAL_MACHINE:HARDWARE/DESCRIPTION/Host/Kernel", OString());
    return !name.IsEmpty();
}

} // namespace

void DescribeSystem(const OSVERSIONINFOEXW& system, bool extended, OString& name, OString& edition,
                    OString& service_pack) {
    name = edition = service_pack = OString();
    if (system.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS) {
        if (system.dwMajorVersion == 4) DescribeWindows95(system, name, service_pack);
        return;
    }
    if (system.dwPlatformId != VER_PLATFORM_WIN32_NT) return;
    name = NameOfWindowsNT(system);
    if (!extended)
        edition = EditionInRegistry();
    else if (system.wProductType == kWorkstation)
        edition = EditionOfWorkstation(system);
    else
        edition = EditionOfServer(system);
    service_pack = ServicePackOf(system);
}

void ComponentUtility::GetOSInformation(OString& name, OString& edition, OString& service_pack) {
    if (NameOtherSystem(name, edition)) {
        service_pack = OString();
        return;
    }
    OSVERSIONINFOEXW system = {};
    auto* const basic = reinterpret_cast<OSVERSIONINFOW*>(&system);
    system.dwOSVersionInfoSize = sizeof system;
    const bool extended = GetVersionExW(basic);
    if (!extended) {
        system.dwOSVersionInfoSize = sizeof *basic;
        GetVersionExW(basic);
    }
    DescribeSystem(system, extended, name, edition, service_pack);
}
