#pragma once

namespace UIKit {

/// Where the focus is to go.
enum class UIFocusHeading { Up, Down, Left, Right };

} // namespace UIKit
