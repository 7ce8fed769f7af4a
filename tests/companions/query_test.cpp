// Queries from end to end: a printer on the network, the host program asking it through driver,
// spooler and status monitor; and the monitor's answers about the printer's port.

#include "companions/emulator_test.h"

#include "keys/network_policy.h"
#include "keys/prtreg.h"
#include "spooler/open_printer.h"

#include <filesystem>
#include <fstream>

namespace {

class QueriesThreads : public EmulatorTest {
protected:
    static void SetLimit(const char* name, uint32_t milliseconds) {
        ORegistry().SetDWORD(OString("LOCAL:Status Monitor/") << name, milliseconds);
    }
    // The monitor's answer to a name of printer data.
    static std::string Ask(const char* printer, const std::string& name) {
        char answer[64] = {};
        const bool found = prtreg(OString(printer))
                               .GetPrinterDataW(name.c_str(), REG_BINARY, answer, sizeof answer);
        return found ? std::string(answer) : "nothing";
    }
    static std::string PortRequest(const char* fact) {
        return std::string("<xpml><port action='get' name='") + fact +
               "'/><tick count='1'/></xpml>";
    }
};

TEST_F(QueriesThreads, ReachPrintersOnThePortsOfAPortMonitor) {
    const std::string port = Port();
    const std::string number = port.substr(port.rfind(':') + 1);
    ORegistry registry;
    const OString settings = "PRINT:Monitors/Standard TCP//IP Port/Ports/Labels/";
    registry.SetString(settings + "IPAddress", "127.0.0.1");
    registry.SetDWORD(settings + "PortNumber", static_cast<uint32_t>(std::stoi(number)));
    registry.SetDWORD(settings + "UDPPort", 4201);
    Install("Dock", "Labels");
    EXPECT_EQ(Query("Dock", "1")["properties"]["Model"], "EMULATED-203");
    EXPECT_EQ(Ask("Dock", PortRequest("type")), "TCP/IP");
    EXPECT_EQ(Ask("Dock", PortRequest("ip_address")), "127.0.0.1");
    EXPECT_EQ(Ask("Dock", PortRequest("udp_port")), "4201");
    EXPECT_EQ(Ask("Dock", PortRequest("monitor_name")), "Standard TCP/IP Port");
    // Jobs reach it as well.
    WriteFile("label", "^XA^FDone^FS^XZ");
    EXPECT_EQ(Run({"action", "Dock", "22", OnDriveC("label")}).status, 0);
    EXPECT_EQ(StopServer(), "answered HI;printed 1 label;");
}

TEST_F(QueriesThreads, BringAPrintersAnswersToTheProgram) {
    Install("Dock 3", Port());
    const Json answer = Query("Dock 3");
    EXPECT_EQ(answer["ok"], true);
    EXPECT_EQ(answer["properties"]["Model"], "EMULATED-203");
    EXPECT_EQ(answer["properties"]["Baud"], "9600");
    EXPECT_EQ(answer["properties"]["Static-Ram-Installed"], "Not Installed");
    EXPECT_EQ(answer["properties"]["PhysicalMemory-Avaliable"], "0");
    EXPECT_EQ(answer["files"][0], "Z:A.FNT;3402;P");
    EXPECT_EQ(answer["configuration"][0], "DARKNESS@10");
    EXPECT_EQ(Query("Dock 3", "0")["ok"], false);
    EXPECT_EQ(Query("Dock 3", "256")["ok"], true);
    EXPECT_EQ(ORegistry().GetInt("LOCAL:Global/Query/Query Done", 0), 1);
    EXPECT_GT(ORegistry().GetSize("LOCAL:Global/Query/Query XML All Settings Response"), 100);
    EXPECT_EQ(prtreg(OString("Dock 3")).GetDWORD("DATA:Query Complete", 0), 1u);
    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool")) << "asked jobs are gone";
    EXPECT_EQ(StopServer(),
              "answered HI;answered HS;answered HM;answered HW;answered HH;answered HZA;");
}

TEST_F(QueriesThreads, ReachPrintersOfOtherMachines) {
    const std::string server = root() + "/SRV1";
    ASSERT_EQ(RunProgram("labelhost", {"--root", server, "install", "Dock", "--model",
                                       "Valdrick X4 300 dpi", "--port", Port()})
                  .status,
              0);
    ASSERT_EQ(Run({"connect", "\\\\SRV1\\Dock", "--server", server}).status, 0);
    const Json answer = Query("\\\\SRV1\\Dock", "1");
    EXPECT_EQ(answer["properties"]["Model"], "EMULATED-203");
    EXPECT_TRUE(std::filesystem::is_empty(server + "/spool")) << "asked jobs are gone";
    EXPECT_EQ(Ask("\\\\SRV1\\Dock", PortRequest("monitor_name")), "Standard TCP/IP Port");
}

TEST_F(QueriesThreads, LeaveOutWhatWasNotAnsweredWell) {
    Install("Dock3", Port());
    SetLimit("Quiet Time Limit", 200);
    const struct {
        const char* faults;
        uint32_t limit; // for an answer to begin, milliseconds
        bool ok, model, baud, memory;
    } cases[] = {
        {"HS split 5\nHM split 1\n", 30000, true, true, true, true},
        {"HI late 20\nHM late 20\n", 30000, true, true, true, true},
        {"HI short 10\nHS short 60\n", 30000, true, false, false, true},
        {"HI garbled\nHM garbled\n", 30000, true, false, true, false},
        {"* late 400\n", 50, false, false, false, false},
        {"* silent", 50, false, false, false, false},
    };
    for (const auto& c : cases) {
        std::ofstream(root() + "/faults") << c.faults;
        SetLimit("Answer Time Limit", c.limit);
        const Json answer = Query("Dock3", "7");
        EXPECT_EQ(answer["ok"], c.ok) << c.faults;
        EXPECT_EQ(answer["properties"].contains("Model"), c.model) << c.faults;
        EXPECT_EQ(answer["properties"].contains("Baud"), c.baud) << c.faults;
        EXPECT_EQ(answer["properties"].contains("PhysicalMemory-Size"), c.memory) << c.faults;
    }
}

TEST_F(QueriesThreads, DoNotTakeEachOthersAnswers) {
    const std::string folder = root() + "/other";
    std::filesystem::create_directory(folder);
    for (const std::string& faults : {root() + "/faults", folder + "/faults"})
        std::ofstream(faults) << "* late 150\n";
    std::ofstream(folder + "/HI") << "\x02OTHER,V1,12,8192KB\x03\r\n";
    EmulatorServer other(0, AnswerRules(folder), [](const std::string&) {});
    std::thread serving([&] { other.Run(); });
    Install("One", Port());
    Install("Two", "IP_127.0.0.1:" + std::to_string(other.Port()));
    const auto ask = [this](const char* printer, const std::string& model) {
        for (int i = 0; i < 2; ++i)
            EXPECT_EQ(Query(printer, "7")["properties"]["Model"], model) << printer;
    };
    std::thread asking(ask, "Two", "OTHER");
    ask("One", "EMULATED-203");
    asking.join();
    other.Stop();
    serving.join();
}

TEST_F(QueriesThreads, FailWhereNobodyCanAnswer) {
    Install("Nobody", Port());
    StopServer();
    // The port stays bound until the test ends, but nobody serves it.
    SetLimit("Answer Time Limit", 50);
    EXPECT_EQ(Query("Nobody")["ok"], false);
    Install("File", "FILE:");
    EXPECT_EQ(Query("File", "1")["ok"], false);
    const ProgramResult plain = Run({"query", "File"});
    EXPECT_EQ(plain.status, 1);
    EXPECT_NE(plain.errors.find("File"), std::string::npos);
    EXPECT_EQ(Run({"query", "Nowhere"}).status, 1);
    EXPECT_EQ(Run({"query", "File", "--mask", "x"}).status, 1);

    EXPECT_TRUE(std::filesystem::is_empty(root() + "/spool")) << "nobody would take such jobs";
}

TEST_F(QueriesThreads, KnowAboutThePort) {
    Install("Net", "IP_127.0.0.1:6101");
    Install("File", "FILE:");
    const struct {
        std::string name;
        const char* network;
        const char* file;
    } cases[] = {
        {PortRequest("type"), "TCP/IP", "nothing"},
        {PortRequest("bidirectional"), "1", "nothing"},
        {PortRequest("ip_address"), "127.0.0.1", "nothing"},
        {PortRequest("protocol"), "RAW", "nothing"},
        {PortRequest("monitor_name"), "Standard TCP/IP Port", "nothing"},
        {PortRequest("description"), "Standard TCP/IP Port", "nothing"},
        {PortRequest("udp_port"), "nothing", "nothing"},
        {PortRequest("colour"), "nothing", "nothing"},
        {"<xpml><printer name='Net'/><tick count='1'/></xpml>", "\1", "\1"},
        {"<xpml><registry action='delete' name='Net' tick='1'></registry></xpml>", "nothing",
         "nothing"},
        {"Monitoring Supported4711", "\1", ""},
        {"Monitoring Supported", "nothing", "nothing"},
        {"Network Sharing4711", "\1", "\1"},
        {"Network Sharing4711x", "nothing", "nothing"},
        {"Something else", "nothing", "nothing"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Ask("Net", c.name), c.network) << c.name;
        EXPECT_EQ(Ask("File", c.name), c.file) << c.name;
    }
    NetworkPolicy("Net").SetNetworkSharing(false);
    EXPECT_EQ(Ask("Net", "Network Sharing4711"), "");
    char byte = 0;
    EXPECT_FALSE(
        prtreg(OString("Net")).GetPrinterDataW(PortRequest("type").c_str(), REG_BINARY, &byte, 1))
        << "longer than the room";
}

} // namespace
