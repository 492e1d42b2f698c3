#pragma once

#include <cstdint>
#include <map>
#include <mpv/client.h>

namespace KivUICore::Player {

/// The lists of films that were met on the way to one: what is opened may be a list, its entries lists again.
class ListTrail {
public:
    /// Takes in that an entry ended because there is a list in it, whose entries took its place.
    void noteList(const mpv_event_end_file& end);

    /// True once any list was met.
    bool hasLists() const { return hasLists_; }

    /// True if no list that was met had an entry.
    bool isEmpty() const { return entries_.empty(); }

    /// True once a list led to a list so many times that it may go on for ever.
    bool isEndless() const { return isEndless_; }

    /// Whether the entry with this identifier came out of a list.
    bool includes(std::int64_t entry) const { return depthOf(entry) > 0; }

private:
    struct Entries {
        int count;
        int depth;
    };

    int depthOf(std::int64_t entry) const;

    // By the first identifier of each list's; they follow each other.
    std::map<std::int64_t, Entries> entries_;
    bool hasLists_ = false;
    bool isEndless_ = false;
};

} // namespace KivUICore::Player
