#include "Tests/KivUICore/BarModel.h"

#include <algorithm>
#include <limits>

namespace KivUICoreTests {

using CoreGraphics::CGRect;
using CoreGraphics::CGRectMake;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double height = 40.0;
constexpr double fadeDuration = 0.5;

// No picture of something that moves is older.
constexpr double frame = 1.0 / 60.0;

// How far an animation has come that eases in: the curve from (0, 0) to (1, 1) with the controls (0.42, 0)
// and (1, 1), cut in half until its x is the time.
double easedIn(double time) {
    if (time >= 1.0) {
        return 1.0;
    }
    double low = 0.0;
    double high = 1.0;
    for (int step = 0; step < 24; ++step) {
        const double t = (low + high) / 2.0;
        const double s = 1.0 - t;
        const double x = 3.0 * s * s * t * 0.42 + 3.0 * s * t * t + t * t * t;
        (x < time ? low : high) = t;
    }
    const double t = (low + high) / 2.0;
    return 3.0 * (1.0 - t) * t * t + t * t * t;
}

double cut(double alpha) { return std::clamp(alpha, 0.0, 1.0); }

} // namespace

BarModel::BarModel(double width)
    : columnSize_(width / 12.0), views_{{0, CGRectMake(0.0, 0.0, width, height)}} {}

void BarModel::perform(const BarOperation& operation) {
    using Kind = BarOperation::Kind;
    const double number = operation.number;
    const std::size_t subviews = views_.size() - 1;
    const std::size_t subview = subviews > 0 ? 1 + operation.index % subviews : 0;
    const std::size_t timer = timers_.empty() ? 0 : operation.index % timers_.size();

    switch (operation.kind) {
    case Kind::SetContainerAlpha:
        setAlpha(views_[0], number, std::nullopt);
        break;
    case Kind::SetSubviewAlpha:
        if (subviews > 0) {
            setAlpha(views_[subview], number, std::nullopt);
        }
        break;
    case Kind::FadeByApplication:
        fadeByApplication(operation.index % views_.size(), number, operation.seconds);
        break;
    case Kind::AddView:
        addView(CGRectMake(0.0, 0.0, 10.0, 10.0), 0);
        break;
    case Kind::TakeSubviewOut:
        if (subviews > 0) {
            takeOut(subview);
        }
        break;
    case Kind::InvalidateTimer:
        if (!timers_.empty()) {
            invalidate(timer);
        }
        break;
    default:
        break;
    }

    if (isHeldByApplication_) {
        switch (operation.kind) {
        case Kind::SetAutoHide:
            setAutoHide(number);
            break;
        case Kind::AssignDelay:
            delay_ = number;
            break;
        case Kind::ResetAutoHide:
            resetAutoHide();
            break;
        case Kind::Hide:
            hide();
            break;
        case Kind::Show:
            show();
            break;
        case Kind::AddControl:
            addControl(static_cast<std::int64_t>(operation.index), number > 0.0);
            break;
        case Kind::Clean:
            clean();
            break;
        case Kind::ClearTimer:
            autoHideTimer_.reset();
            break;
        case Kind::ReplaceTimer:
            schedule(number, false);
            autoHideTimer_ = timers_.size() - 1;
            break;
        case Kind::ReplaceTimerByAnEarlierOne:
            if (!timers_.empty()) {
                autoHideTimer_ = timer;
            }
            break;
        case Kind::Relayout:
            relayout(number);
            break;
        case Kind::Drop:
            isHeldByApplication_ = false;
            break;
        default:
            break;
        }
    }
    letGoUnlessHeld();
}

// The bar

void BarModel::setAutoHide(double delay) {
    calls_.emplace_back("setAutoHide");
    delay_ = delay;
    schedule(delay, true);
    autoHideTimer_ = timers_.size() - 1;
}

void BarModel::resetAutoHide() {
    calls_.emplace_back("resetAutoHide");
    if (delay_ > 0.0) {
        if (autoHideTimer_) {
            invalidate(*autoHideTimer_);
        }
        setAutoHide(delay_);
    }
}

void BarModel::hide() {
    calls_.emplace_back("hide");
    if (views_[0].alpha != 0.0) {
        fade(0.0);
    }
}

void BarModel::show() {
    calls_.emplace_back("show");
    if (views_[0].alpha != 1.0) {
        fade(1.0);
    }
}

