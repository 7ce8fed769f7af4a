#include "model/resource_file.h"

#include <filesystem>
#include <string>
#include <tuple>
#include <utility>

#include "support/data_file_text.h"
#include "support/host_test.h"

namespace {

void Parse(OResourceFile& file, const std::string& bytes) {
    file.Parse(bytes.data(), bytes.size());
}

} // namespace

using ResourceFile = HostTest;

TEST_F(ResourceFile, FindsTheFirstResourceOfANameInEitherCase) {
    WriteFile("driver\\zpl.ddt", Record("Driver.d", "one") + Record("DRIVER.D", "two") +
                                     Record("Model.d", std::string(100000, 'x')));
    OResourceFile file("");
    ASSERT_TRUE(file.Load("C:\\driver\\zpl.ddt"));
    EXPECT_EQ(Content(file, "driver.D"), "one");
    EXPECT_EQ(Content(file, "Model.d"), std::string(100000, 'x'));
    EXPECT_EQ(Content(file, "Font.d"), "(none)");
    EXPECT_STREQ(file.GetPath().nstring(), "C:\\driver\\zpl.ddt");
    EXPECT_FALSE(OResourceFile("").Load("C:\\driver\\none.ddt"));
    EXPECT_FALSE(std::filesystem::exists(OnDriveC("driver\\none.ddt"))) << "made by loading it";
}

TEST(ResourceFileRecords, ReadAsEmptyWhenTheirContainerIsNotSound) {
    const std::string sound = Container("0123456789");
    std::string huge = sound;
    huge.replace(4, 4, LittleEndian(0xFFFFFFFF));
    std::string corrupt = sound;
    corrupt.back() = static_cast<char>(corrupt.back() + 1);
    const std::pair<const char*, std::string> cases[] = {
        {"nothing", ""},
        {"not a container", "0123456789abcdef"},
        {"a claim of 4 GB", huge},
        {"a wrong checksum", corrupt},
        {"cut short", sound.substr(0, sound.size() - 1)}};
    for (const auto& [what, payload] : cases) {
        OResourceFile file("");
        Parse(file, RawRecord("A", payload) + Record("B", "b"));
        EXPECT_EQ(Content(file, "A"), "") << what;
        EXPECT_EQ(Content(file, "A"), "") << what << ", asked again";
        EXPECT_EQ(Content(file, "B"), "b") << what;
    }
}

TEST(ResourceFileRecords, KeepWhatComesBeforeADamagedOne) {
    const std::string whole = Record("B", "b");
    const std::string tail = whole.substr(8);
    const std::tuple<const char*, std::string, const char*> cases[] = {
        {"half a length", whole.substr(0, 2), "(none)"},
        {"only a length", whole.substr(0, 4), "(none)"},
        {"cut in the name", whole.substr(0, 8), "(none)"},
        {"cut behind the name", whole.substr(0, 9), ""},
        {"cut in the container", whole.substr(0, whole.size() - 1), ""},
        {"longer than the file", LittleEndian(0xFFFFFFFF) + LittleEndian(9) + tail, "b"},
        {"header too short", LittleEndian(30) + LittleEndian(7) + tail, "(none)"},
        {"header beyond the record", LittleEndian(20) + LittleEndian(21) + tail, "(none)"},
        {"a name of 4 GB", LittleEndian(0xFFFFFFFF) + LittleEndian(0xFFFFFFFF) + tail, "(none)"},
        {"shorter than its head", LittleEndian(1) + LittleEndian(9) + tail, "(none)"}};
    for (const auto& [what, bytes, content] : cases) {
        OResourceFile file("");
        Parse(file, Record("A", "a") + bytes);
        EXPECT_EQ(Content(file, "A"), "a") << what;
        EXPECT_EQ(Content(file, "B"), content) << what;
    }
}
