#pragma once

#include <cstdint>

namespace UIKit {

/// What can happen to a control, as bits.
using UIControlEvents = std::uint32_t;

inline constexpr UIControlEvents UIControlEventTouchDown = 1U << 0U;
inline constexpr UIControlEvents UIControlEventTouchDragInside = 1U << 2U;
inline constexpr UIControlEvents UIControlEventTouchDragOutside = 1U << 3U;
inline constexpr UIControlEvents UIControlEventTouchDragEnter = 1U << 4U;
inline constexpr UIControlEvents UIControlEventTouchDragExit = 1U << 5U;
inline constexpr UIControlEvents UIControlEventTouchUpInside = 1U << 6U;
inline constexpr UIControlEvents UIControlEventTouchUpOutside = 1U << 7U;
inline constexpr UIControlEvents UIControlEventTouchCancel = 1U << 8U;
inline constexpr UIControlEvents UIControlEventValueChanged = 1U << 12U;
inline constexpr UIControlEvents UIControlEventAllTouchEvents = 0x00000FFFU;
inline constexpr UIControlEvents UIControlEventAllEvents = 0xFFFFFFFFU;

/// The states of a control, as bits; normal is none of them.
using UIControlState = std::uint32_t;

inline constexpr UIControlState UIControlStateNormal = 0;
inline constexpr UIControlState UIControlStateHighlighted = 1U << 0U;
inline constexpr UIControlState UIControlStateDisabled = 1U << 1U;
inline constexpr UIControlState UIControlStateSelected = 1U << 2U;

} // namespace UIKit
