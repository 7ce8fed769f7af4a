// The object cache: its settings and the list of its objects.
#include <algorithm>
#include <cstring>

#include "printer/cache_contents.h"
#include "printer/cache_settings.h"
#include "printer/prtstream.h"
#include "support/job_test.h"

namespace {

KVCacheItemInfo Item(uint32_t id, uint16_t kind, uint32_t number, uint32_t size, uint16_t first,
                     uint16_t second, const char* name) {
    KVCacheItemInfo item = {};
    item.id = id;
    item.kind = kind;
    item.number = number;
    item.size = size;
    item.counters[0] = first;
    item.counters[1] = second;
    std::memcpy(item.name, name, std::min(std::strlen(name), sizeof item.name));
    return item;
}

std::string Description(const std::vector<KVCacheItemInfo>& items, int excess = 0) {
    KVCacheInformation header = {};
    header.count = static_cast<uint16_t>(static_cast<int>(items.size()) + excess);
    header.size = static_cast<uint16_t>(sizeof header + items.size() * sizeof items[0]);
    std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
    for (const auto& item : items) bytes.append(reinterpret_cast<const char*>(&item), sizeof item);
    return bytes;
}

bool Take(CacheContents& contents, const std::string& bytes) {
    return contents.Take(reinterpret_cast<const unsigned char*>(bytes.data()),
                         static_cast<uint32_t>(bytes.size()));
}

std::string Ids(const CacheContents& contents) {
    std::string ids;
    for (int i = 0; i < contents.GetSize(); ++i)
        ids += static_cast<char>('0' + contents.GetItem(i).id);
    return ids;
}

const std::vector<KVCacheItemInfo> kItems = {
    Item(1, KVCacheItemInfo::FORMAT, 2, 500, 3, 1, "beta"),
    Item(2, KVCacheItemInfo::GRAPHIC, 9, 700, 1, 1, "Alpha"),
    Item(3, KVCacheItemInfo::FORMAT, 1, 700, 2, 9, "ALPHA"),
    Item(4, KVCacheItemInfo::GRAPHIC, 4, 100, 2, 5, "a name of thirty-two characters!"),
};

class ObjectCache : public JobTest {
protected:
    void SetUp() override {
        Install({.model = "Resolution=203\n"});
        ui = OpenUI();
    }
    std::unique_ptr<prtui> ui;
};

} // namespace

TEST(ObjectCacheList, IsSortedByAColumnAndTheOtherWayRound) {
    CacheContents contents;
    EXPECT_TRUE(Take(contents, Description(kItems)));
    EXPECT_EQ(Ids(contents), "4231");
    const struct {
        CacheContents::Column column;
        const char* ids;
    } cases[] = {
        {CacheContents::OBJECT, "1324"},        {CacheContents::OBJECT, "4231"},
        {CacheContents::SIZE, "2314"},          {CacheContents::SIZE, "4132"},
        {CacheContents::FIRST_COUNTER, "2431"}, {CacheContents::SECOND_COUNTER, "3421"},
        {CacheContents::NAME, "4231"},          {CacheContents::NAME, "1324"},
    };
    for (const auto& c : cases) {
        contents.SortBy(c.column);
        EXPECT_EQ(Ids(contents), c.ids) << c.column;
    }
}

TEST(ObjectCacheList, ChangesWithTheDescriptionOnly) {
    CacheContents contents;
    const std::string all = Description(kItems);
    EXPECT_TRUE(Take(contents, all));
    EXPECT_FALSE(Take(contents, all));
    EXPECT_FALSE(Take(contents, all + "what comes after its end"));
    EXPECT_FALSE(Take(contents, all.substr(0, 15)));
    EXPECT_EQ(contents.GetSize(), 4);
    EXPECT_TRUE(Take(contents, all.substr(0, all.size() - 1))) << "the last object breaks off";
    EXPECT_EQ(Ids(contents), "231");
    EXPECT_TRUE(Take(contents, Description({kItems[0]}, 1000)));
    EXPECT_EQ(Ids(contents), "1");
    EXPECT_TRUE(Take(contents, Description({})));
    EXPECT_EQ(Ids(contents), "");
}

TEST_F(ObjectCache, ObjectsAreShownAndTreatedInTheirWays) {
    KVCacheItemInfo item = kItems[0];
    EXPECT_EQ(CacheItemKindText(item), 2511);
    EXPECT_EQ(CacheItemKindText(kItems[1]), 2512);
    EXPECT_EQ(Text(CacheItemTitle(item, "Format")), "Format 2");
    item.locked = 1;
    EXPECT_EQ(Text(CacheItemTitle(item, "Format")), "Format 2 *");
    PrintCacheItem(*ui->stream, item);
    ToggleCacheItemLock(*ui->stream, item);
    RemoveCacheItem(*ui->stream, item);
    EXPECT_EQ(TakeJobs(), (std::vector<PrintedJob>{{"Print Object", ""}, {"Delete Object", ""}}));
    CacheContents contents;
    EXPECT_TRUE(contents.Refresh(*ui->stream));
    EXPECT_FALSE(contents.Refresh(*ui->stream));
    EXPECT_EQ(contents.GetSize(), 0);
}

TEST_F(ObjectCache, SettingsStayWithinTheirLimitsAndInOrder) {
    NeedRenderingModule();
    CacheParameters limits;
    ui->GetCacheParameters(limits);
    KVCacheSettings settings = {};
    ASSERT_TRUE(ReadCacheSettings(*ui->stream, settings));
    const KVCacheSettings original = settings;
    SetCacheMemory(settings, limits, 9000);
    SetLastFormat(settings, limits, 500);
    SetFirstFormat(settings, limits, 900);
    SetFirstGraphic(settings, limits, 1000);
    SetLastGraphic(settings, limits, -5);
    WriteCacheSettings(*ui->stream, settings);

    KVCacheSettings read = {};
    ASSERT_TRUE(ReadCacheSettings(*ui->stream, read));
    EXPECT_EQ(read.memory, 8192u * 1024);
    EXPECT_EQ(read.first_format, 900u);
    EXPECT_EQ(read.last_format, 900u);
    EXPECT_EQ(read.first_graphic, 0u);
    EXPECT_EQ(read.last_graphic, 0u);
    EXPECT_TRUE(ResetCacheSettings(*ui->stream, read));
    EXPECT_EQ(std::memcmp(&read, &original, sizeof read), 0);
}