void BarModel::fade(double alpha) {
    const std::size_t animation = animate(fadeDuration, true, "");
    for (View& view : views_) {
        setAlpha(view, alpha, animation);
    }
}

void BarModel::addControl(std::int64_t size, bool hasView) {
    if (!controls_) {
        controls_.emplace();
    }
    double x = 0.0;
    for (const Control& control : *controls_) {
        x += static_cast<double>(control.size) * columnSize_;
    }
    addView(CGRectMake(x, 0.0, static_cast<double>(size) * columnSize_, height), hasView ? 1 : 0);
    controls_->push_back({size, views_.back().identity});
}

void BarModel::addView(const CGRect& rect, std::size_t inside) {
    views_.push_back({viewsMade_++, rect, inside});
}

void BarModel::relayout(double width) {
    const std::size_t animation = animate(fadeDuration, false, "");
    setFrame(views_[0], CGRectMake(0.0, 0.0, width, height), animation);
    double x = 0.0;
    for (std::size_t index = 1; index < views_.size(); ++index) {
        const bool isWide = index == 2;
        setFrame(views_[index], CGRectMake(x, 0.0, isWide ? width * 6.0 / 10.0 : width / 6.0, height),
                 animation);
        x += isWide ? width / 2.0 : width / 6.0;
    }
}

void BarModel::clean() {
    calls_.emplace_back("clean");
    if (autoHideTimer_) {
        invalidate(*autoHideTimer_);
        autoHideTimer_.reset();
    }
    for (const Control& control : controls_.value_or(std::vector<Control>())) {
        for (View& view : views_) {
            if (view.identity == control.slot) {
                view.inside = 0;
            }
        }
    }
    controls_.reset();
}

// The application, its timers and its own fades

void BarModel::fadeByApplication(std::size_t index, double alpha, double duration) {
    const std::size_t animation =
        animate(duration, false, "application's fade " + std::to_string(fadesByApplication_++));
    setAlpha(views_[index], alpha, duration > 0.0 ? std::optional(animation) : std::nullopt);
}

void BarModel::takeOut(std::size_t index) {
    interrupt(views_[index].alphaAnimation);
    interrupt(views_[index].frameAnimation);
    views_.erase(views_.begin() + static_cast<std::ptrdiff_t>(index));
}

void BarModel::schedule(double delay, bool isOfBar) {
    timers_.push_back({delay > 0.0 ? now_ + delay : now_, isOfBar});
}

void BarModel::invalidate(std::size_t timer) { timers_[timer].due.reset(); }

// A bar ends with the last that holds it: the application, a timer, a fade.
void BarModel::letGoUnlessHeld() {
    const bool isTimed = std::any_of(timers_.begin(), timers_.end(),
                                     [](const Timer& timer) { return timer.isOfBar && timer.due; });
    const bool isFading = std::any_of(animations_.begin(), animations_.end(),
                                      [](const Animation& each) { return each.isFade && !each.isCompleted; });
    if (isAlive_ && !isHeldByApplication_ && !isTimed && !isFading) {
        clean();
        isAlive_ = false;
    }
}

// Animations

std::size_t BarModel::animate(double duration, bool isFade, const std::string& name) {
    shownSince_ = now_;
    animations_.push_back({now_, now_ + duration, isFade, name});
    return animations_.size() - 1;
}

void BarModel::setAlpha(View& view, double alpha, std::optional<std::size_t> animation) {
    if (view.alpha == alpha) {
        return;
    }
    const double from = alphaAt(view, now_);
    interrupt(view.alphaAnimation);
    view.alpha = alpha;
    view.alphaFrom = from;
    view.alphaAnimation = animation;
    if (animation) {
        ++animations_[*animation].travelling;
    }
}

void BarModel::setFrame(View& view, const CGRect& rect, std::optional<std::size_t> animation) {
    if (view.frame == rect) {
        return;
    }
    interrupt(view.frameAnimation);
    view.frame = rect;
    view.frameAnimation = animation;
    if (animation) {
        ++animations_[*animation].travelling;
    }
}

void BarModel::interrupt(std::optional<std::size_t>& animation) {
    if (animation) {
        --animations_[*animation].travelling;
        animations_[*animation].isInterrupted = true;
        animation.reset();
    }
}

