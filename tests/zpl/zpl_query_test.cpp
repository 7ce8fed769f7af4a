// Queries as the stream writes them, and reading their answers.

#include "zpl/zpl_query.h"

#include "keys/prtreg.h"
#include "printer/ui_printer.h"
#include "registry/oregistry.h"
#include "support/monitor_test.h"
#include "zpl/extstream.h"

namespace {

// A stream whose packets stay here.
class CatchingStream : public extstream {
public:
    ~CatchingStream() override { clear(); }
    void write_packet(const char* data, int count) override {
        sent.append(data, static_cast<size_t>(count));
    }
    std::string sent;
};

class QueryStream : public MonitorTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\n"});
        ui_.printer_name = "Dock 3";
        ui_.hprinter = printer();
        ui_.model = Model();
        stream_.init(&ui_);
    }
    // Allows the next question.
    void OpenPort() {
        AnswerPort("type", "TCP/IP");
        AnswerPort("bidirectional", "1");
    }

    struct Printer : UIPrinter {};
    Printer ui_;
    CatchingStream stream_;
};

TEST_F(QueryStream, WritesOneJobForAllQuestionsOfTheMask) {
    const std::string id = "<query name=\"HostID\", response_estimate=\"30\">~HI</query>";
    const std::string memory = "<query name=\"HostMemory\", response_estimate=\"20\">~HM</query>";
    const struct {
        int mask;
        std::string questions;
    } cases[] = {
        {1 | 4, id + memory},
        {2, "<query name=\"HostStatus\", response_estimate=\"90\">~HS</query>"},
        {8 | 16, "<query name=\"DirectoryList\", response_estimate=\"90\">\x02^HW*:*.*\x03</query>"
                 "<query name=\"DirectoryList\", response_estimate=\"150\">\x02^HW*:*.FNT\x03"
                 "</query>"},
        {32 | 64, "<query name=\"XML Format Parameter Settings\", response_estimate=\"1000\">"
                  "\x02^HZF\x03</query><query name=\"XML Directory List\", "
                  "response_estimate=\"512\">\x02^HZL\x03</query>"},
        {128 | 256 | 512,
         "<query name=\"XML Status Settings\", response_estimate=\"512\">\x02^HZR\x03</query>"
         "<query name=\"XML All Settings\", response_estimate=\"2500\">\x02^HZA\x03</query>"
         "<query name=\"Configuration Label\", response_estimate=\"500\">^XA^HH^XZ</query>"},
    };
    for (const auto& c : cases) {
        OpenPort();
        stream_.sent.clear();
        EXPECT_FALSE(ZPLQuery(nullptr, &stream_).RunQuery(c.mask)) << "there is no status monitor";
        EXPECT_EQ(stream_.sent, "<xpml>" + c.questions + "<end/></xpml>") << c.mask;
        EXPECT_TRUE(TakeJobs().empty()) << "nobody would take it";
    }
    OpenPort();
    stream_.sent.clear();
    PowerReadings readings;
    EXPECT_FALSE(RunPowerQuery(nullptr, stream_, "Power Job", "Power 1", readings));
    EXPECT_EQ(stream_.sent,
              "<xpml><query name=\"Power 1\", response_length=\"12\">~HB</query><end/></xpml>");
}

TEST_F(QueryStream, MakesNoJobWhenThereIsNobodyOrNothingToAsk) {
    EXPECT_FALSE(ZPLQuery(nullptr, &stream_).RunQuery(1)) << "the port has no way back";
    PowerReadings readings;
    EXPECT_FALSE(RunPowerQuery(nullptr, stream_, "Power Job", "Power 1", readings));
    OpenPort();
    for (const int mask : {0, 1024}) EXPECT_FALSE(ZPLQuery(nullptr, &stream_).RunQuery(mask));
    EXPECT_FALSE(ZPLQuery(nullptr, nullptr).RunQuery(1));
    EXPECT_EQ(stream_.sent, "");
}

TEST_F(QueryStream, ForgetsOldAnswersBeforeEveryJob) {
    ORegistry registry;
    prtreg data = Registry();
    const char* const progress[] = {"Status", "Bytes Read", "Bytes Written",
                                    "Total",  "Complete",   "Current"};
    registry.SetDWORD("LOCAL:Global/Query/Query HostID Size", 3);
    registry.SetString("LOCAL:Global/Query/Below/Value", "x");
    registry.SetInt("LOCAL:Global/Query/Query Done", 1);
    for (const char* value : progress) data.SetDWORD(OString("DATA:Query ") << value, 1);
    data.SetDWORD("DATA:Query Other", 1);

    stream_.QueryStart("job");
    stream_.QueryEnd();
    OStringArray names;
    EXPECT_EQ(registry.EnumValues("LOCAL:Global/Query", names), 1);
    EXPECT_EQ(registry.EnumKeys("LOCAL:Global/Query", names), 0);
    EXPECT_EQ(registry.GetInt("LOCAL:Global/Query/Query Done", 7), 0);
    for (const char* value : progress)
        EXPECT_EQ(data.GetDWORD(OString("DATA:Query ") << value, 7), 7u) << value;
    EXPECT_EQ(data.GetDWORD("DATA:Query Other", 7), 1u);
}

TEST_F(QueryStream, ReadsAnswersByTheNamesOfTheirQuestions) {
    ORegistry registry;
    registry.SetDWORD("LOCAL:Global/Query/Query A%2Fb c%3A Size", 3);
    registry.SetBinary("LOCAL:Global/Query/Query A%2Fb c%3A Response", "xyz", 3);
    unsigned char bytes[3] = {};
    EXPECT_EQ(stream_.QueryResponseSize("A/b c:"), 3);
    EXPECT_TRUE(stream_.QueryResponse("A/b c:", bytes, 3));
    EXPECT_EQ(std::string(bytes, bytes + 3), "xyz");
    EXPECT_FALSE(stream_.QueryResponse("A/b c:", bytes, 2)) << "does not fit";
    EXPECT_FALSE(stream_.QueryResponse("A/b c:", nullptr, 3));
    EXPECT_EQ(stream_.QueryResponseSize("Other"), 0);
    EXPECT_FALSE(stream_.QueryResponse("Other", bytes, 3));
}

TEST_F(QueryStream, AsksThePrinterDataOnceForEveryTick) {
    win32host::SetTickCount(4000000000u);
    const char* element = "<port action='get' name='type'/>";
    const struct {
        const char* text;
        size_t size;
        bool answered;
    } cases[] = {{"LPT", 4, true}, {"USB", 3, true}, {"TCP/IP", 7, false}, {"", 0, false}};
    for (const auto& c : cases) {
        AnswerTo("<xpml><port action='get' name='type'/><tick count='4000000000'/></xpml>",
                 std::string(c.text, c.size));
        char answer[4] = "old";
        EXPECT_EQ(stream_.XPML_Query(element, answer, sizeof answer), c.answered) << c.text;
        EXPECT_EQ(std::string(answer, 3), c.answered ? c.text : "old");
        EXPECT_FALSE(stream_.XPML_Query(element, answer, sizeof answer)) << "it was deleted";
    }
    EXPECT_FALSE(stream_.XPML_Query(element, nullptr, 4));
}

} // namespace
