// ppVersion: what is installed on the machine: programs, ports and printers.
#include <windows.h>

#include <iterator>

#include "core/obuffer.h"
#include "locale/report_text_numbers.h"
#include "model/prtmodel.h"
#include "pages/reports/pp_version.h"
#include "printer/port_info.h"
#include "registry/oregistry.h"
#include "spooler/printer_info.h"
#include "ui/component_utility.h"

namespace {

constexpr char kUninstallKey[] =
    "LOCAL_MACHINE:Software/Microsoft/Windows/CurrentVersion/Uninstall";
constexpr char kPrintersKey[] = "PRINT:Printers";

// Components as ComponentUtility names them, and as the report does.
constexpr struct {
    const char* name;
    const char* label;
} kComponents[] = {{"comctl32.dll", "Comctl32.dll"},
                   {"shell32.dll", "Shell32.dll"},
                   {"RichEdit", "RichEdit"},
                   {"Winsock", "Windows Sockets"},
                   {"HTML Help", "HTML Help"}};

// Names in the order of the system's numbers.
constexpr int kParities[] = {TEXT_INFO_NO_PARITY, TEXT_INFO_ODD, TEXT_INFO_EVEN, TEXT_INFO_MARK,
                             TEXT_INFO_SPACE};
constexpr const char* kStopBits[] = {"1", "1.5", "2"};

struct TcpipKind {
    uint32_t type;
    const char* monitor;
};
constexpr TcpipKind kTcpipKinds[] = {{PortInfo::TCPIP_VALDRICK, "Valdrick Port"},
                                     {PortInfo::TCPIP_MICROSOFT, "Standard TCP/IP Port"},
                                     {PortInfo::TCPIP_HP, "HP Standard TCP/IP Port"}};

const char* ParallelMode(uint32_t mode) {
    if (mode == PortInfo::ECP) return "ECP";
    return mode == PortInfo::EPP ? "EPP" : "SPP";
}

int TextOfHandshake(uint32_t handshake) {
    if (handshake == PortInfo::HARDWARE) return TEXT_INFO_HARDWARE;
    return handshake == PortInfo::XON_XOFF ? TEXT_INFO_XON_XOFF : TEXT_INFO_NO_PARITY;
}

// Adds one port to a report.
class PortWriter {
public:
    PortWriter(ppInformation& report, const OString& local_monitor)
        : report_(report)
        , local_monitor_(local_monitor) {}

    void Write(const _PORT_INFO_CUSTOM& port) {
        report_.Info_Header(OString(port.name));
        for (const TcpipKind& kind : kTcpipKinds)
            if (kind.type == port.type) return WriteTcpip(port.tcpip, kind.monitor);
        WriteKind(port);
        report_.Info_Item(TEXT_INFO_MONITOR, OString(port.monitor));
        if (port.type == PortInfo::SERIAL) WriteSerial(port.serial);
        if (port.type == PortInfo::PARALLEL)
            report_.Info_Item(TEXT_INFO_MODE, ParallelMode(port.parallel_mode));
    }

private:
    void WriteKind(const _PORT_INFO_CUSTOM& port) {
        switch (port.type) {
        case PortInfo::SERIAL:
            report_.Info_Item(TEXT_INFO_KIND, TEXT_INFO_SERIAL);
            break;
        case PortInfo::PARALLEL:
            report_.Info_Item(TEXT_INFO_KIND, TEXT_INFO_PARALLEL);
            break;
        case PortInfo::USB:
            report_.Info_Item(TEXT_INFO_KIND, "USB");
            break;
        case PortInfo::RESERVED_6:
        case PortInfo::RESERVED_7:
            break;
        default:
            // The system's own monitor has ports of many kinds.
            report_.Info_Item(TEXT_INFO_KIND,
                              local_monitor_.IsEmpty() || local_monitor_ == OString(port.monitor)
                                  ? TEXT_INFO_UNKNOWN
                                  : TEXT_INFO_OTHER_PORT);
        }
    }

    void WriteSerial(const _SerialPortInfo& serial) {
        Number(TEXT_INFO_BAUD, serial.baud_rate);
        Number(TEXT_INFO_DATA_BITS, serial.data_bits);
        if (serial.parity < std::size(kParities))
            report_.Info_Item(TEXT_INFO_PARITY, kParities[serial.parity]);
        if (serial.stop_bits < std::size(kStopBits))
            report_.Info_Item(TEXT_INFO_STOP_BITS, kStopBits[serial.stop_bits]);
        report_.Info_Item(TEXT_INFO_HANDSHAKE, TextOfHandshake(serial.handshake));
    }

    void WriteTcpip(const _TcpipPortInfo& tcpip, const char* monitor) {
        report_.Info_Item(TEXT_INFO_KIND, "TCP/IP");
        report_.Info_Item(TEXT_INFO_MONITOR, monitor);
        report_.Info_Item(TEXT_INFO_ADDRESS, OString(tcpip.address));
        Number(TEXT_INFO_PORT_NUMBER, tcpip.port);
    }

    void Number(int label, uint32_t number) {
        OString text;
        report_.Info_Item(label, text << number);
    }

