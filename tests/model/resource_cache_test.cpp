#include "model/resource_cache.h"

#include <string>
#include <thread>
#include <vector>

#include "model/data_set.h"
#include "support/data_file_text.h"
#include "support/host_test.h"

namespace {

class ResourceCache : public HostTest {
protected:
    ResourceCache() { OResourceCache::Initialize(); }
    ~ResourceCache() override { OResourceCache::Free(); }
};

using ResourceCacheThreads = ResourceCache;

} // namespace

TEST_F(ResourceCache, ReadsAFileOnceDuringItsLife) {
    WriteFile("zpl.ddt", Record("A", "a"));
    OResourceFile* file = OResourceCache::GetResourceFile("C:\\zpl.ddt");
    OResourceFile* missing = OResourceCache::GetResourceFile("C:\\other.ddt");
    ASSERT_TRUE(file && missing && file != missing);
    for (const char* path : {"zpl.ddt", "other.ddt"}) WriteFile(path, Record("A", "changed"));
    EXPECT_EQ(OResourceCache::GetResourceFile("C:\\zpl.ddt"), file);
    EXPECT_EQ(OResourceCache::GetResourceFile("C:\\other.ddt"), missing);
    EXPECT_EQ(Content(*file, "A"), "a");
    EXPECT_EQ(Content(*missing, "A"), "(none)");
    OResourceCache::Free();
    EXPECT_EQ(OResourceCache::GetResourceFile("C:\\zpl.ddt"), nullptr);
}

// Every thread opens the file, decompresses, parses and queries at the same time as the others.
TEST_F(ResourceCacheThreads, ReadTheSameTables) {
    std::string text = "[.default]\nShared = yes\n";
    for (int i = 0; i < 50; ++i) {
        const std::string n = std::to_string(i);
        text.append("[M").append(n).append("]\nNumber = ").append(n).append("\n");
    }
    WriteFile("zpl.ddt", Record("Model.d", text) + Record("Font.d", text));

    std::vector<std::string> faults(4);
    std::vector<std::thread> threads;
    for (std::string& fault : faults)
        threads.emplace_back([&fault] {
            ODataSet set(OResourceCache::GetResourceFile("C:\\zpl.ddt"));
            for (const char* table : {"Model:", "Font:"})
                for (int i = 0; i < 50; ++i) {
                    set.SetTable(OString(table) << "M" << i);
                    if (set.GetInt("Number", -1) != i || !set.GetBool("Shared", false))
                        fault.append(table).append(std::to_string(i)).append(" ");
                }
        });
    for (std::thread& thread : threads) thread.join();
    for (const std::string& fault : faults) EXPECT_EQ(fault, "");
}
