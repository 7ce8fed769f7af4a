// The inventory of ports, and the monitor's program.
#include "printer/port_info.h"

#include <vector>

#include "registry/oregistry.h"
#include "spooler/driver_utility.h"
#include "support/model_test.h"
#include "ui/prtui.h"
#include "win32host/control.h"

namespace {

class PortInventory : public ModelTest {
protected:
    ~PortInventory() override { win32host::ResetControl(); }

    // Adds the ports of the machine besides "FILE:", in this order.
    static void AddPorts(const std::vector<std::pair<const char*, const char*>>& ports) {
        ORegistry registry;
        for (const auto& [name, setup] : ports)
            registry.SetString(OString("LOCAL_MACHINE:SOFTWARE/Microsoft/Windows NT/"
                                       "CurrentVersion/Ports/") +
                                   ORegistry::EncodeName(name),
                               setup);
    }
    static void SetPort(const char* monitor, const char* port, const char* address, int number) {
        OString key = "PRINT:Monitors/";
        key << monitor << "/Ports/" << port;
        ORegistry().SetString(key + "/IPAddress", address);
        ORegistry().SetInt(key + "/PortNumber", number);
    }
    static std::string Named(const PortInfo& ports) {
        std::string names;
        for (int i = 0; i < ports.GetSize(); ++i) names += Text(ports.GetName(i)) + " ";
        return names;
    }
};

} // namespace

TEST_F(PortInventory, KnowsPortsByTheirNamesAndMonitors) {
    SetPort("Standard TCP//IP Port", "LPT9", "10.0.0.1", 9100);
    SetPort("Standard TCP//IP Port", "Both", "10.0.0.1", 9100);
    SetPort("Valdrick Port", "Both", "10.0.0.1", 9100);
    SetPort("HP Standard TCP//IP Port", "Third", "10.0.0.1", 9100);
    const struct {
        const char* name;
        int32_t type;
    } cases[] = {{"LPT1:", 1}, {"COM", 0},   {"usb001", 2}, {"FILE", 9},  {"LPT9", 4},
                 {"Both", 3},  {"Third", 5}, {"CO", 9},     {"com12", 0}, {"XLPT1", 9}};
    for (const auto& c : cases) EXPECT_EQ(PortInfo::PortType(c.name), c.type) << c.name;
}

TEST_F(PortInventory, SortsPortsByTypeAndThenByName) {
    AddPorts({{"COM2:", "9600,n,8,1"},
              {"LPT1:", ""},
              {"com1:", "9600,n,8,1"},
              {"COM10:", "9600,n,8,1"},
              {"IP_10.0.0.9", ""},
              {"USB001", ""}});
    SetPort("Standard TCP//IP Port", "IP_10.0.0.9", "10.0.0.9", 9100);
    const PortInfo ports;
    EXPECT_EQ(Named(ports), "COM10 com1 COM2 LPT1 USB001 IP_10.0.0.9 FILE ");
    EXPECT_EQ(Text(ports.GetLocalMonitorName()), "Local Monitor");
}

TEST_F(PortInventory, TellsHowPortsAreSetUp) {
    SkipUnderWine("serial ports are set up elsewhere, and all ports are the local monitor's");
    AddPorts({{"COM1:", "19200,e,7,2,x"},
              {"COM2:", "9600,n,8,1,p"},
              {"COM3:", "300,o,8,1"},
              {"LPT1:", ""},
              {"LPT2:", ""},
              {"LPT3:", ""},
              {"IP_10.0.0.9", ""}});
    SetPort("Valdrick Port", "IP_10.0.0.9", "10.0.0.9", 6101);
    ORegistry registry;
    registry.SetString("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/ACPI/PNP0401/5/"
                       "Device Parameters/PortName",
                       "LPT1");
    registry.SetString("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/ACPI/PNP0401/5/DeviceDesc",
                       "ECP Printer Port (LPT1)");
    registry.SetString("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/Root/PNP0400/0/"
                       "Device Parameters/PortName",
                       "LPT3");
    registry.SetString("LOCAL_MACHINE:SYSTEM/CurrentControlSet/Enum/Root/PNP0400/0/DeviceDesc",
                       "Printer Port (EPP)");
    const PortInfo ports;
    uint32_t needed = 0, count = 0;
    EXPECT_FALSE(ports.EnumPortInfo(nullptr, 0, needed, count));
    std::vector<uint64_t> buffer((needed + 7) / 8);
    EXPECT_FALSE(ports.EnumPortInfo(buffer.data(), needed - 1, needed, count));
    EXPECT_EQ(count, 0u);
    ASSERT_TRUE(ports.EnumPortInfo(buffer.data(), needed, needed, count));

    const auto* info = reinterpret_cast<const _PORT_INFO_CUSTOM*>(buffer.data());
    std::string told;
    for (uint32_t i = 0; i < count; ++i) {
        const auto& port = info[i];
        told += Text(OString(port.name)) + "/" + Text(OString(port.monitor)) + ":";
        if (port.type == PortInfo::SERIAL)
            for (const uint32_t value :
                 {port.serial.baud_rate, port.serial.data_bits, port.serial.parity,
                  port.serial.stop_bits, port.serial.handshake})
                told += " " + std::to_string(value);
        if (port.type == PortInfo::PARALLEL) told += " " + std::to_string(port.parallel_mode);
        if (port.type == PortInfo::TCPIP_VALDRICK)
            told += " " + Text(OString(port.tcpip.address)) + " " + std::to_string(port.tcpip.port);
        told += "\n";
    }
    // LPT2 is not in the inventory of devices.
    EXPECT_EQ(told, "COM1/Local Monitor: 19200 7 2 2 1\nCOM2/Local Monitor: 9600 8 0 0 0\n"
                    "COM3/Local Monitor: 300 8 1 0 2\nLPT1/Local Monitor: 1\n"
                    "LPT3/Local Monitor: 2\n"
                    "IP_10.0.0.9/Valdrick Port: 10.0.0.9 6101\nFILE/Local Monitor:\n");

    win32host::SetVersion(VER_PLATFORM_WIN32_NT, 4, 0, 1381);
    ASSERT_TRUE(ports.EnumPortInfo(buffer.data(), needed, needed, count));
    EXPECT_EQ(count, 8u);
    EXPECT_EQ(info[4].parallel_mode, uint32_t{PortInfo::STANDARD});
}

TEST_F(PortInventory, StartsTheMonitorForAPrinterOfThisOrAnotherMachine) {
    prtui::rundll_statusmonitor("Label 1", "", "open", 0);
    prtui::rundll_statusmonitor("Label1", "SRV", "close", 5);
    const auto programs = win32host::TakeStartedPrograms();
    ASSERT_EQ(programs.size(), 2u);
    const OString folder = OString("rundll32.exe ") + DriverUtility::GetDriverDirectory();
    EXPECT_EQ(programs[0].command_line,
              Text(folder) + "\\qstmon.dll,StatusMonitor open \"Label 1\"");
    EXPECT_EQ(programs[1].command_line,
              Text(folder) + "\\qstmon.dll,StatusMonitor close \"\\\\SRV\\Label1\"");
    EXPECT_EQ(programs[0].show, 0u);
}
