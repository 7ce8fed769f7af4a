// A doubly linked list whose elements carry their own links.
#pragma once

class OList;

// The base of every list element. A node is in one list at most; adding it to another takes it out
// of the first.
class ONode {
public:
    ONode() = default;
    // A copy is in no list, and assignment leaves a node where it is.
    ONode(const ONode&) {}
    ONode& operator=(const ONode&) { return *this; }
    // Takes the node out of its list.
    virtual ~ONode();

    // The neighbours; null at the ends and outside a list.
    ONode* GetNext() const { return next_; }
    ONode* GetPrev() const { return previous_; }

    // The list that the node is in, or null.
    OList* GetList() const { return list_; }

    // Takes the node out of its list, if it is in one. The caller then owns it.
    void Remove();

private:
    friend class OList;

    ONode* next_ = nullptr;
    ONode* previous_ = nullptr;
    OList* list_ = nullptr;
};

// A list owns its nodes and deletes them. Lists are not copied.
class OList {
public:
    OList() = default;
    OList(const OList&) = delete;
    OList& operator=(const OList&) = delete;
    virtual ~OList();

    // A new node of this list's kind, not yet in the list. Null without memory.
    virtual ONode* NewNode();

    // The ends, or null if the list is empty.
    ONode* GetHead() const { return head_; }
    ONode* GetTail() const { return tail_; }

    // Add a node at an end. False for null.
    bool AddHead(ONode* node);
    bool AddTail(ONode* node);

    // Adds a node before another of this list, or at the head if that is null. False for null.
    bool InsertBefore(ONode* node, ONode* before);

    // Takes a node out, if it is in this list. The caller then owns it.
    void Remove(ONode* node);

    // Deletes every node.
    void Clear();

private:
    friend class ONode;

    // Move an end past its node and return that node, whose own links stay.
    ONode* RemoveHead();
    ONode* RemoveTail();

    ONode* head_ = nullptr;
    ONode* tail_ = nullptr;
};
