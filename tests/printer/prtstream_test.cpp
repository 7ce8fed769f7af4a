// The output stream, from writing to the jobs waiting in the spooler.
#include "printer/prtstream.h"

#include <algorithm>
#include <memory>

#include "support/job_test.h"

namespace {

using Jobs = std::vector<PrintedJob>;

// A stream that notes the packets leaving it.
class NotingStream : public prtstream {
public:
    std::vector<int> packets;
    void write_packet(const char* data, int count) override {
        if (count) packets.push_back(count);
        prtstream::write_packet(data, count);
    }
};

class OutputStream : public JobTest {
protected:
    OutputStream() {
        NeedRenderingModule();
        Install({.model = "Resolution=203\nStock.Default.X=4 in\n"
                          "Stock.Default.Y=6 in\n"});
        ui_ = OpenUI();
        stream_.init(ui_.get());
    }

    static std::string Pattern(size_t size) {
        std::string bytes(size, '\0');
        for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 256);
        return bytes;
    }
    void Write(const std::string& bytes) {
        stream_.write(bytes.data(), static_cast<int32_t>(bytes.size()));
    }

    std::unique_ptr<prtui> ui_;
    NotingStream stream_;
};

} // namespace

TEST_F(OutputStream, MakesOneJobOfWhatIsWrittenBetweenStartAndEnd) {
    EXPECT_GT(stream_.StartJob("Calibrate"), 0);
    stream_ << "abc" << static_cast<const char*>(nullptr) << -120 << 0 << INT32_MIN << endl;
    stream_.write_byte('\0');
    Write("");
    EXPECT_TRUE(stream_.EndJob());
    EXPECT_EQ(TakeJobs(), (Jobs{{"Calibrate", std::string("abc-1200-2147483648\r\n\0", 22)}}));
}

TEST_F(OutputStream, CutsBytesIntoPacketsAndLosesNone) {
    const struct {
        int32_t measured; // grows the buffer first
        std::vector<size_t> writes;
        std::vector<int> packets;
    } cases[] = {
        {0, {8193}, {8192, 1}},
        {0, {8192, 1}, {8192, 1}},
        {0, {8000, 300}, {8000, 300}},
        {0, {10, 8193, 10}, {10, 8192, 1, 10}},
        {0, {16384}, {8192, 8192}},
        {60000, {70000}, {32000, 32000, 6000}},
        {60000, {40000, 20000}, {32000, 28000}},
    };
    for (const auto& c : cases) {
        stream_.init(ui_.get());
        stream_.CacheStart();
        Write(Pattern(static_cast<size_t>(c.measured)));
        stream_.CacheStop();
        stream_.packets.clear();

        std::string all;
        stream_.StartJob("Job");
        for (const size_t size : c.writes) {
            Write(Pattern(size));
            all += Pattern(size);
        }
        stream_.EndJob();
        EXPECT_EQ(stream_.packets, c.packets);
        EXPECT_EQ(TakeJobs(), (Jobs{{"Job", all}}));
    }
}

TEST_F(OutputStream, MakesAJobOfEachPacketThatLeavesOutsideOfOne) {
    Write(Pattern(100));
    EXPECT_EQ(TakeJobs(), Jobs{});
    stream_.flush();
    EXPECT_EQ(TakeJobs(), (Jobs{{"write_packet", Pattern(100)}}));
    {
        prtstream other;
        other.init(ui_.get());
        other << "last words";
    }
    EXPECT_EQ(TakeJobs(), (Jobs{{"write_packet", "last words"}}));
}

TEST_F(OutputStream, SendsDirectlyWithoutTouchingWhatIsGathered) {
    stream_.StartJob("Not ended");
    stream_.write_direct("lost", 4);
    stream_.StartJob("Job");
    stream_ << "later";
    stream_.write_direct("now ", 4);
    stream_.EndJob();
    EXPECT_EQ(TakeJobs(), (Jobs{{"Job", "now later"}}));
}

TEST_F(OutputStream, MeasuresWithoutSending) {
    stream_.StartJob("Job");
    stream_ << "before ";
    stream_.CacheStart();
    EXPECT_TRUE(stream_.is_virtual());
    for (int i = 0; i < 20; ++i) Write(Pattern(1000));
    stream_.flush();
    EXPECT_EQ(stream_.GetCachedSize(), 20000);
    EXPECT_EQ(stream_.GetCachedMemory(), 20000);
    stream_.CacheStop();
    EXPECT_EQ(stream_.GetCachedSize(), 0);
    stream_ << "after";
    stream_.EndJob();
    EXPECT_EQ(TakeJobs(), (Jobs{{"Job", "before after"}}));
}

