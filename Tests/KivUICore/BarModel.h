#pragma once

#include "Tests/KivUICore/BarScript.h"
#include "Tests/KivUICore/BarState.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace KivUICoreTests {

/// What a bar, its timers and its fades should do, written down a second time and as plainly as possible:
/// lists of what is pending, looked through from end to end. It shares no code with the bar nor with the
/// platform.
class BarModel {
public:
    /// A bar without controls, `width` points wide.
    explicit BarModel(double width);

    /// Any operation but those that let time pass.
    void perform(const BarOperation& operation);

    /// Lets time pass without a turn of the run loop.
    void runLate(double seconds);

    /// Turns the run loop at that time.
    void turn(double time);

    double now() const { return now_; }

    /// When there is work next, at the earliest now; infinite while there is none.
    double nextMoment() const;

    /// The calls are told once.
    BarState takeState();

private:
    struct Timer {
        std::optional<double> due;
        bool isOfBar;
    };

    struct Animation {
        double start;
        double end;

        /// The bar's own fades hold the bar and reset its countdown.
        bool isFade;

        /// What the application calls its fade; empty for all others.
        std::string name;

        std::size_t travelling = 0;
        bool isInterrupted = false;
        bool isOver = false;
        bool isCompleted = false;
    };

    struct View {
        std::size_t identity;
        CoreGraphics::CGRect frame;
        std::size_t inside = 0;
        double alpha = 1.0;

        /// Where the alpha set out, while it travels with an animation.
        double alphaFrom = 1.0;
        std::optional<std::size_t> alphaAnimation = std::nullopt;
        std::optional<std::size_t> frameAnimation = std::nullopt;
    };

    struct Control {
        std::int64_t size;
        std::size_t slot;
    };

    void setAutoHide(double delay);
    void resetAutoHide();
    void hide();
    void show();
    void clean();
    void addControl(std::int64_t size, bool hasView);
    void addView(const CoreGraphics::CGRect& frame, std::size_t inside);
    void relayout(double width);
    void fade(double alpha);
    void fadeByApplication(std::size_t index, double alpha, double duration);
    void takeOut(std::size_t index);
    void schedule(double delay, bool isOfBar);
    void invalidate(std::size_t timer);
    void letGoUnlessHeld();

    std::size_t animate(double duration, bool isFade, const std::string& name);
    void setAlpha(View& view, double alpha, std::optional<std::size_t> animation);
    void setFrame(View& view, const CoreGraphics::CGRect& frame, std::optional<std::size_t> animation);
    void interrupt(std::optional<std::size_t>& animation);
    double alphaAt(const View& view, double time) const;
    Range shown(const View& view) const;

    void fireTimers();
    std::optional<std::size_t> firstDue(std::size_t count) const;
    void endAnimations();
    void complete(std::size_t animation);
    Range nextWork() const;

    double now_ = 0.0;

    // What is on the screen is of this time at the earliest.
    double shownSince_ = 0.0;

    bool isAlive_ = true;
    bool isHeldByApplication_ = true;
    std::vector<std::string> calls_;

    double delay_ = 0.0;
    std::optional<std::size_t> autoHideTimer_;
    double columnSize_;
    std::optional<std::vector<Control>> controls_;

    std::vector<Timer> timers_;
    std::vector<Animation> animations_;

    // The container view and its subviews.
    std::vector<View> views_;
    std::size_t viewsMade_ = 1;
    std::size_t fadesByApplication_ = 0;
};

} // namespace KivUICoreTests
