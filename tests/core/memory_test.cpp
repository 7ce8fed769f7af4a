#include "core/memory.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
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

TEST(MemoryBlock, KeepsWhatFitsWhenItIsResized) {
    char* text = static_cast<char*>(___realloc(nullptr, 6));
    std::memcpy(text, "label", 6);
    EXPECT_EQ(___realloc(text, 6), text) << "the same size changes nothing";
    text = static_cast<char*>(___realloc(text, 1000));
    EXPECT_STREQ(text, "label");
    EXPECT_EQ(___msize(text), 1000u);
    text = static_cast<char*>(___realloc(text, 3));
    EXPECT_EQ(std::string(text, 3), "lab");
    ___free(text);
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

TEST(MemoryBlock, IsZeroFromCallocAndCopiedWholeWithoutASize) {
    Block block(___calloc(2, 2), ___free);
    std::memcpy(block.get(), "ab", 2);
    Block whole(memdup(block.get(), 0), ___free);
    EXPECT_EQ(std::string(static_cast<char*>(whole.get()), 4), std::string("ab\0\0", 4));
    Block part(memdup("xyz", 2), ___free);
    EXPECT_EQ(___msize(part.get()), 2u);
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
