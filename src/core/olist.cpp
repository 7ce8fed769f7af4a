#include "core/olist.h"

#include "core/memory.h"

ONode::~ONode() {
    Remove();
}

void ONode::Remove() {
    if (list_) {
        if (list_->head_ == this) list_->RemoveHead();
        if (list_->tail_ == this) list_->RemoveTail();
        list_ = nullptr;
    }
    if (next_) next_->previous_ = previous_;
    if (previous_) previous_->next_ = next_;
    next_ = previous_ = nullptr;
}

OList::~OList() {
    Clear();
}

ONode* OList::NewNode() {
    return new (kCounted) ONode;
}

bool OList::AddHead(ONode* node) {
    if (!node) return false;
    node->Remove();
    node->list_ = this;
    node->next_ = head_;
    (head_ ? head_->previous_ : tail_) = node;
    head_ = node;
    return true;
}

bool OList::AddTail(ONode* node) {
    if (!node) return false;
    node->Remove();
    node->list_ = this;
    node->previous_ = tail_;
    (tail_ ? tail_->next_ : head_) = node;
    tail_ = node;
    return true;
}

bool OList::InsertBefore(ONode* node, ONode* before) {
    if (node && node == before && node->list_ == this) return true;
    if (node) node->Remove();
    if (!node || !before || before->list_ != this || !before->previous_) return AddHead(node);
    node->list_ = this;
    node->next_ = before;
    node->previous_ = before->previous_;
    before->previous_->next_ = node;
    before->previous_ = node;
    return true;
}

void OList::Remove(ONode* node) {
    if (node && node->list_ == this) node->Remove();
}

void OList::Clear() {
    while (head_) delete head_; // NOLINT: destroying a node takes it off the list
}

ONode* OList::RemoveHead() {
    ONode* node = head_;
    head_ = node->next_;
    if (head_) head_->previous_ = nullptr;
    return node;
}

ONode* OList::RemoveTail() {
    ONode* node = tail_;
    tail_ = node->previous_;
    if (tail_) tail_->next_ = nullptr;
    return node;
}
