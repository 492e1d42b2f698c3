#include "Tests/KivUICore/BarScript.h"

#include <algorithm>
#include <array>
#include <limits>
#include <random>
#include <sstream>

namespace KivUICoreTests {

namespace {

using Kind = BarOperation::Kind;

constexpr double moment = 1.0 / 1048576.0;
constexpr std::array delays{0.0,
                            -1.0,
                            moment,
                            0.25,
                            0.5,
                            0.5,
                            1.0,
                            1.5,
                            3.0,
                            1048576.0,
                            std::numeric_limits<double>::infinity(),
                            std::numeric_limits<double>::quiet_NaN()};
constexpr std::array waits{0.0, moment, 0.03125, 0.125, 0.25, 0.375, 0.5, 0.5 + moment, 1.0, 3.0, 2097152.0};
constexpr std::array offsets{-moment, 0.0, 0.0, moment};
constexpr std::array alphas{0.0, 0.0, 0.001, 0.375, 0.999, 1.0, 1.0};
constexpr std::array durations{0.0, 0.25, 0.5, 1.0};
constexpr std::array widths{240.0, 480.0, 720.0};

// What a script is mostly made of comes several times.
constexpr std::array kinds{Kind::SetAutoHide,
                           Kind::SetAutoHide,
                           Kind::SetAutoHide,
                           Kind::AssignDelay,
                           Kind::ResetAutoHide,
                           Kind::ResetAutoHide,
                           Kind::Hide,
                           Kind::Hide,
                           Kind::Show,
                           Kind::Show,
                           Kind::Sleep,
                           Kind::Sleep,
                           Kind::Sleep,
                           Kind::SleepUntilDue,
                           Kind::SleepUntilDue,
                           Kind::SleepUntilDue,
                           Kind::Oversleep,
                           Kind::RunLate,
                           Kind::SetContainerAlpha,
                           Kind::SetSubviewAlpha,
                           Kind::SetSubviewAlpha,
                           Kind::FadeByApplication,
                           Kind::AddControl,
                           Kind::AddControl,
                           Kind::AddView,
                           Kind::TakeSubviewOut,
                           Kind::Clean,
                           Kind::InvalidateTimer,
                           Kind::ClearTimer,
                           Kind::ReplaceTimer,
                           Kind::Relayout,
                           Kind::ReplaceTimerByAnEarlierOne};
constexpr std::size_t mostOperations = 30;
constexpr std::size_t oneInSoManyIsDropped = 4;

class Dice {
public:
    explicit Dice(std::uint64_t seed) : generator_(seed) {}

    std::size_t below(std::size_t limit) { return static_cast<std::size_t>(generator_() % limit); }

    template <class Choices>
    auto oneOf(const Choices& choices) {
        return choices[below(choices.size())];
    }

private:
    std::mt19937_64 generator_;
};

double numberFor(Kind kind, Dice& dice) {
    switch (kind) {
    case Kind::SetAutoHide:
    case Kind::AssignDelay:
    case Kind::ReplaceTimer:
        return dice.oneOf(delays);
    case Kind::Sleep:
    case Kind::Oversleep:
    case Kind::RunLate:
        return dice.oneOf(waits);
    case Kind::SleepUntilDue:
        return dice.oneOf(offsets);
    case Kind::SetContainerAlpha:
    case Kind::SetSubviewAlpha:
    case Kind::FadeByApplication:
        return dice.oneOf(alphas);
    case Kind::Relayout:
        return dice.oneOf(widths);
    default:
        return 0.0;
    }
}

BarScript without(const BarScript& script, std::size_t from, std::size_t count) {
    BarScript rest(script.begin(), script.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t to = std::min(from + count, script.size());
    rest.insert(rest.end(), script.begin() + static_cast<std::ptrdiff_t>(to), script.end());
    return rest;
}

} // namespace

std::string describe(const BarOperation& operation) {
    std::ostringstream text;
    const double number = operation.number;
    const std::size_t index = operation.index;
    switch (operation.kind) {
    case Kind::SetAutoHide:
        text << "setAutoHide(" << number << ')';
        break;
    case Kind::AssignDelay:
        text << "delay = " << number;
        break;
    case Kind::ResetAutoHide:
        text << "resetAutoHide()";
        break;
    case Kind::Hide:
        text << "hide()";
        break;
    case Kind::Show:
        text << "show()";
        break;
    case Kind::Sleep:
        text << "sleep for " << number << " s, waking up for work";
        break;
    case Kind::SleepUntilDue:
        text << "sleep until the next work is due, and " << number << " s";
        break;
    case Kind::Oversleep:
        text << "sleep for " << number << " s, whatever is due";
        break;
    case Kind::RunLate:
        text << "let " << number << " s pass without a turn of the run loop";
        break;
    case Kind::SetContainerAlpha:
        text << "container's alpha = " << number;
        break;
    case Kind::SetSubviewAlpha:
        text << "alpha of subview " << index << " = " << number;
        break;
    case Kind::FadeByApplication:
        text << "application fades view " << index << " to " << number << " over " << operation.seconds
             << " s";
        break;
    case Kind::AddControl:
        text << "add a control of size " << index << (operation.number > 0.0 ? "" : " without a view");
        break;
    case Kind::AddView:
        text << "add a plain subview";
        break;
    case Kind::TakeSubviewOut:
        text << "take subview " << index << " out";
        break;
    case Kind::Clean:
        text << "clean()";
        break;
    case Kind::InvalidateTimer:
        text << "invalidate timer " << index;
        break;
    case Kind::ClearTimer:
        text << "autoHideTimer = nothing";
        break;
    case Kind::ReplaceTimer:
        text << "autoHideTimer = one of the application's, " << number << " s";
        break;
    case Kind::ReplaceTimerByAnEarlierOne:
        text << "autoHideTimer = timer " << index;
        break;
    case Kind::Relayout:
        text << "updateBarFrameWithFrame(width " << number << ')';
        break;
    case Kind::Drop:
        text << "drop the bar";
        break;
    }
    return text.str();
}

std::string describe(const BarScript& script) {
    std::string text;
    for (const BarOperation& operation : script) {
        text += "    " + describe(operation) + '\n';
    }
    return text;
}

BarScript makeBarScript(std::uint64_t seed) {
    Dice dice(seed);
    const std::size_t size = 1 + dice.below(mostOperations);
    const bool isDropped = dice.below(oneInSoManyIsDropped) == 0;
    BarScript script;
    for (std::size_t count = 0; count < size; ++count) {
        const Kind kind = dice.oneOf(kinds);
        BarOperation operation{kind, numberFor(kind, dice), dice.oneOf(durations), 1 + dice.below(6)};
        if (kind == Kind::AddControl) {
            operation.number = dice.below(4) == 0 ? 0.0 : 1.0;
        }
        script.push_back(operation);
    }
    if (isDropped) {
        script.insert(script.begin() + static_cast<std::ptrdiff_t>(dice.below(size + 1)),
                      {Kind::Drop, 0.0, 0.0, 0});
    }
    return script;
}

BarScript shortest(BarScript script, const std::function<bool(const BarScript&)>& fails) {
    for (std::size_t count = script.size(); count > 0;) {
        bool isShorter = false;
        for (std::size_t from = 0; from < script.size();) {
            BarScript candidate = without(script, from, count);
            if (fails(candidate)) {
                script = std::move(candidate);
                isShorter = true;
            } else {
                from += count;
            }
        }
        // Without one operation another may have become needless.
        count = isShorter && count == 1 ? 1 : count / 2;
    }
    return script;
}

} // namespace KivUICoreTests