    ppInformation& report_;
    const OString& local_monitor_;
};

} // namespace

// ---- Software -----------------------------------------------------------------------------------

void ppVersion::ShowSoftware() {
    Tab(TEXT_INFO_SOFTWARE_TAB);
    Info_Header(TEXT_INFO_PROGRAMS_HEADING);
    ORegistry registry;
    OStringArray programs;
    registry.EnumKeys(kUninstallKey, programs);
    for (int i = 0; i < programs.GetSize(); ++i) {
        OString value(kUninstallKey);
        value << "/" << ORegistry::EncodeName(programs[i]) << "/DisplayName";
        if (registry.GetInfo(value, nullptr, nullptr)) Info_Line(registry.GetString(value, ""));
    }
    ShowComponents();
}

void ppVersion::ShowComponents() {
    Info_Header(TEXT_INFO_COMPONENTS_HEADING);
    for (const auto& component : kComponents)
        if (ComponentUtility::IsInstalled(component.name, "0.0"))
            Info_Item(component.label, ComponentUtility::GetVersion(component.name));
    if (GetModel()->IsFablewickInstalled())
        Info_Item("Fablewick", ComponentUtility::GetVersion("Fablewick"));
    else
        Info_Item("Fablewick", TEXT_INFO_UNKNOWN);
}

// ---- Ports --------------------------------------------------------------------------------------

void ppVersion::ShowPorts() {
    Tab(TEXT_INFO_PORTS_TAB);
    const PortInfo ports;
    uint32_t size = 0, count = 0;
    ports.EnumPortInfo(nullptr, 0, size, count);
    OBuffer<unsigned char> records(size);
    if (!records.GetData() || !ports.EnumPortInfo(records.GetData(), size, size, count)) return;
    const auto* const port = reinterpret_cast<const _PORT_INFO_CUSTOM*>(records.GetData());
    const OString local_monitor = ports.GetLocalMonitorName();
    PortWriter writer(*this, local_monitor);
    for (uint32_t i = 0; i < count; ++i) writer.Write(port[i]);
}

// ---- Printers -----------------------------------------------------------------------------------

void ppVersion::ShowPrinters() {
    Tab(TEXT_INFO_PRINTERS_TAB);
    ORegistry registry;
    OStringArray printers;
    registry.EnumKeys(kPrintersKey, printers);
    for (int i = 0; i < printers.GetSize(); ++i) ShowPrinter(printers[i]);
}

void ppVersion::ShowPrinter(const OString& name) {
    const PrinterInfo printer(name);
    if (printer.GetPortName().IsEmpty()) return;
    Info_Header(name);
    Info_Item(TEXT_INFO_PORT, printer.GetPortName());
    Info_Item(TEXT_INFO_DRIVER, printer.GetDriverName());
    if (printer.GetConfigFile().GetLength() > 0)
        ShowConfigurationFile(printer.GetDriverDirectory() + "\\" + printer.GetConfigFile());
    else
        Info_Item(TEXT_INFO_VERSION, TEXT_INFO_NONE);
    Info_Item(TEXT_INFO_DRIVER_FILE, printer.GetDriverFile());
    ItemOr(TEXT_INFO_CONFIGURATION_FILE, printer.GetConfigFile(), TEXT_INFO_NONE);
    ItemOr(TEXT_INFO_DATA_FILE, printer.GetDataFile(), TEXT_INFO_NONE);
    ItemOr(TEXT_INFO_HELP_FILE, printer.GetHelpFile(), TEXT_INFO_NONE);
    ItemIfAny(TEXT_INFO_OTHER_FILES, printer.GetDependentFiles().Join(", "));
    ItemOr(TEXT_INFO_MONITOR, printer.GetMonitorName(), TEXT_INFO_NONE);
    ItemOr(TEXT_INFO_PRINT_PROCESSOR, printer.GetPrintProcessor(), TEXT_INFO_NONE);
    ItemOr(TEXT_INFO_DATA_TYPE, printer.GetDatatype(), TEXT_INFO_NONE);
    const bool is_shared = (printer.GetAttributes() & PRINTER_ATTRIBUTE_SHARED) != 0;
    ItemOr(TEXT_INFO_SHARE_NAME, is_shared ? printer.GetShareName() : OString(),
           TEXT_INFO_NOT_SHARED);
    ItemIfAny(TEXT_INFO_DRIVER_MANUFACTURER, printer.GetManufacturer());
    ItemIfAny(TEXT_INFO_PROVIDER, printer.GetProvider());
    ItemIfAny(TEXT_INFO_HARDWARE_ID, printer.GetHardwareID());
}

void ppVersion::ShowConfigurationFile(const OString& path) {
    Info_Item(TEXT_INFO_VERSION, ComponentUtility::GetVersion(path));
    ComponentUtility::tagProductVersionInfo info;
    if (!ComponentUtility::GetProductVersionInfo(path, &info)) return;
    ItemIfAny(TEXT_INFO_COMPANY, info.company_name);
    ItemIfAny(TEXT_INFO_DESCRIPTION, info.file_description);
    ItemIfAny(TEXT_INFO_COPYRIGHT, info.legal_copyright);
}
