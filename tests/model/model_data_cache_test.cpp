#include "model/model_data_cache.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

class ModelDataCacheTest : public ::testing::Test {
protected:
    ModelDataCacheTest() { ModelDataCache::Initialize(); }
    ~ModelDataCacheTest() override { ModelDataCache::Free(); }

    void Set(const char* key, const std::string& data) {
        cache.SetData(key, data.data(), static_cast<uint32_t>(data.size()));
    }

    // "(none)" when GetData refuses.
    std::string Get(const char* key, uint32_t size) {
        std::string data(size, '?');
        if (cache.GetData(key, data.data(), size)) return data;
        EXPECT_EQ(data, std::string(size, '?')) << "a refused read wrote to the buffer";
        return "(none)";
    }

    ModelDataCache cache;
};

using ModelDataCacheThreads = ModelDataCacheTest;

} // namespace

TEST_F(ModelDataCacheTest, KeepsACopyOfTheLatestRecordAndDoesNotReadBeyondIt) {
    EXPECT_EQ(Get("P:A", 4), "(none)");
    EXPECT_EQ(cache.GetDataSize("P:A"), 0u);
    std::string data = "first";
    Set("P:A", data);
    data = "other";
    EXPECT_EQ(Get("P:A", 5), "first");
    Set("P:A", "second one");
    EXPECT_EQ(ModelDataCache().GetDataSize("P:A"), 10u);
    EXPECT_EQ(Get("P:A", 6), "second");
    EXPECT_EQ(Get("P:A", 11), "(none)");
    EXPECT_EQ(Get("p:a", 6), "(none)");
    Set("P:A", "");
    EXPECT_EQ(Get("P:A", 0), "");
    EXPECT_EQ(Get("P:A", 1), "(none)");
}

TEST_F(ModelDataCacheTest, ForgetsEverythingWhenTheStampChangesAndWithoutAStore) {
    for (const uint32_t stamp : {5u, 4u}) {
        cache.Synchronize(stamp);
        EXPECT_EQ(Get("P:A", 1), "(none)");
        Set("P:A", "1");
        cache.Synchronize(stamp);
        EXPECT_EQ(Get("P:A", 1), "1");
    }
    cache.SetData("P:B", "1", 1, 5);
    EXPECT_EQ(Get("P:B", 1), "(none)") << "built before the stamp changed";
    cache.SetData("P:B", "1", 1, 4);
    EXPECT_EQ(Get("P:B", 1), "1");
    ModelDataCache::Free();
    Set("P:A", "1");
    cache.Synchronize(1);
    EXPECT_EQ(Get("P:A", 1), "(none)");
    ModelDataCache::Initialize();
    EXPECT_EQ(Get("P:A", 1), "(none)");
}

// Whatever the others do, a record is absent or whole.
TEST_F(ModelDataCacheThreads, NeverSeeHalfARecord) {
    constexpr uint32_t kSize = 180;
    std::vector<int> torn(4);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < torn.size(); ++t)
        threads.emplace_back([t, &torn] {
            ModelDataCache records;
            for (int round = 0; round < 500; ++round) {
                const OString key = OString("Printer ") << round % 8 << ":ModelData";
                char data[kSize];
                if (records.GetData(key, data, kSize))
                    torn[t] += std::memcmp(data, data + 1, kSize - 1) != 0;
                std::memset(data, static_cast<int>('a' + t), kSize);
                records.SetData(key, data, kSize);
                if (round % 50 == 0) records.Synchronize(static_cast<uint32_t>(round));
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (int count : torn) EXPECT_EQ(count, 0);
}
