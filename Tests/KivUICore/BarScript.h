#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace KivUICoreTests {

/// One thing that happens to a bar. What an operation can't be done to (a timer before there is one, a bar
/// that was dropped) it passes over, so that a script stays one without any of its operations.
struct BarOperation {
    enum class Kind {
        SetAutoHide,
        AssignDelay,
        ResetAutoHide,
        Hide,
        Show,
        Sleep,
        SleepUntilDue,
        Oversleep,
        RunLate,
        SetContainerAlpha,
        SetSubviewAlpha,
        FadeByApplication,
        AddControl,
        AddView,
        TakeSubviewOut,
        Clean,
        InvalidateTimer,
        ClearTimer,
        ReplaceTimer,
        ReplaceTimerByAnEarlierOne,
        Relayout,
        Drop
    };

    Kind kind = Kind::Show;

    /// A delay in seconds, an alpha, a width in points: whatever the kind takes.
    double number = 0.0;

    /// How long an animation of the application takes.
    double seconds = 0.0;

    /// Which timer, subview or width in columns, counted round.
    std::size_t index = 0;
};

using BarScript = std::vector<BarOperation>;

std::string describe(const BarOperation& operation);

/// One operation a line.
std::string describe(const BarScript& script);

/// The same script for the same seed. Its times are sums of powers of two, so that they add up without
/// rounding and some of them fall together.
BarScript makeBarScript(std::uint64_t seed);

/// Takes out of a script that fails whatever it fails without.
BarScript shortest(BarScript script, const std::function<bool(const BarScript&)>& fails);

} // namespace KivUICoreTests
