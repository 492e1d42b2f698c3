#include "Player/Desktop/ListTrail.h"

#include <iterator>

namespace KivUICore::Player {

void ListTrail::noteList(const mpv_event_end_file& end) {
    constexpr int deepest = 16;
    hasLists_ = true;
    if (end.playlist_insert_num_entries > 0) {
        const int depth = depthOf(end.playlist_entry_id) + 1;
        entries_[end.playlist_insert_id] = {end.playlist_insert_num_entries, depth};
        isEndless_ = isEndless_ || depth > deepest;
    }
}

int ListTrail::depthOf(std::int64_t entry) const {
    const auto after = entries_.upper_bound(entry);
    if (after == entries_.begin()) {
        return 0;
    }
    const auto& [first, list] = *std::prev(after);
    return entry < first + list.count ? list.depth : 0;
}

} // namespace KivUICore::Player
