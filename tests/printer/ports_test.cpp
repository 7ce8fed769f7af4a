// What the module makes of the status monitor's answers about the printer's port.
#include <memory>

#include "printer/prtstream.h"
#include "support/job_test.h"
#include "ui/prtui.h"
#include "win32host/clock_control.h"
#include "win32host/control.h"

namespace {

class PrinterPort : public JobTest {
protected:
    PrinterPort() { win32host::SetTickCount(77); }
    ~PrinterPort() override {
        win32host::UseRealTickCount();
        win32host::ResetControl();
    }

    // What the monitor answers when `element` is asked of it next.
    void Answer(const std::string& element, const std::string& bytes) {
        AnswerTo("<xpml>" + element + "<tick count='77'/></xpml>", bytes);
    }
    void AnswerTo(const std::string& name, const std::string& bytes) {
        std::string copy = bytes;
        OString wide = name.c_str();
        ASSERT_EQ(SetPrinterDataW(printer(), const_cast<WCHAR*>(wide.wstring()), REG_BINARY,
                                  reinterpret_cast<BYTE*>(copy.data()),
                                  static_cast<DWORD>(copy.size())),
                  0u);
    }
    void AnswerPort(const std::string& fact, const std::string& bytes) {
        Answer("<port action='get' name='" + fact + "'/>", bytes);
    }
    std::unique_ptr<prtui> Made() {
        std::unique_ptr<prtui> ui(prtui::new_ext());
        ui->init(printer(), nullptr, 0);
        return ui;
    }
};

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
        const auto ui = Made();
        if (c.type) AnswerPort("type", c.type + none);
        if (c.bidirectional) AnswerPort("bidirectional", c.bidirectional + none);
        EXPECT_EQ(ui->stream->is_bidirectional(), c.answer) << (c.type ? c.type : "-") << c.model;
    }
}

TEST_F(PrinterPort, TellsWhatTheMonitorKnows) {
    Install({.model = "Resolution=203\n"});
    const auto ui = Made();
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

TEST_F(PrinterPort, IsWatchedWhenTheMonitorSaysSo) {
    Install({.model = "Resolution=203\n"});
    const auto ui = Made();
    const struct {
        std::string bytes;
        bool answer;
    } cases[] = {{"", false}, {std::string(1, '\0'), false}, {"\1", true}, {"\1\1", false}};
    for (const auto& c : cases) {
        if (!c.bytes.empty()) AnswerTo("Monitoring Supported77", c.bytes);
        EXPECT_EQ(ui->stream->IsMonitorSupported(), c.answer);
    }
}
