#pragma once

#include "Platform/Foundation/NSObject.h"

#include <deque>
#include <functional>
#include <memory>

namespace UIKit {

class PresentationView;
class UIView;
class UIViewController;

/// Runs one presentation of a view controller, from before it is shown until it is gone: this one over the
/// whole window. The presented controller owns it.
class UIPresentationController : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    bool init() override { return false; }
    virtual bool init(const std::shared_ptr<UIViewController>& presentedViewController);

    /// Nothing once it has gone.
    std::shared_ptr<UIViewController> presentedViewController() const { return presented_.lock(); }
    std::shared_ptr<UIViewController> presentingViewController() const { return presenting_.lock(); }

protected:
    /// Called before anything is shown. May end the presentation.
    virtual void prepare() {}

    /// Puts the presented root view into the container, which covers the window, or to its new place there.
    virtual void layOutContent(UIView& container, const std::shared_ptr<UIView>& content);

    /// What comes and goes with a fade while it is shown.
    virtual std::shared_ptr<UIView> fadedView() const;

    /// Called after a dismissal from outside.
    virtual void didDismissFromOutside() {}

    /// What a touch or key outside the content does; nothing here.
    virtual bool dismissFromOutside() { return false; }

    enum class Cause { Program, Outside };
    void dismiss(Cause cause, bool animated, std::function<void()> completion);

    bool isShown() const { return state_ == State::Shown; }

private:
    friend class PresentationView;
    friend class UIPopoverPresentationController;
    friend class UIViewController;

    enum class State { Idle, Preparing, Shown, Dismissing };

    static void callSoon(std::function<void()> call);

    bool isInUse() const { return state_ != State::Idle; }

    void present(const std::shared_ptr<UIViewController>& presenting, bool animated,
                 std::function<void()> completion);
    void stopTouches();
    void complete();
    void layOut(const std::shared_ptr<UIView>& content);
    bool tryToShow(const std::shared_ptr<UIViewController>& presenting);
    bool prepareAndShow(const std::shared_ptr<UIViewController>& presenting);
    void dismiss(bool animated, std::function<void()> completion) {
        dismiss(Cause::Program, animated, std::move(completion));
    }

    /// Takes everything away at once, and tells of a dismissal from outside that was going on.
    void end();

    /// Where the window or what the content is shown beside has changed. Does nothing unless it is shown.
    void layOut();

    /// The same, now and once the program has put the rest in its place.
    void containerDidResize();

    std::weak_ptr<UIViewController> presented_;
    std::weak_ptr<UIViewController> presenting_;
    std::shared_ptr<PresentationView> container_;

    // The presented root view as it was shown last.
    std::weak_ptr<UIView> content_;

    // Of dismissals.
    std::deque<std::function<void()>> completions_;
    State state_ = State::Idle;
    Cause cause_ = Cause::Program;
};

} // namespace UIKit
