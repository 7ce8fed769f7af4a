#include "core/memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <thread>

namespace {

using Block = std::unique_ptr<void, decltype(&___free)>;

TEST(MemoryBlock, KeepsItsSizeInTheWordInFrontOfIt) {
    Block block(___malloc(37), ___free);
    uint32_t word;
    std::memcpy(&word, static_cast<char*>(block.get()) - 4, 4);
    EXPECT_EQ(word, 37u);
    EXPECT_EQ(___msize(block.get()), 37u);
    void* at = block.get();
    size_t space = 37;
    EXPECT_EQ(std::align(alignof(std::max_align_t), 1, at, space), block.get());
}

TEST(MemoryBlock, IsRefusedWhenItsSizeDoesNotFitItsWord) {
    EXPECT_EQ(___malloc(0xFFFFFFFF), nullptr);
    EXPECT_EQ(___calloc(0x10001, 0x10001), nullptr);
    EXPECT_EQ(___calloc(SIZE_MAX / 2 + 2, 2), nullptr)
        << "the product must not wrap to a small one";
    Block block(___malloc(8), ___free);
    std::memcpy(block.get(), "content", 8);
    EXPECT_EQ(___realloc(block.get(), SIZE_MAX), nullptr);
    EXPECT_STREQ(static_cast<char*>(block.get()), "content");
}

TEST(AllocationWatch, NoticesWhatFailsOnItsOwnThreadOnly) {
    const AllocationWatch watch;
    std::thread([] { EXPECT_EQ(___malloc(SIZE_MAX), nullptr); }).join();
    EXPECT_FALSE(watch.Failed());
    EXPECT_EQ(___calloc(SIZE_MAX, 2), nullptr);
    EXPECT_TRUE(watch.Failed());
    EXPECT_FALSE(AllocationWatch().Failed()) << "a new one starts anew";
}

TEST(MemoryFunctions, CopyForwardOrAsIfThroughACopyAndCompareUnsignedBytes) {
    char forward[] = "abcdef";
    __memcpy(forward + 2, forward, 4);
    EXPECT_STREQ(forward, "ababab");
    char moved[] = "abcdef";
    __memmove(moved + 2, moved, 4);
    EXPECT_STREQ(moved, "ababcd");
    EXPECT_EQ(__memcmp("\x80", "\x7F", 1), 1);
}

TEST(MemoryFunctions, TolerateNullPointers) {
    char byte = 'x';
    EXPECT_EQ(__memcpy(&byte, nullptr, 1), &byte);
    EXPECT_EQ(byte, 'x');
    for (void* answer : {__memcpy(nullptr, &byte, 1), __memmove(nullptr, &byte, 1),
                         __memset(nullptr, 0, 1), memdup(nullptr, 5)})
        EXPECT_EQ(answer, nullptr);
    EXPECT_EQ(__memcmp(nullptr, &byte, 1), 0);
    ___free(nullptr);
    EXPECT_EQ(___msize(nullptr), 0u);
}

} // namespace
