// Lists of named nodes.
#pragma once

#include <concepts>
#include <cstdint>

#include "core/memory.h"
#include "core/olist.h"
#include "core/ostring.h"

// A list element with a name and a priority. Names are case-sensitive.
class NameNode : public ONode {
public:
    const OString& GetName() const { return name_; }
    void SetName(const OString& name) { name_ = name; }

    // 0 at first. Higher ones come earlier.
    int32_t GetPriority() const { return priority_; }
    void SetPriority(int32_t priority) { priority_ = priority; }

    // -1, 0 or 1: which node sorts first, by priority and then by name.
    int Collate(const NameNode& other) const;

    // The checksum of the name in UTF-8 with its terminator and the priority, continued from
    // `seed`.
    uint32_t GetCRC32(uint32_t seed) const;

private:
    int32_t priority_ = 0;
    OString name_;
};

// A list of NameNode with a name of its own.
class NameList : public OList {
public:
    NameList() = default;
    // Copies take the list's name but not its nodes; assignment leaves the existing nodes.
    NameList(const NameList& other)
        : OList()
        , name_(other.name_) {}
    NameList& operator=(const NameList& other);

    // A new NameNode, or null without memory.
    ONode* NewNode() override;

    const OString& GetName() const { return name_; }
    void SetName(const OString& name) { name_ = name; }

    // The first node of that name, or null.
    NameNode* Find(const OString& name) const;

    // Adds a node at the tail and deletes all others of its name. False for null.
    bool AddTail_ReplaceName(NameNode* node);

    // Moves all nodes of another list, in their order, to the tail of this one, as
    // AddTail_ReplaceName does with one: of all nodes with the name of a moved one only the last
    // remains.
    void AddTail_ReplaceNames(NameList& nodes);

    // Adds a node at the tail, after counting its name up (OString::NextUnique) until no other node
    // has it. After the last possible number, " 2" begins a new one. The name is set by the node's
    // own class. False for null.
    template <std::derived_from<NameNode> Node>
    bool AddTail_UniqueName(Node* node, bool space) {
        if (!node) return false;
        node->ONode::Remove();
        if (Find(node->GetName())) node->SetName(FreeName(node->GetName(), space));
        return AddTail(node);
    }

private:
    // A taken name counted up until it is free. Without memory it may stay as it is.
    OString FreeName(OString name, bool space) const;

    OString name_;
};

// A view of a list, `Base`, all of whose nodes are of class T.
template <class T, std::derived_from<OList> Base>
class OTypedList : public Base {
public:
    ONode* NewNode() override { return new (kCounted) T; }

    // Replaces the nodes with copies of another list's. False if not everything could be copied.
    [[nodiscard]] bool CopyNodes(const OTypedList& other) {
        if (this == &other) return true;
        const AllocationWatch memory;
        this->Clear();
        for (const T* node = other.GetNext(nullptr); node; node = other.GetNext(node))
            this->AddTail(new (kCounted) T(*node));
        return !memory.Failed();
    }

    // The node after (before) `node`, or for null the head (tail). Null at the end.
    T* GetNext(const T* node) const {
        return static_cast<T*>(node ? node->ONode::GetNext() : this->GetHead());
    }
    T* GetPrev(const T* node) const {
        return static_cast<T*>(node ? node->ONode::GetPrev() : this->GetTail());
    }
};

// A named list that can tell whether it has changed.
template <class T>
class OTypedNameList : public OTypedList<T, NameList> {
public:
    // The nodes' own checksums, each continued from the one before, from head to tail, or `seed`
    // for an empty list.
    virtual uint32_t GetCRC32(uint32_t seed) const {
        for (T* node = this->GetNext(nullptr); node; node = this->GetNext(node))
            seed = node->GetCRC32(seed);
        return seed;
    }
};
