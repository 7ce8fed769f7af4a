#include "core/locks.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

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
