#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>

namespace KivUICore::Cairo {

/// Keeps what was asked for lately, and forgets the rest: entries live in two generations, one that is asked
/// for moves to the younger, and when the younger is full the older one is dropped. Finding allocates
/// nothing.
template <class Key, class Value, class Hash, class Equal>
class GenerationCache {
public:
    /// `capacity` is the number of entries in one generation, above zero.
    explicit GenerationCache(std::size_t capacity) : capacity_(capacity) {
        young_.reserve(capacity);
        old_.reserve(capacity);
    }

    /// The entry, or null. `key` is anything that Hash and Equal take. Valid until the next call.
    template <class AnyKey>
    Value* find(const AnyKey& key) {
        if (const auto found = young_.find(key); found != young_.end()) {
            return &found->second;
        }
        const auto found = old_.find(key);
        if (found == old_.end()) {
            return nullptr;
        }
        return &admit(old_.extract(found));
    }

    /// Adds an entry that isn't there yet. The result is valid until the next call.
    Value& insert(Key key, Value value) {
        Entries single;
        single.emplace(std::move(key), std::move(value));
        return admit(single.extract(single.begin()));
    }

private:
    using Entries = std::unordered_map<Key, Value, Hash, Equal>;

    Value& admit(typename Entries::node_type node) {
        if (young_.size() == capacity_) {
            young_.swap(old_);
            young_.clear();
        }
        return young_.insert(std::move(node)).position->second;
    }

    std::size_t capacity_;
    Entries young_;
    Entries old_;
};

} // namespace KivUICore::Cairo
