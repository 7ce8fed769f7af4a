#include "core/ostring_map.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

class HashList : public OHashMap<int> {
public:
    int Insert(uint32_t hash, int value) { return HashInsert(hash, value); }
};

TEST(HashMap, OrdersByHashTheLargestFirst) {
    HashList map;
    for (const uint32_t hash : {7, 2, 9, 7}) map.Insert(hash, map.GetSize());
    const std::pair<uint32_t, int> cases[] = {{7, 1}, {8, 1}, {1, 4}, {10, 0},
                                              {9, 0}, {2, 3}, {0, 4}, {0xFFFFFFFF, 0}};
    for (const auto& [wanted, start] : cases) EXPECT_EQ(map.HashStart(wanted), start) << wanted;
    OTypedArray<int> matches;
    map.HashMatch(7, matches);
    ASSERT_EQ(matches.GetSize(), 2);
    EXPECT_EQ(map.ValueAt(matches[0]), 3) << "the newest of equal hashes comes first";
    EXPECT_EQ(map.ValueAt(matches[1]), 0);
    map.HashMatch(8, matches);
    EXPECT_EQ(matches.GetSize(), 2);
    for (const uint32_t hash : {0xFFFFFFFFu, 0u}) map.Insert(hash, 0);
    EXPECT_EQ(map.HashStart(0xFFFFFFFF), 0);
    EXPECT_EQ(map.HashStart(0), 5);
}

TEST(StringMap, ReplacesTheValueOfAKey) {
    OStringMap<int> map;
    map.Set(OString("a"), 1);
    map.Set(OString(TEXT("a")), 2);
    map.Set(OString(), 3);
    EXPECT_EQ(map.GetSize(), 2);
    int value = 0;
    EXPECT_TRUE(map.Lookup(OString("a"), value));
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(map.Lookup(OString(), value));
    EXPECT_EQ(value, 3);
    EXPECT_EQ(map.KeyAt(map.HashStart(OStringMap<int>::HashCalculate(OString("a")))), "a");
    map.RemoveAll();
    EXPECT_EQ(map.GetSize(), 0);
    EXPECT_FALSE(map.Lookup(OString("a"), value));
}

} // namespace
