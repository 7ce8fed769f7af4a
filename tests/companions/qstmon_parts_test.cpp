// The status monitor's parts: its reading of jobs, requests, command lines and answers.

#include "qstmon/command_line.h"
#include "qstmon/conversation.h"
#include "qstmon/escape_key.h"
#include "qstmon/printer_port.h"
#include "qstmon/xpml.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

TEST(QueryJob, HasItsQuestionsInTheirOrder) {
    const struct {
        const char* document;
        const char* queries; // NAME=COMMAND(LENGTH, ! when exact);
    } cases[] = {
        {"<xpml><query name=\"HostID\", response_estimate=\"30\">~HI</query>"
         "<query name=\"A b\", response_length=\"12\">\x02^HW*:*.*\x03</query><end/></xpml>",
         "HostID=~HI(30);A b=\x02^HW*:*.*\x03(12!);"},
        {"<query response_length='5'name='x'></query><query>~HI</query>", "x=(5!);=~HI(0);"},
        {"<query name='cut off'>~HI</quer", ""},
        {"<query name='broken>~HI</query><query name='whole'>~HS</query>", "whole=~HS(0);"},
        {"<query name><query name=\"x\">~HI</query>", "x=~HI(0);"},
        {"<end/>< /><<>", ""},
        {"", ""},
    };
    for (const auto& c : cases) {
        std::string all;
        for (const XpmlQuery& query : QueriesIn(c.document))
            all += std::string(query.name) + "=" + std::string(query.command) + "(" +
                   std::to_string(query.length) + (query.exact ? "!" : "") + ");";
        EXPECT_EQ(all, c.queries) << c.document;
    }
}

TEST(MonitorCommandLine, TakesJobNamesWithAnythingInThem) {
    const struct {
        const char* line;
        const char* command; // VERB|PRINTER|JOB NAME|NUMBER
    } cases[] = {
        {"open \"Dock 3\" -jn PrinterInfo -ji 7", "open|Dock 3|PrinterInfo|7"},
        {"open \"\\\\SRV\\Dock\" -jn A -ji b -ji 12", "open|\\\\SRV\\Dock|A -ji b|12"},
        {"open \"Dock\" -jn PrinterInfo", "open|Dock|PrinterInfo|0"},
        {"close \"Dock\"", "close|Dock||0"},
        {"open \"Dock\" -jn A -ji 7x", "none"},
        {"open \"Dock\" -jn A -ji 99999999999", "none"},
        {"open \"Dock", "none"},
        {"\"Dock\"", "none"},
        {"", "none"},
    };
    for (const auto& c : cases) {
        const auto command = ParseMonitorCommand(c.line);
        EXPECT_EQ(command ? command->verb + "|" + command->printer + "|" + command->job_name + "|" +
                                std::to_string(command->job)
                          : "none",
                  c.command)
            << c.line;
    }
}

TEST(MonitorAnswer, EndsWhereThePrinterSaysSo) {
    const struct {
        const char* command;
        const char* answer;
        bool complete;
    } cases[] = {
        {"~HI", "\x02X\x03\r\n", true},
        {"~HI", "\x02X\x03\r", false},
        {"~HI", "\x02\x03\r\nmore", false},
        {"~HI", "X\x03\r\n", false},
        {"~HS", "\x02X\x03\r\n", false},
        {"~HS", "\x02X\x03\r\n\x02Y\x03\r\n", false},
        {"~HS", "\x02X\x03\r\n\x02Y\x03\r\n\x02Z\x03\r\n", true},
        {"^XA^HZA^XZ", "<?xml version='1.0'?>\r\n", false},
        {"~HI", "", false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsCompleteAnswer(c.command, c.answer), c.complete) << c.command << c.answer;
}

// A silent printer, whose user gives up as soon as the question has arrived there.
TEST(MonitorAnswer, IsNotWaitedForAfterTheUserHasGivenUp) {
    const net::Socket printer = net::Socket::Listen(0);
    std::atomic<bool> asked = false;
    std::atomic<int> connections = 0;
    std::thread serving([&] {
        net::Socket question = printer.Accept();
        char byte;
        if (++connections; question.Receive(&byte, 1, -1) == 1) asked = true;
        while (question.Receive(&byte, 1, -1) > 0) {
        }
    });
    constexpr int kTooLong = 3600 * 1000;
    Conversation conversation("127.0.0.1", printer.Port(), {kTooLong, kTooLong, kTooLong},
                              [&] { return asked.exchange(false); });
    EXPECT_TRUE(conversation.Connect() && !conversation.IsGivenUp());
    EXPECT_EQ(conversation.Ask("~HI"), "");
    EXPECT_TRUE(conversation.IsGivenUp());
    EXPECT_EQ(conversation.Ask("~HS"), "") << "no other question is asked";
    serving.join();
    EXPECT_EQ(connections, 1);
}

TEST(MonitorAnswer, IsGivenUpWithEscAtAWindow) {
    const HWND window = CreateWindowExW(0, TEXT("STATIC"), TEXT(""), 0, 0, 0, 1, 1, nullptr,
                                        nullptr, nullptr, nullptr);
    const auto press = [&](WPARAM key) { PostMessageW(window, WM_KEYDOWN, key, 1); };
    EXPECT_FALSE(TakeEscapeKey(window));
    press(VK_RETURN);
    press(VK_ESCAPE);
    for (const HWND nobody : {HWND{}, GetDesktopWindow()}) EXPECT_FALSE(TakeEscapeKey(nobody));
    EXPECT_TRUE(TakeEscapeKey(window));
    EXPECT_FALSE(TakeEscapeKey(window)) << "the window does not get the key";
    DestroyWindow(window);
}

TEST(MonitorPort, IsKnownByItsName) {
    const struct {
        const char* port;
        const char* place;
    } cases[] = {
        {"IP_10.0.0.7", "10.0.0.7:9100"},
        {"ip_printer-7.local:6101", "printer-7.local:6101"},
        {"IP_h:65535", "h:65535"},
        {"IP_h:65536", "none"},
        {"IP_h:0", "none"},
        {"IP_h:", "none"},
        {"IP_", "none"},
        {"IP_:9100", "none"},
        {"FILE:", "none"},
        {"LPT1:", "none"},
        {"", "none"},
    };
    for (const auto& c : cases) {
        const auto port = NetworkPortNamed(FromAnsi(c.port, std::string(c.port).size()));
        EXPECT_EQ(port ? port->host + ":" + std::to_string(port->port) : "none", c.place) << c.port;
    }
}

} // namespace
