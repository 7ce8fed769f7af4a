// The module's use of the status monitor's answers about the printer's port.
#include "printer/prtstream.h"
#include "support/monitor_test.h"

namespace {

using PrinterPort = MonitorTest;

} // namespace

TEST_F(PrinterPort, IsBidirectionalWhenMonitorSystemAndModelAre) {
    const std::string none(1, '\0');
    const struct {
        const char *type, *bidirectional; // null: no answer
        DWORD major;
        const char* model; // the ports that it answers on
        bool answer;
    } cases[] = {
        {"TCP/IP", "1", 5, "", true},       {"TCP/IP", "", 5, "Parallel,USB", false},
        {"TCP/IP", nullptr, 5, "", false},  {nullptr, "1", 5, "", false},
        {"LPT", "1", 5, "Parallel", true},  {"LPT", "1", 5, "USB", false},
        {"LPT", "1", 4, "Parallel", false}, {"USB", "1", 4, "USB", true},
        {"USB", "1", 5, "Parallel", false}, {"lpt", "1", 5, "", true},
    };
    Install({.model = "Resolution=203\n"});
    for (const auto& c : cases) {
        Replace({.model = std::string("Resolution=203\nPorts.Bidirectional=") + c.model + "\n"});
        win32host::SetVersion(VER_PLATFORM_WIN32_NT, c.major, 0, 1381);
        const auto ui = OpenUI();
        if (c.type) AnswerPort("type", c.type + none);
        if (c.bidirectional) AnswerPort("bidirectional", c.bidirectional + none);
        EXPECT_EQ(ui->stream->is_bidirectional(), c.answer) << (c.type ? c.type : "-") << c.model;
    }
}

TEST_F(PrinterPort, TellsWhatTheMonitorKnows) {
    Install({.model = "Resolution=203\n"});
    const auto ui = OpenUI();
    prtstream& stream = *ui->stream;
    EXPECT_EQ(Text(stream.GetPortType()), "");
    AnswerPort("type", "TCP/IP");
    AnswerPort("ip_address", std::string("10.0.0.7\0rest", 13));
    AnswerPort("monitor_name", "Valdrick Port");
    AnswerPort("udp_port", "4201");
    AnswerPort("protocol", std::string(260, 'x'));
    AnswerPort("description", std::string(261, 'x'));
    EXPECT_TRUE(stream.IsMonitorEnabled());
    EXPECT_EQ(Text(stream.GetPortIPAddress()), "10.0.0.7");
    EXPECT_EQ(Text(stream.GetPortMonitorName()), "Valdrick Port");
    EXPECT_EQ(Text(stream.GetPortUDPPort()), "4201");
    EXPECT_EQ(Text(stream.GetPortProtocol()), std::string(260, 'x'));
    EXPECT_EQ(Text(stream.GetPortDescription()), "");
}
