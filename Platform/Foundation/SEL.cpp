#include "Platform/Foundation/SEL.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <vector>

namespace Foundation {

namespace {

// Reads at most three words of the name. Selectors differ in length, in their first letters or in their last
// ones, and a lookup by text must stay within a few nanoseconds.
std::size_t hashOf(std::string_view name) {
    const auto wordAt = [name](std::size_t position) {
        std::uint64_t word = 0;
        std::memcpy(&word, name.data() + position,
                    std::min<std::size_t>(sizeof word, name.size() - position));
        return word;
    };
    std::uint64_t hash = name.size() * 0x9E3779B97F4A7C15U;
    if (!name.empty()) {
        hash = (hash ^ wordAt(0)) * 0xFF51AFD7ED558CCDU;
    }
    if (name.size() > 8) {
        hash = ((hash ^ (hash >> 29)) ^ wordAt(name.size() - 8)) * 0xC4CEB9FE1A85EC53U;
        hash = ((hash ^ (hash >> 31)) ^ wordAt((name.size() - 8) / 2)) * 0x9E3779B97F4A7C15U;
    }
    return static_cast<std::size_t>(hash ^ (hash >> 32));
}

} // namespace

/// All selectors of the program: an open-addressing table, never more than half full.
class SelectorTable {
public:
    const SEL::Entry* intern(std::string_view name) {
        const std::size_t hash = hashOf(name);
        std::size_t slot = hash & mask();
        while (const SEL::Entry* entry = slots_[slot]) {
            if (entry->hash == hash && entry->name == name) {
                return entry;
            }
            slot = (slot + 1) & mask();
        }
        return insert(name, hash);
    }

private:
    std::size_t mask() const { return slots_.size() - 1; }

    const SEL::Entry* insert(std::string_view name, std::size_t hash) {
        const auto colons = static_cast<std::size_t>(std::count(name.begin(), name.end(), ':'));
        entries_.push_back({std::string(name), hash, colons});
        if (entries_.size() * 2 > slots_.size()) {
            slots_.assign(slots_.size() * 2, nullptr);
            for (const SEL::Entry& entry : entries_) {
                place(entry);
            }
        } else {
            place(entries_.back());
        }
        return &entries_.back();
    }

    void place(const SEL::Entry& entry) {
        std::size_t slot = entry.hash & mask();
        while (slots_[slot]) {
            slot = (slot + 1) & mask();
        }
        slots_[slot] = &entry;
    }

    std::deque<SEL::Entry> entries_;
    std::vector<const SEL::Entry*> slots_ = std::vector<const SEL::Entry*>(512);
};

SEL::SEL(std::string_view name) {
    // Never destroyed: selectors are used until the program's last static object has gone.
    static SelectorTable& table = *new SelectorTable;
    entry_ = table.intern(name);
}

} // namespace Foundation
