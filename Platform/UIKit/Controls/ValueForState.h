#pragma once

#include "Platform/UIKit/UIControlEvents.h"

#include <utility>
#include <vector>

namespace UIKit {

/// Something that a control shows differently by its state: a title, an image. A state for which nothing was
/// set, or an empty value, shows what was set for the normal one.
template <class Value>
class ValueForState {
public:
    void set(UIControlState state, Value value) {
        for (auto& [each, present] : values_) {
            if (each == state) {
                present = std::move(value);
                return;
            }
        }
        values_.emplace_back(state, std::move(value));
    }

    /// What was set for exactly that state, else for the normal one, else an empty value.
    const Value& operator[](UIControlState state) const {
        const Value& own = find(state);
        return own != nothing_ ? own : find(UIControlStateNormal);
    }

    /// Whether exactly that state has something of its own.
    bool has(UIControlState state) const { return find(state) != nothing_; }

private:
    const Value& find(UIControlState state) const {
        for (const auto& [each, value] : values_) {
            if (each == state) {
                return value;
            }
        }
        return nothing_;
    }

    std::vector<std::pair<UIControlState, Value>> values_;
    Value nothing_{};
};

} // namespace UIKit