TEST_F(OutputStream, DropsEverythingWithoutAPrinter) {
    prtstream unowned;
    ui_->printer_name = "Nowhere";
    for (prtstream* stream : {&unowned, static_cast<prtstream*>(&stream_)}) {
        EXPECT_EQ(stream->StartJob("Job"), 0);
        *stream << "text";
        EXPECT_TRUE(stream->EndJob());
    }
    EXPECT_EQ(unowned.GetModel(), nullptr);
    OBuffer<unsigned char> objects(1);
    EXPECT_FALSE(unowned.GetCacheInformation(objects));
    EXPECT_EQ(objects.GetSize(), 1u);
    EXPECT_EQ(TakeJobs(), Jobs{});
}

TEST_F(OutputStream, DownloadsFonts) {
    KVFontInfo font = {};
    std::copy_n("ARIAL.FNT", 10, font.file_name);
    font.identifier[0] = 'I';
    font.location[0] = 'E';
    font.data_size = 3;
    const auto send = [&](uint16_t operation) {
        font.operation = operation;
        stream_.DownloadFont(font);
    };
    stream_.StartJob("Arial");
    send(KVFontInfo::BEGIN_TRUETYPE);
    stream_.DownloadFontData("\x01\xAB", 2);
    stream_.DownloadFontData("\xFF", 1);
    stream_.DownloadFontData("", UINT32_MAX); // no block can hold that: nothing is read or sent
    send(KVFontInfo::END_TRUETYPE);
    send(KVFontInfo::FINISH);
    stream_.EndJob();

    font.height = 24;
    font.ascent = 20;
    font.max_char_width = 16;
    font.ave_char_width = 9;
    font.characters = 1;
    struct {
        KVDownloadBitmapChar head = {'A', 10, 24, 20, 0, 4, 2, 2};
        unsigned char rows[4] = {0xFF, 0xC0, 0x12, 0x40};
    } glyph;
    stream_.StartJob("Bitmap");
    send(KVFontInfo::BEGIN_BITMAP);
    stream_.DownloadBitmapData(&glyph.head);
    send(KVFontInfo::END_BITMAP);
    send(KVFontInfo::ERASE);
    stream_.EndJob();
    EXPECT_EQ(TakeJobs(), (Jobs{{"Arial", "~DUE:ARIAL.FNT,3,01ABFF\r\n"
                                          "^XA^CWI,E:ARIAL.FNT^FS^XZ\r\n"},
                                {"Bitmap", "~DBE:ARIAL.FNT,N,24,16,20,9,1,,"
                                           "#0041.2.2.0.0.10.FFC01240\r\n"
                                           "^XA^IDE:ARIAL.FNT^FS^XZ\r\n"}}));
}

// Data that a broken or hostile program could send.
TEST_F(OutputStream, RefusesEscapesThatAreShorterThanTheySay) {
    const auto escape = [&](int code, const std::string& input) {
        return static_cast<int32_t>(
            stream_.Escape(code, static_cast<int>(input.size()), input.data(), 0, nullptr));
    };
    stream_.StartJob("Job");
    for (const int code : {ESCAPE_RAW_PACKET, ESCAPE_BAR, ESCAPE_CACHE_ACTION, ESCAPE_DOWNLOAD_FONT,
                           ESCAPE_DOWNLOAD_FONT_DATA, ESCAPE_DOWNLOAD_BITMAP,
                           ESCAPE_WRITE_CACHE_SETTINGS, ESCAPE_READ_CACHE_SETTINGS}) {
        EXPECT_EQ(escape(code, ""), -1) << code;
        EXPECT_EQ(escape(code, "\x7F"), -1) << code;
    }
    EXPECT_EQ(escape(ESCAPE_RAW_PACKET, std::string("\3\0ab", 4)), -1);
    EXPECT_EQ(escape(ESCAPE_DOWNLOAD_FONT_DATA, std::string("\1\0x", 3)), -1); // no font begun
    EXPECT_EQ(escape(16001, "12345678"), 0);                                   // not known
    stream_.EndJob();
    EXPECT_EQ(TakeJobs(), (Jobs{{"Job", ""}}));
}
