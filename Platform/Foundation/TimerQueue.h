#pragma once

#include <cstdint>

namespace Foundation {

/// Entries by deadline and, where these are equal, in the order in which they were inserted: a pairing heap
/// threaded through the entries themselves. Inserting never allocates; inserting, and removing what was
/// inserted last, take the same few steps at any size.
class TimerQueue {
public:
    class Entry {
    public:
        Entry() = default;
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

        double deadline() const { return deadline_; }

        /// Counts up with every insertion into the queue.
        std::uint64_t order() const { return order_; }

    protected:
        ~Entry() = default;

    private:
        friend class TimerQueue;

        double deadline_ = 0.0;
        std::uint64_t order_ = 0;
        Entry* firstChild_ = nullptr;
        Entry* nextSibling_ = nullptr;

        // The sibling before, or the parent for a first child.
        Entry* previous_ = nullptr;
    };

    /// `entry` is in no queue and outlives its stay in this one. `deadline` is a number.
    void insert(Entry& entry, double deadline);
    void remove(Entry& entry);

    /// The entry that is due first, or nothing.
    Entry* first() const { return root_; }

    /// What `order` the next insertion gets.
    std::uint64_t nextOrder() const { return nextOrder_; }

private:
    static bool isBefore(const Entry& a, const Entry& b);
    static Entry* merge(Entry* a, Entry* b);
    static Entry* mergeSiblings(Entry* first);

    Entry* root_ = nullptr;
    std::uint64_t nextOrder_ = 0;
};

} // namespace Foundation
