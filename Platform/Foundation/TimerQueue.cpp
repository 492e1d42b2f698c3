#include "Platform/Foundation/TimerQueue.h"

#include <utility>

namespace Foundation {

void TimerQueue::insert(Entry& entry, double deadline) {
    entry.deadline_ = deadline;
    entry.order_ = nextOrder_++;
    root_ = merge(root_, &entry);
}

void TimerQueue::remove(Entry& entry) {
    if (&entry != root_) {
        Entry*& link = entry.previous_->firstChild_ == &entry ? entry.previous_->firstChild_
                                                              : entry.previous_->nextSibling_;
        link = entry.nextSibling_;
        if (entry.nextSibling_) {
            entry.nextSibling_->previous_ = entry.previous_;
        }
    }
    Entry* children = mergeSiblings(std::exchange(entry.firstChild_, nullptr));
    root_ = &entry == root_ ? children : merge(root_, children);
    entry.nextSibling_ = nullptr;
    entry.previous_ = nullptr;
}

bool TimerQueue::isBefore(const Entry& a, const Entry& b) {
    return a.deadline_ < b.deadline_ || (a.deadline_ == b.deadline_ && a.order_ < b.order_);
}

TimerQueue::Entry* TimerQueue::merge(Entry* a, Entry* b) {
    if (!a || !b) {
        return a ? a : b;
    }
    if (isBefore(*b, *a)) {
        std::swap(a, b);
    }
    b->previous_ = a;
    b->nextSibling_ = a->firstChild_;
    if (b->nextSibling_) {
        b->nextSibling_->previous_ = b;
    }
    a->firstChild_ = b;
    return a;
}

// Pairs from the left, then all pairs from the right: what keeps a pairing heap's cost logarithmic. The pairs
// wait in a list of their own, linked by their siblings.
TimerQueue::Entry* TimerQueue::mergeSiblings(Entry* first) {
    Entry* pairs = nullptr;
    while (first) {
        Entry* a = first;
        Entry* b = a->nextSibling_;
        first = b ? b->nextSibling_ : nullptr;
        a->nextSibling_ = nullptr;
        a->previous_ = nullptr;
        if (b) {
            b->nextSibling_ = nullptr;
            b->previous_ = nullptr;
        }
        Entry* pair = merge(a, b);
        pair->nextSibling_ = pairs;
        pairs = pair;
    }
    Entry* result = nullptr;
    while (pairs) {
        Entry* pair = std::exchange(pairs, pairs->nextSibling_);
        pair->nextSibling_ = nullptr;
        result = merge(result, pair);
    }
    return result;
}

} // namespace Foundation
