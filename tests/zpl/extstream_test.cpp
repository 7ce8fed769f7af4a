// The ZPL forms of the output stream.
#include "zpl/extstream.h"

#include <functional>
#include <memory>

#include "support/job_test.h"

namespace {

class ZplStream : public JobTest {
protected:
    // What `write` sends to the installed printer.
    std::string Sent(const std::function<void(extstream&)>& write) {
        const auto ui = OpenUI();
        auto& stream = static_cast<extstream&>(*ui->stream);
        stream.StartJob("Job");
        write(stream);
        stream.EndJob();
        const auto jobs = TakeJobs();
        return jobs.size() == 1 ? jobs[0].bytes : "(not one job)";
    }
};

} // namespace

TEST_F(ZplStream, FramesFormatsAndPrefixesCommands) {
    Install({.model = "Resolution=203\n"});
    EXPECT_EQ(Sent([](extstream& stream) {
                  stream.reset_mode();
                  EXPECT_TRUE(stream.format_start());
                  stream.command_format("PQ");
                  stream << 2;
                  EXPECT_TRUE(stream.format_end());
                  stream.command_control("HS");
              }),
              "^XA\r\n^PQ2^XZ\r\n~HS");
}

TEST_F(ZplStream, WritesNumbersOfFixedWidth) {
    Install({.model = "Resolution=203\n"});
    const struct {
        int32_t value, digits;
        bool sign;
        const char* text;
    } cases[] = {
        {-5, 3, false, "-005"}, {7, 2, true, "+07"},
        {7, 0, false, "7"},     {1234, 2, false, "34"},
        {0, 2, true, "+00"},    {INT32_MIN, 10, false, "-2147483648"},
        {-7, -1, true, "-7"},   {42, 12, false, "000000000042"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Sent([&](extstream& s) { s.write_fixedint(c.value, c.digits, c.sign); }), c.text);
}

TEST_F(ZplStream, CutsAsThePrinterUnderstandsIt) {
    const auto cut = [](extstream& stream) { stream.cut(); };
    Install({.model = "Resolution=203\n"});
    EXPECT_EQ(Sent(cut), "^XA\r\n^MMC^PH^XZ\r\n");
    Replace({.model = "Resolution=203\n~ArgoxPPLZ=yes\n"});
    EXPECT_EQ(Sent(cut), "^XA\r\n~JSA^MMC^PH^XZ\r\n");
}
