#pragma once

#include <cstdint>

namespace UIKit {

/// How a view controller is to be shown over another.
enum class UIModalPresentationStyle : std::int64_t {
    /// As an answer: not otherwise than asked for.
    None = -1,
    FullScreen = 0,
    Popover = 7,
};

} // namespace UIKit
