#include "Platform/Foundation/SEL.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <utility>
#include <vector>

namespace Foundation {

namespace {

template <class Word>
std::uint64_t wordAt(const char* text) {
    Word word;
    std::memcpy(&word, text, sizeof word);
    return word;
}

// Reads at most three words of the name, of fixed sizes. Selectors differ in length, in their first letters
// or in their last ones, and a lookup by text must stay within a few nanoseconds.
std::size_t hashOf(std::string_view name) {
    const char* first = name.data();
    const char* last = first + name.size();
    std::uint64_t hash = name.size() * 0x9E3779B97F4A7C15U;
    if (name.size() >= 8) {
        hash ^= wordAt<std::uint64_t>(first) * 0xFF51AFD7ED558CCDU;
        hash ^= wordAt<std::uint64_t>(first + (name.size() - 8) / 2) * 0xD6E8FEB86659FD93U;
        hash ^= wordAt<std::uint64_t>(last - 8) * 0xC4CEB9FE1A85EC53U;
    } else if (name.size() >= 4) {
        hash ^= wordAt<std::uint32_t>(first) * 0xFF51AFD7ED558CCDU;
        hash ^= wordAt<std::uint32_t>(last - 4) * 0xC4CEB9FE1A85EC53U;
    } else {
        for (const char letter : name) {
            hash = (hash ^ static_cast<unsigned char>(letter)) * 0xFF51AFD7ED558CCDU;
        }
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

} // namespace

/// All selectors of the program: an open-addressing table, never more than half full.
class SelectorTable {
public:
    const SEL::Entry* intern(std::string_view name) {
        const std::size_t hash = hashOf(name);
        std::size_t slot = hash & mask_;
        while (const SEL::Entry* entry = slots_[slot].entry) {
            if (slots_[slot].hash == hash && entry->name == name) {
                return entry;
            }
            slot = (slot + 1) & mask_;
        }
        return insert(name, hash);
    }

private:
    struct Slot {
        std::size_t hash = 0;
        const SEL::Entry* entry = nullptr;
    };

    const SEL::Entry* insert(std::string_view name, std::size_t hash);
    void grow();
    void place(const Slot& placed);

    std::deque<SEL::Entry> entries_;
    std::vector<Slot> slots_ = std::vector<Slot>(512);
    std::size_t mask_ = 511;
};

const SEL::Entry* SelectorTable::insert(std::string_view name, std::size_t hash) {
    if ((entries_.size() + 1) * 2 > slots_.size()) {
        grow();
    }
    const auto colons = static_cast<std::size_t>(std::count(name.begin(), name.end(), ':'));
    entries_.push_back({std::string(name), entries_.size(), colons});
    place({hash, &entries_.back()});
    return &entries_.back();
}

void SelectorTable::grow() {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    mask_ = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.entry) {
            place(slot);
        }
    }
}

void SelectorTable::place(const Slot& placed) {
    std::size_t slot = placed.hash & mask_;
    while (slots_[slot].entry) {
        slot = (slot + 1) & mask_;
    }
    slots_[slot] = placed;
}

const SEL::Entry* SEL::intern(std::string_view name) {
    // Never destroyed: selectors are used until the program's last static object has gone.
    static SelectorTable& table = *new SelectorTable;
    return table.intern(name);
}

} // namespace Foundation
