#include "core/ofile.h"

#include "support/host_test.h"

#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

// A stream whose sink takes at most `room` bytes per call and remembers the size of every call.
class SinkStream : public OCore::OStream {
public:
    std::vector<uint32_t> calls;
    std::string bytes;
    uint32_t room = 0xFFFFFFFF;

protected:
    uint32_t _StreamWrite(const void* data, uint32_t size) override {
        calls.push_back(size);
        const uint32_t taken = size < room ? size : room;
        bytes.append(static_cast<const char*>(data), taken);
        return taken;
    }
};

TEST(Stream, ReportsASinkThatTakesLessThanAFullBuffer) {
    SinkStream stream;
    stream.room = 1000;
    const std::string block(1024, 'x');
    EXPECT_EQ(stream.Write(block.data(), 1024), 0u);
    EXPECT_EQ(stream.Write("y", 1), 1u) << "the buffer was emptied all the same";
    stream.Flush();
    EXPECT_EQ(stream.calls, (std::vector<uint32_t>{1024, 1}));
}

using FileTest = HostTest;

TEST_F(FileTest, OpensExistingFilesByTheModeAndCreatesMissingOnes) {
    const std::pair<uint32_t, const char*> cases[] = {
        {OFILE_READ, "old"},
        {OFILE_WRITE, "new"},
        {OFILE_WRITE | OFILE_APPEND, "oldnew"},
        {OFILE_WRITE | OFILE_APPEND | OFILE_SHARE_NONE | 0x100, "oldnew"}};
    for (const auto& [mode, after_writing_new] : cases) {
        WriteFile("list.txt", "old");
        OFile file(OString("C:\\list.txt"), mode);
        ASSERT_TRUE(file.is_open()) << mode;
        file << "new";
        file.Close();
        EXPECT_EQ(BytesOf(OnDriveC("list.txt")), after_writing_new) << mode;
    }
    OFile missing;
    EXPECT_TRUE(missing.Open(OString("C:\\missing.txt"), OFILE_READ));
    EXPECT_TRUE(OFile::Exists(OString("C:\\missing.txt")));
    EXPECT_EQ(missing.GetLength(), 0u);
    EXPECT_FALSE(missing.Open(OString("C:\\no folder\\x.txt"), OFILE_WRITE));
    EXPECT_FALSE(missing.is_open());
    char byte = 0;
    EXPECT_EQ(missing.Read(&byte, 1), 0);
    EXPECT_EQ(missing.GetLength(), 0u);
}

TEST_F(FileTest, LetsOthersInByItsSharing) {
    const std::tuple<uint32_t, bool, bool> cases[] = {
        {OFILE_SHARE_NONE, false, false},
        {OFILE_SHARE_READ, true, false},
        {OFILE_SHARE_WRITE, false, false}, // a writer of this class reads as well
        {0, true, true},
        {0x40, true, true}};
    for (const auto& [sharing, read, write] : cases) {
        OFile first(OString("C:\\shared.txt"), sharing);
        OFile second;
        EXPECT_EQ(second.Open(OString("C:\\shared.txt"), OFILE_READ), read) << sharing;
        EXPECT_EQ(second.Open(OString("C:\\shared.txt"), OFILE_WRITE), write) << sharing;
    }
}

TEST_F(FileTest, ReadsLinesWhateverEndsThem) {
    const std::pair<std::string, std::vector<std::string>> cases[] = {
        {"a\r\n\r\nb", {"a", "", "b"}},
        {"", {}},
        {"\n", {""}},
        {std::string("x\0y\nz\0", 6), {"xy", "z"}},
        {"one\rtwo\r\r\n", {"one\rtwo"}},
        {std::string(5000, 'l') + "\n" + std::string(2048, 'm'),
         {std::string(5000, 'l'), std::string(2048, 'm')}}};
    for (const auto& [bytes, lines] : cases) {
        WriteFile("lines.txt", bytes);
        OFile file(OString("C:\\lines.txt"), OFILE_READ);
        OString line("before");
        for (const std::string& expected : lines) {
            ASSERT_TRUE(file.ReadLine(line)) << bytes;
            EXPECT_STREQ(line.nstring(), expected.c_str());
        }
        line = "unchanged";
        EXPECT_FALSE(file.ReadLine(line)) << bytes;
        EXPECT_STREQ(line.nstring(), "unchanged");
    }
}

TEST_F(FileTest, WritesAndSeeksFromWhereALineEnds) {
    WriteFile("lines.txt", "one\ntwo\nthree\n");
    OFile file(OString("C:\\lines.txt"), OFILE_WRITE | OFILE_APPEND);
    file.Seek(0, 0);
    OString line;
    ASSERT_TRUE(file.ReadLine(line));
    file.Seek(1, 1);
    ASSERT_TRUE(file.ReadLine(line));
    EXPECT_STREQ(line.nstring(), "wo");
    file.Write("T", 1);
    file.Close();
    EXPECT_EQ(BytesOf(OnDriveC("lines.txt")), "one\ntwo\nThree\n");
}

} // namespace
