#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace KivUICoreTests {

/// From the least to the most that something may be.
struct Range {
    double least;
    double most;
};

/// What is to be seen of a bar from outside. A bar says what is, its model what may be.
struct BarState {
    struct View {
        double alpha;
        CoreGraphics::CGRect frame;

        /// How many views are in it.
        std::size_t inside;

        /// The alpha that it is drawn with, that of the container view included.
        Range shown;
    };

    bool isAlive = true;

    /// What was called since the last time, in order.
    std::vector<std::string> calls;

    // Of a bar that is alive.
    double delay = 0.0;
    std::optional<std::size_t> autoHideTimer;
    std::optional<std::vector<std::int64_t>> sizes;

    /// Of each timer ever made the time at which it fires; nothing once it isn't valid.
    std::vector<std::optional<double>> timers;

    /// The container view first, then its subviews.
    std::vector<View> views;

    /// Seconds until the run loop has work; infinite while it has none.
    Range nextWork{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
};

/// The first thing in which a bar isn't as it should be; nothing when all is well.
std::string difference(const BarState& bar, const BarState& model);

} // namespace KivUICoreTests
