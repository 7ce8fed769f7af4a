#include "model/model_data_cache.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

const ModelDataOwner kOwner{"P", "A", 5};

class ModelDataCacheTest : public ::testing::Test {
protected:
    ModelDataCacheTest() {
        ModelDataCache::Initialize();
        cache.Synchronize(kOwner);
    }
    ~ModelDataCacheTest() override { ModelDataCache::Free(); }

    void Set(const ModelDataOwner& owner, const std::string& data) {
        cache.SetData(owner, "R", data.data(), static_cast<uint32_t>(data.size()));
    }

    // "(none)" if GetData refuses.
    std::string Get(const ModelDataOwner& owner, uint32_t size) {
        std::string data(size, '?');
        if (cache.GetData(owner, "R", data.data(), size)) return data;
        EXPECT_EQ(data, std::string(size, '?')) << "a refused read wrote to the buffer";
        return "(none)";
    }

    ModelDataCache cache;
};

using ModelDataCacheThreads = ModelDataCacheTest;

} // namespace

TEST_F(ModelDataCacheTest, HasOneOwnerForAPrinterAndNoneWithoutAStore) {
    const ModelDataOwner neighbour{"Q", "A", 7};
    cache.Synchronize(neighbour);
    Set(neighbour, "1");
    for (const ModelDataOwner& other : {ModelDataOwner{"P", "A", 4}, {"P", "B", 4}, kOwner}) {
        Set(kOwner, "1");
        EXPECT_EQ(Get(other, 1), "(none)");
        cache.Synchronize(other);
        EXPECT_EQ(Get(other, 1), "(none)");
        Set(other, "2");
        cache.Synchronize(other);
        EXPECT_EQ(Get(other, 1), "2");
    }
    EXPECT_EQ(Get(neighbour, 1), "1");
    ModelDataCache::Free();
    cache.Synchronize(kOwner);
    Set(kOwner, "1");
    EXPECT_EQ(Get(kOwner, 1), "(none)");
    ModelDataCache::Initialize();
    EXPECT_EQ(Get(kOwner, 1), "(none)");
}

// Whatever the others do, a record is either absent or complete.
TEST_F(ModelDataCacheThreads, NeverSeeHalfARecord) {
    constexpr uint32_t kSize = 180;
    std::vector<int> torn(4);
    std::vector<std::thread> threads;
    for (size_t t = 0; t < torn.size(); ++t)
        threads.emplace_back([t, &torn] {
            ModelDataCache records;
            for (int round = 0; round < 500; ++round) {
                const ModelDataOwner owner{OString("Printer ") << round % 8, "A"};
                char data[kSize];
                if (records.GetData(owner, "R", data, kSize))
                    torn[t] += std::memcmp(data, data + 1, kSize - 1) != 0;
                std::memset(data, static_cast<int>('a' + t), kSize);
                records.SetData(owner, "R", data, kSize);
                records.Synchronize({owner.printer, "A", round % 50 ? 0u : 1u});
            }
        });
    for (std::thread& thread : threads) thread.join();
    for (int count : torn) EXPECT_EQ(count, 0);
}
