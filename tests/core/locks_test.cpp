#include "core/locks.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

class CountingLock : public OSynchronizer {
public:
    int locks = 0, unlocks = 0;
    void Lock() override { ++locks; }
    void Unlock() override { ++unlocks; }
};

TEST(SingleLock, UnlocksOnlyWhatItLocked) {
    CountingLock lock;
    {
        OSingleLock never(&lock, false);
        OSingleLock held(&lock, true);
        EXPECT_TRUE(held.Unlock());
        EXPECT_FALSE(held.Unlock());
        OSingleLock later(&lock, false);
        EXPECT_TRUE(later.Lock());
        EXPECT_EQ(lock.unlocks, 1);
    }
    EXPECT_EQ(lock.locks, 2);
    EXPECT_EQ(lock.unlocks, 2);
}

TEST(CriticalSectionThreads, LetsOneThreadInAndTheSameThreadAgain) {
    OCriticalSection section;
    int counter = 0;
    auto work = [&] {
        for (int i = 0; i < 10000; ++i) {
            OSingleLock outer(&section, true);
            OSingleLock inner(&section, true);
            ++counter;
        }
    };
    std::thread first(work), second(work);
    first.join();
    second.join();
    EXPECT_EQ(counter, 20000);
}

} // namespace
