#include "core/name_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/crc.h"

namespace {

// Counts the existing nodes.
class CountedNode : public NameNode {
public:
    explicit CountedNode(const char* name = "", int32_t priority = 0) {
        SetName(OString(name));
        SetPriority(priority);
        ++alive;
    }
    CountedNode(const CountedNode& other)
        : NameNode(other) {
        ++alive;
    }
    ~CountedNode() override { --alive; }
    static inline int alive = 0;
};

using CountedList = OTypedNameList<CountedNode>;

// The names from head to tail, after comparing them with those from tail to head.
std::string Names(const CountedList& list) {
    std::string forward;
    for (CountedNode* node = list.GetNext(nullptr); node; node = list.GetNext(node))
        forward += std::string(node->GetName().nstring()) + ";";
    std::string backward;
    for (CountedNode* node = list.GetPrev(nullptr); node; node = list.GetPrev(node))
        backward = node->GetName().nstring() + (";" + backward);
    EXPECT_EQ(forward, backward);
    return forward;
}

TEST(List, KeepsItsNodesInOrder) {
    CountedList list;
    CountedNode* b = new CountedNode("b");
    EXPECT_TRUE(list.AddHead(b));
    list.AddTail(new CountedNode("d"));
    list.AddHead(new CountedNode("a"));
    list.InsertBefore(new CountedNode("c"), list.GetTail());
    list.InsertBefore(new CountedNode("0"), list.GetHead());
    list.InsertBefore(new CountedNode("00"), nullptr);
    EXPECT_FALSE(list.AddHead(nullptr));
    EXPECT_FALSE(list.AddTail(nullptr));
    EXPECT_FALSE(list.InsertBefore(nullptr, b));
    EXPECT_EQ(Names(list), "00;0;a;b;c;d;");
    list.InsertBefore(b, b);
    list.InsertBefore(b, list.GetTail());
    list.AddTail(list.GetHead());
    EXPECT_EQ(Names(list), "0;a;c;b;d;00;");
}

TEST(List, LosesTheNodesThatAreTakenOutOrDestroyed) {
    CountedList list;
    CountedList other;
    std::vector<CountedNode*> nodes;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        nodes.push_back(new CountedNode(name));
        list.AddTail(nodes.back());
    }
    delete nodes[2];
    EXPECT_EQ(Names(list), "a;b;d;e;");
    other.Remove(nodes[0]);
    EXPECT_EQ(Names(list), "a;b;d;e;") << "a list removes only its own nodes";
    list.Remove(nodes[0]);
    nodes[0]->Remove();
    delete nodes[0];
    other.AddTail(nodes[4]);
    EXPECT_EQ(Names(list), "b;d;");
    EXPECT_EQ(Names(other), "e;");
    delete nodes[1];
    delete nodes[3];
    EXPECT_EQ(list.GetHead(), nullptr);
    EXPECT_EQ(list.GetTail(), nullptr);
    other.Clear();
    EXPECT_EQ(CountedNode::alive, 0);
    {
        CountedList owner;
        owner.AddTail(new CountedNode);
        const CountedNode copy(*owner.GetNext(nullptr));
        EXPECT_EQ(copy.GetList(), nullptr) << "a copy is in no list";
    }
    EXPECT_EQ(CountedNode::alive, 0) << "a list owns its nodes";
}

TEST(NameList, ReplacesNodesOfTheSameName) {
    CountedList list;
    for (const char* name : {"A", "a", "A", "b"}) list.AddTail(new CountedNode(name));
    CountedNode* node = new CountedNode("A", 7);
    EXPECT_TRUE(list.AddTail_ReplaceName(node));
    EXPECT_EQ(Names(list), "a;b;A;");
    EXPECT_EQ(list.Find(OString("A")), node);
    EXPECT_TRUE(list.AddTail_ReplaceName(node)) << "a node does not replace itself";
    EXPECT_EQ(Names(list), "a;b;A;");
    EXPECT_EQ(list.Find(OString("B")), nullptr);
    EXPECT_FALSE(list.AddTail_ReplaceName(nullptr));
}

TEST(NameList, ChainsTheChecksumsOfItsNodes) {
    CountedList list;
    EXPECT_EQ(list.GetCRC32(5), 5u);
    list.AddTail(new CountedNode("ab", 1));
    list.AddTail(new CountedNode("c", -1));
    const char bytes[] = "ab\0\1\0\0\0c\0\xFF\xFF\xFF\xFF";
    EXPECT_EQ(list.GetCRC32(5), CRC32(bytes, sizeof(bytes) - 1, 5));
}

TEST(NameList, TakesAnotherListsNodesInPlaceOfThoseOfTheirNames) {
    const struct {
        const char* have;
        const char* come;
        const char* result;
    } cases[] = {
        {"abc", "xby", "a;c;x;b;y;"}, {"aab", "b", "a;a;b;"},
        {"ab", "aca", "b;c;a;"},      {"", "aaa", "a;"},
        {"ab", "", "a;b;"},
    };
    for (const auto& c : cases) {
        CountedList list, others, expected;
        const auto add = [](CountedList& to, const char* names, auto how) {
            for (; *names; ++names) how(to, new CountedNode(std::string(1, *names).c_str()));
        };
        const auto append = [](CountedList& to, CountedNode* node) { to.AddTail(node); };
        add(list, c.have, append);
        add(others, c.come, append);
        list.AddTail_ReplaceNames(others);
        EXPECT_EQ(Names(list), c.result);
        EXPECT_EQ(others.GetHead(), nullptr);

        add(expected, c.have, append);
        add(expected, c.come,
            [](CountedList& to, CountedNode* node) { to.AddTail_ReplaceName(node); });
        EXPECT_EQ(Names(list), Names(expected)) << "one by one";
    }
    EXPECT_EQ(CountedNode::alive, 0);
}

} // namespace
