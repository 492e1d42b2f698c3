#include "Tests/KivUICore/BarModel.h"
#include "Tests/KivUICore/BarScript.h"
#include "Tests/KivUICore/BarStage.h"
#include "Tests/KivUICore/BarState.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <string>

namespace {

using namespace KivUICoreTests;
using Kind = BarOperation::Kind;

constexpr std::uint64_t seedsInAll = 10000;
constexpr std::uint64_t seedsInATest = 1000;
constexpr double width = 240.0;

// Longer than any delay but the infinite one: what is pending when a script ends comes to its end as well.
constexpr double aLongTime = 4194304.0;

/// A bar and its model, side by side in one time.
class Trial {
public:
    /// Does an operation to both. False when they part.
    bool perform(const BarOperation& operation) {
        switch (operation.kind) {
        case Kind::Sleep:
            return sleepUntil(model_.now() + operation.number);
        case Kind::SleepUntilDue:
            return sleepUntilDue(operation.number);
        case Kind::Oversleep:
            return turn(model_.now() + operation.number);
        case Kind::RunLate:
            stage_.runLate(operation.number);
            model_.runLate(operation.number);
            return agrees();
        default:
            stage_.perform(operation);
            model_.perform(operation);
            return agrees();
        }
    }

    const std::string& difference() const { return difference_; }

private:
    // As a host does that wakes up whenever there is work.
    bool sleepUntil(double end) {
        while (model_.nextMoment() <= end) {
            if (!turn(model_.nextMoment())) {
                return false;
            }
        }
        return turn(end);
    }

    bool sleepUntilDue(double offset) {
        const double due = model_.nextMoment() + offset;
        return std::isinf(due) || due < model_.now() || sleepUntil(due);
    }

    bool turn(double time) {
        stage_.turn(time);
        model_.turn(time);
        return agrees();
    }

    bool agrees() {
        difference_ = KivUICoreTests::difference(stage_.takeState(), model_.takeState());
        if (!difference_.empty()) {
            difference_ += ", at " + std::to_string(model_.now()) + " s";
        }
        return difference_.empty();
    }

    BarStage stage_{width};
    BarModel model_{width};
    std::string difference_;
};

/// In what a bar and its model part; nothing when they don't.
std::string play(const BarScript& script) {
    Trial trial;
    for (const BarOperation& operation : script) {
        if (!trial.perform(operation)) {
            return "After '" + describe(operation) + "' " + trial.difference();
        }
    }
    return trial.perform({Kind::Sleep, aLongTime, 0.0, 0}) ? "" : "In the end " + trial.difference();
}

void playSeed(std::uint64_t seed) {
    const BarScript script = makeBarScript(seed);
    if (play(script).empty()) {
        return;
    }
    const BarScript least =
        shortest(script, [](const BarScript& candidate) { return !play(candidate).empty(); });
    FAIL() << "Seed " << seed << " (KIVBAR_SEED=" << seed << " plays it alone). " << play(least)
           << ". The shortest script:\n"
           << describe(least);
}

class KivBarModelTest : public testing::TestWithParam<std::uint64_t> {};

TEST_P(KivBarModelTest, TheBarDoesWhatItsModelDoes) {
    for (std::uint64_t seed = GetParam(); seed < GetParam() + seedsInATest; ++seed) {
        playSeed(seed);
        if (HasFatalFailure()) {
            return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, KivBarModelTest, testing::Range(std::uint64_t{0}, seedsInAll, seedsInATest));

// KIVBAR_SEED in the environment says which one, and has its script printed.
TEST(KivBarModelSeedTest, ASeedIsPlayedAlone) {
    const char* const asked = std::getenv("KIVBAR_SEED");
    const std::uint64_t seed = asked ? std::strtoull(asked, nullptr, 10) : 0;
    if (asked) {
        std::cout << describe(makeBarScript(seed));
    }
    playSeed(seed);
}

} // namespace
