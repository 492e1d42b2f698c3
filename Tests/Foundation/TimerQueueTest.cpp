#include "Platform/Foundation/TimerQueue.h"

#include <algorithm>
#include <deque>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <utility>
#include <vector>

namespace {

using namespace Foundation;

class Entry : public TimerQueue::Entry {};

TEST(TimerQueueTest, AnEmptyQueueHasNoFirstEntry) { EXPECT_EQ(TimerQueue().first(), nullptr); }

TEST(TimerQueueTest, EntriesLeaveByDeadline) {
    TimerQueue queue;
    std::deque<Entry> entries(5);
    const double deadlines[] = {3.0, 1.0, 4.0, -1.0, 2.0};
    for (std::size_t index = 0; index < entries.size(); ++index) {
        queue.insert(entries[index], deadlines[index]);
    }
    for (const std::size_t expected : {3U, 1U, 4U, 0U, 2U}) {
        EXPECT_EQ(queue.first(), &entries[expected]);
        queue.remove(*queue.first());
    }
    EXPECT_EQ(queue.first(), nullptr);
}

TEST(TimerQueueTest, EqualDeadlinesLeaveInTheOrderOfInsertion) {
    TimerQueue queue;
    std::deque<Entry> entries(100);
    for (Entry& entry : entries) {
        queue.insert(entry, 1.0);
    }
    queue.remove(entries[0]);
    queue.insert(entries[0], 1.0);
    for (std::size_t index = 1; index <= entries.size(); ++index) {
        EXPECT_EQ(queue.first(), &entries[index % entries.size()]);
        queue.remove(*queue.first());
    }
}

TEST(TimerQueueTest, OrdersCountUpWithEveryInsertion) {
    TimerQueue queue;
    Entry a;
    Entry b;
    const std::uint64_t before = queue.nextOrder();
    queue.insert(a, 2.0);
    queue.insert(b, 1.0);
    EXPECT_EQ(a.order(), before);
    EXPECT_EQ(b.order(), before + 1);
    queue.remove(a);
    queue.insert(a, 2.0);
    EXPECT_EQ(a.order(), before + 2);
    EXPECT_EQ(queue.nextOrder(), before + 3);
}

TEST(TimerQueueTest, AnySequenceOfStepsKeepsTheOrderOfASortedSet) {
    using Key = std::pair<std::pair<double, std::uint64_t>, Entry*>;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        std::mt19937 random(seed);
        TimerQueue queue;
        std::deque<Entry> entries(200);
        std::vector<Entry*> idle;
        std::vector<Entry*> queued;
        std::multiset<Key> model;
        const auto keyOf = [](Entry* entry) { return Key{{entry->deadline(), entry->order()}, entry}; };
        const auto remove = [&](Entry* entry) {
            model.erase(keyOf(entry));
            queue.remove(*entry);
            queued.erase(std::find(queued.begin(), queued.end(), entry));
            idle.push_back(entry);
        };
        for (Entry& entry : entries) {
            idle.push_back(&entry);
        }
        for (int step = 0; step < 5000; ++step) {
            const auto choice = random() % 10;
            if (choice < 5 && !idle.empty()) {
                Entry* entry = idle.back();
                idle.pop_back();
                // Few deadlines, so that many are equal.
                queue.insert(*entry, static_cast<double>(random() % 20));
                queued.push_back(entry);
                model.insert(keyOf(entry));
            } else if (choice < 8 && !queued.empty()) {
                remove(queued[random() % queued.size()]);
            } else if (!queued.empty()) {
                remove(model.begin()->second);
            }
            ASSERT_EQ(queue.first(), model.empty() ? nullptr : model.begin()->second)
                << "seed " << seed << ", step " << step;
        }
        while (!queued.empty()) {
            ASSERT_EQ(queue.first(), model.begin()->second);
            remove(model.begin()->second);
        }
        EXPECT_EQ(queue.first(), nullptr);
    }
}

// Ascending and descending deadlines make the flattest and the deepest heap.
TEST(TimerQueueTest, AHundredThousandEntriesNeedNoDeepStack) {
    constexpr int count = 100'000;
    for (const double direction : {1.0, -1.0}) {
        TimerQueue queue;
        std::deque<Entry> entries(count);
        for (int index = 0; index < count; ++index) {
            queue.insert(entries[static_cast<std::size_t>(index)], direction * index);
        }
        for (int index = 0; index < count; index += 2) {
            queue.remove(entries[static_cast<std::size_t>(index)]);
        }
        double previous = -count;
        int left = 0;
        while (TimerQueue::Entry* first = queue.first()) {
            ASSERT_LT(previous, first->deadline());
            previous = first->deadline();
            queue.remove(*first);
            ++left;
        }
        EXPECT_EQ(left, count / 2);
    }
}

} // namespace
