#include <thread>
#include <vector>

#include "registry/oregistry.h"
#include "support/host_test.h"

class RegistryThreads : public HostTest {};

TEST_F(RegistryThreads, WorkOnOneKeyEachWithItsOwnObject) {
    constexpr int Threads = 4;
    constexpr int Values = 25;
    std::vector<int> found(Threads, 0);
    std::vector<std::thread> threads;
    for (int t = 0; t < Threads; ++t) {
        threads.emplace_back([t, &found] {
            ORegistry registry;
            const OString own = OString("USER:Shared/Own ") << t;
            for (int i = 0; i < Values; ++i) {
                EXPECT_TRUE(registry.SetInt(OString("USER:Shared/") << t << "-" << i, i));
                EXPECT_TRUE(registry.SetString(OString(own) << "/" << i, "x"));
                registry.Delete(OString("USER:Shared/Fleeting"), true);
                registry.SetInt("USER:Shared/Fleeting/v", t);
            }
            OStringArray names;
            found[static_cast<size_t>(t)] = registry.EnumValues(own, names);
        });
    }
    for (std::thread& thread : threads) thread.join();

    ORegistry registry;
    OStringArray names;
    EXPECT_EQ(registry.EnumValues("USER:Shared", names), Threads * Values);
    for (int count : found) EXPECT_EQ(count, Values);
}
