#pragma once

#include "Platform/UIKit/Presentation/PresentationView.h"

#include <deque>
#include <functional>
#include <memory>

namespace UIKit {

class PresentationStyle;
class UIViewController;

/// One presentation of a view controller over another, from before it is shown until it is over. It knows
/// both of them, holds the presented one, and is where each of them looks for the other. The presenting one
/// holds it.
class Presentation : public PresentationView::Owner, public std::enable_shared_from_this<Presentation> {
public:
    enum class Cause { Program, Outside };

    Presentation(std::shared_ptr<PresentationStyle> style, std::shared_ptr<UIViewController> presented,
                 const std::shared_ptr<UIViewController>& presenting);

    /// Calls `call` at the run loop's next turn.
    static void callSoon(std::function<void()> call);

    /// Nothing once it is over.
    const std::shared_ptr<PresentationStyle>& style() const { return style_; }
    const std::shared_ptr<UIViewController>& presented() const { return presented_; }

    std::shared_ptr<UIViewController> presenting() const { return presenting_.lock(); }

    /// True until it is dismissed or over.
    bool isInUse() const { return state_ == State::Preparing || state_ == State::Shown; }
    bool isDismissing() const { return state_ == State::Dismissing; }
    bool isOver() const { return state_ == State::Over; }

    /// Shows the content, or is over at once where there is nothing to show it on, or a callback has ended
    /// it. An exception from a callback passes through; it is over then.
    void begin(bool animated, std::function<void()> completion);

    void dismiss(Cause cause, bool animated, std::function<void()> completion);

    /// Takes everything away at once, and tells of a dismissal from outside that was going on.
    void end();

    /// Where the window or what the content is shown beside has changed. Does nothing unless it is shown.
    void layOut();

    bool closeFromOutside() override;

    void containerDidResize() override { layOut(); }
    void containerDidLeaveWindow() override { end(); }

private:
    enum class State { Preparing, Shown, Dismissing, Over };

    bool isShown() const { return state_ == State::Shown; }
    bool tryToShow();
    bool prepareAndShow();
    void layOut(const std::shared_ptr<UIView>& content);
    void fadeOut();
    void stopTouches();
    void complete();

    std::shared_ptr<PresentationStyle> style_;
    std::shared_ptr<UIViewController> presented_;
    std::weak_ptr<UIViewController> presenting_;
    std::shared_ptr<PresentationView> container_;

    // The presented root view as it was shown last.
    std::weak_ptr<UIView> content_;

    // Of dismissals.
    std::deque<std::function<void()>> completions_;
    State state_ = State::Preparing;
    Cause cause_ = Cause::Program;
};

} // namespace UIKit
