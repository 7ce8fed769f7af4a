#include "core/oarray.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

template <class T>
std::vector<T> Contents(const OTypedArray<T>& array) {
    return std::vector<T>(array.GetData(), array.GetData() + array.GetSize());
}

TEST(Array, OpensGaps) {
    OTypedArray<char> array;
    for (char c : {'a', 'b', 'c'}) array.Add(c);
    array.InsertAt(1, 2);
    EXPECT_EQ(Contents(array), (std::vector<char>{'a', 0, 0, 'b', 'c'}));
    array.InsertAt(7, 1);
    EXPECT_EQ(Contents(array), (std::vector<char>{'a', 0, 0, 'b', 'c', 0, 0, 0}));
    array.InsertAt(0, 'x', 2);
    array.RemoveAt(3, 6);
    EXPECT_EQ(Contents(array), (std::vector<char>{'x', 'x', 'a', 0}));
    array.SetAtGrow(5, 'z');
    EXPECT_EQ(Contents(array), (std::vector<char>{'x', 'x', 'a', 0, 0, 'z'}));
}

TEST(Array, StaysAsItWasWhenTheMemoryCannotBeHad) {
    OTypedArray<uint64_t> array;
    array.Add(7);
    EXPECT_FALSE(array.SetSize(INT_MAX));
    EXPECT_FALSE(array.InsertAt(INT_MAX, 1));
    EXPECT_FALSE(array.InsertAt(0, INT_MAX));
    EXPECT_EQ(Contents(array), (std::vector<uint64_t>{7}));
}

} // namespace
