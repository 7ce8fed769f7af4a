#include "core/name_list.h"

#include <algorithm>
#include <climits>
#include <memory>

#include "core/crc.h"
#include "core/memory.h"
#include "core/oarray.h"

namespace {

NameNode* NextName(const NameNode* node) {
    return static_cast<NameNode*>(node->GetNext());
}

// Equal names have equal hashes, in any form and code page.
uint32_t HashName(const OString& name) {
    return CRC32_Calculator(0).CRC32(name);
}

} // namespace

int NameNode::Collate(const NameNode& other) const {
    if (priority_ != other.priority_) return priority_ > other.priority_ ? -1 : 1;
    return name_.Collate(other.name_);
}

uint32_t NameNode::GetCRC32(uint32_t seed) const {
    CRC32_Calculator crc(CRC32_UTF8(name_, seed));
    return crc.CRC32(priority_);
}

NameList& NameList::operator=(const NameList& other) {
    name_ = other.name_;
    return *this;
}

ONode* NameList::NewNode() {
    return new (kCounted) NameNode;
}

NameNode* NameList::Find(const OString& name) const {
    NameNode* node = static_cast<NameNode*>(GetHead());
    while (node && !(node->GetName() == name)) node = NextName(node);
    return node;
}

bool NameList::AddTail_ReplaceName(NameNode* node) {
    if (!node) return false;
    NameNode* next;
    for (NameNode* other = static_cast<NameNode*>(GetHead()); other; other = next) {
        next = NextName(other);
        if (other != node && other->GetName() == node->GetName()) delete other;
    }
    return AddTail(node);
}

void NameList::AddTail_ReplaceNames(NameList& nodes) {
    struct Place {
        uint32_t hash;
        int index; // in the other list
        NameNode* node;
    };
    const auto before = [](const Place& a, const Place& b) {
        return a.hash != b.hash ? a.hash < b.hash : a.index < b.index;
    };
    size_t count = 0;
    for (const ONode* node = nodes.GetHead(); node; node = node->GetNext()) ++count;
    const std::unique_ptr<Place[]> places(new (kCounted) Place[count]);
    if (!places) {
        while (nodes.GetHead()) AddTail_ReplaceName(static_cast<NameNode*>(nodes.GetHead()));
        return;
    }
    Place* end = places.get();
    for (auto* node = static_cast<NameNode*>(nodes.GetHead()); node; node = NextName(node), ++end)
        *end = {HashName(node->GetName()), static_cast<int>(end - places.get()), node};
    std::sort(places.get(), end, before);

    // The last node of that name among those to be moved, or null. Nodes before it are not
    // accessed, so they may be gone.
    const auto last_of = [&](const OString& name) -> const NameNode* {
        const uint32_t hash = HashName(name);
        const Place* place =
            std::upper_bound(places.get(), end, Place{hash, INT_MAX, nullptr}, before);
        while (place != places.get() && (--place)->hash == hash)
            if (place->node->GetName() == name) // NOLINT(clang-analyzer-cplusplus.NewDelete)
                return place->node;
        return nullptr;
    };
    NameNode* next;
    for (auto* node = static_cast<NameNode*>(GetHead()); node; node = next) {
        next = NextName(node);
        if (last_of(node->GetName())) delete node;
    }
    for (auto* node = static_cast<NameNode*>(nodes.GetHead()); node; node = next) {
        next = NextName(node);
        if (last_of(node->GetName()) == node)
            AddTail(node);
        else
            delete node;
    }
}

OString NameList::FreeName(OString name, bool space) const {
    // One pass over the list, so that a long run of numbered names does not need a pass for each.
    OTypedArray<uint32_t> hashes;
    for (NameNode* node = static_cast<NameNode*>(GetHead()); node; node = NextName(node))
        hashes.Add(HashName(node->GetName()));
    uint32_t* const end = hashes.GetData() + hashes.GetSize();
    std::sort(hashes.GetData(), end);
    do {
        const OString taken(name); // NOLINT(performance-unnecessary-copy-initialization)
        name.NextUnique(space);
        // The last possible number is taken too, so a new one begins after it.
        if (name == taken) name << " 2";
        if (name == taken) break;
    } while (std::binary_search(hashes.GetData(), end, HashName(name)) && Find(name));
    return name;
}