double BarModel::alphaAt(const View& view, double time) const {
    if (!view.alphaAnimation) {
        return view.alpha;
    }
    const Animation& animation = animations_[*view.alphaAnimation];
    const double duration = animation.end - animation.start;
    const double progress = easedIn(std::max(0.0, time - animation.start) / duration);
    return view.alphaFrom + (view.alpha - view.alphaFrom) * progress;
}

Range BarModel::shown(const View& view) const {
    const double early = cut(alphaAt(view, shownSince_));
    const double late = cut(alphaAt(view, now_));
    return {std::min(early, late), std::max(early, late)};
}

// The run loop

void BarModel::runLate(double seconds) { now_ += seconds; }

void BarModel::turn(double time) {
    now_ = time;
    fireTimers();
    shownSince_ = std::max(shownSince_, now_ - frame);
    endAnimations();
}

// A timer that is made meanwhile waits for the next turn.
void BarModel::fireTimers() {
    const std::size_t count = timers_.size();
    while (const std::optional<std::size_t> timer = firstDue(count)) {
        invalidate(*timer);
        if (timers_[*timer].isOfBar) {
            hide();
        } else {
            calls_.emplace_back("application's timer");
        }
        letGoUnlessHeld();
    }
}

std::optional<std::size_t> BarModel::firstDue(std::size_t count) const {
    std::optional<std::size_t> first;
    for (std::size_t index = 0; index < count; ++index) {
        const std::optional<double>& due = timers_[index].due;
        if (due && *due <= now_ && (!first || *due < *timers_[*first].due)) {
            first = index;
        }
    }
    return first;
}

// An animation is over at its end, or as soon as nothing travels with it any more. What travels arrives
// before anybody is told.
void BarModel::endAnimations() {
    std::vector<std::size_t> over;
    for (std::size_t index = 0; index < animations_.size(); ++index) {
        Animation& animation = animations_[index];
        if (!animation.isOver && (animation.travelling == 0 || animation.end <= now_)) {
            animation.isOver = true;
            over.push_back(index);
        }
    }
    for (View& view : views_) {
        for (std::optional<std::size_t>* travel : {&view.alphaAnimation, &view.frameAnimation}) {
            if (*travel && animations_[**travel].isOver) {
                travel->reset();
            }
        }
    }
    std::stable_sort(over.begin(), over.end(), [this](std::size_t a, std::size_t b) {
        return animations_[a].end < animations_[b].end;
    });
    for (const std::size_t animation : over) {
        complete(animation);
    }
}

void BarModel::complete(std::size_t animation) {
    const Animation completed = animations_[animation];
    if (completed.isFade) {
        resetAutoHide();
    } else if (!completed.name.empty()) {
        calls_.push_back(completed.name + (completed.isInterrupted ? " interrupted" : " finished"));
    }
    animations_[animation].isCompleted = true;
    letGoUnlessHeld();
}

double BarModel::nextMoment() const {
    double next = infinity;
    for (const Timer& timer : timers_) {
        next = std::min(next, timer.due.value_or(infinity));
    }
    for (const Animation& animation : animations_) {
        if (!animation.isOver) {
            next = std::min(next, animation.travelling == 0 ? now_ : animation.end);
        }
    }
    return std::max(next, now_);
}

// While something travels there are pictures of it to be made, when exactly is the platform's affair.
Range BarModel::nextWork() const {
    const double wait = nextMoment() - now_;
    const bool isMoving = std::any_of(animations_.begin(), animations_.end(), [](const Animation& each) {
        return !each.isOver && each.travelling > 0;
    });
    return isMoving ? Range{0.0, std::min(wait, frame)} : Range{wait, wait};
}

BarState BarModel::takeState() {
    BarState state;
    state.isAlive = isAlive_;
    state.calls.swap(calls_);
    state.delay = delay_;
    state.autoHideTimer = autoHideTimer_;
    if (controls_) {
        state.sizes.emplace();
        for (const Control& control : *controls_) {
            state.sizes->push_back(control.size);
        }
    }
    for (const Timer& timer : timers_) {
        state.timers.push_back(timer.due);
    }
    const Range container = shown(views_[0]);
    for (const View& view : views_) {
        const bool isContainer = &view == &views_[0];
        const Range own = isContainer ? Range{1.0, 1.0} : shown(view);
        state.views.push_back(
            {view.alpha, view.frame, view.inside, {container.least * own.least, container.most * own.most}});
    }
    state.nextWork = nextWork();
    return state;
}

} // namespace KivUICoreTests
