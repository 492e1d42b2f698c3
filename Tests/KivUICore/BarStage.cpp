#include "Tests/KivUICore/BarStage.h"

#include <limits>
#include <variant>

namespace KivUICoreTests {

using namespace CoreGraphics;
using Foundation::make;
using Foundation::NSTimer;
using KivUICore::TopBar;
using UIKit::UIView;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// Wide enough for every slot to be seen.
constexpr CGSize windowSize{100000.0, 1000.0};
constexpr CGFloat barHeight = 40.0;

/// What each shade is drawn with.
std::map<double, double> alphasIn(const CGDrawing& drawing) {
    std::map<double, double> byShade;
    std::vector<double> groups{1.0};
    for (const CGDrawing::Operation& operation : drawing.operations()) {
        if (const auto* begin = std::get_if<CGDrawing::BeginGroup>(&operation)) {
            groups.push_back(groups.back() * begin->alpha);
        } else if (std::holds_alternative<CGDrawing::EndGroup>(operation)) {
            groups.pop_back();
        } else if (const auto* fill = std::get_if<CGDrawing::FillRect>(&operation)) {
            byShade[fill->color.red] = groups.back();
        }
    }
    return byShade;
}

} // namespace

/// Writes down what is called and which timers are made.
class BarStage::Bar : public KivUICore::KivBar {
public:
    using KivBar::init;
    bool init(BarStage& stage, const CGRect& frame) {
        stage_ = &stage;
        return KivBar::init(stage.host_.window(), frame);
    }

    void setAutoHide(double delay) override {
        stage_->calls_.emplace_back("setAutoHide");
        KivBar::setAutoHide(delay);
        if (autoHideTimer()) {
            stage_->timers_.push_back(autoHideTimer());
        }
    }
    void resetAutoHide() override {
        stage_->calls_.emplace_back("resetAutoHide");
        KivBar::resetAutoHide();
    }
    void hide() override {
        stage_->calls_.emplace_back("hide");
        KivBar::hide();
    }
    void show() override {
        stage_->calls_.emplace_back("show");
        KivBar::show();
    }
    void clean() override {
        stage_->calls_.emplace_back("clean");
        KivBar::clean();
    }

private:
    BarStage* stage_ = nullptr;
};

BarStage::BarStage(double width) : host_(windowSize) {
    bar_ = make<Bar>(*this, CGRectMake(0.0, 0.0, width, barHeight));
    presentBar_ = bar_;
    container_ = bar_->view();
    paint(*container_);
}

void BarStage::perform(const BarOperation& operation) {
    using Kind = BarOperation::Kind;
    const std::size_t subviews = container_->subviews().size();
    const std::size_t subview = subviews > 0 ? 1 + operation.index % subviews : 0;

    switch (operation.kind) {
    case Kind::SetContainerAlpha:
        container_->setAlpha(operation.number);
        break;
    case Kind::SetSubviewAlpha:
        if (subviews > 0) {
            view(subview)->setAlpha(operation.number);
        }
        break;
    case Kind::FadeByApplication:
        fadeByApplication(operation.index % (subviews + 1), operation.number, operation.seconds);
        break;
    case Kind::AddView:
        addView();
        break;
    case Kind::TakeSubviewOut:
        if (subviews > 0) {
            view(subview)->removeFromSuperview();
        }
        break;
    case Kind::InvalidateTimer:
        if (!timers_.empty()) {
            timers_[operation.index % timers_.size()]->invalidate();
        }
        break;
    default:
        if (bar_) {
            performOnBar(operation);
        }
        break;
    }
}

void BarStage::performOnBar(const BarOperation& operation) {
    using Kind = BarOperation::Kind;
    switch (operation.kind) {
    case Kind::SetAutoHide:
        bar_->setAutoHide(operation.number);
        break;
    case Kind::AssignDelay:
        bar_->setDelay(operation.number);
        break;
    case Kind::ResetAutoHide:
        bar_->resetAutoHide();
        break;
    case Kind::Hide:
        bar_->hide();
        break;
    case Kind::Show:
        bar_->show();
        break;
    case Kind::AddControl:
        addControl(static_cast<std::int64_t>(operation.index), operation.number > 0.0);
        break;
    case Kind::Clean:
        bar_->clean();
        break;
    case Kind::ClearTimer:
        bar_->setAutoHideTimer(nullptr);
        break;
    case Kind::ReplaceTimer:
        timers_.push_back(NSTimer::scheduledTimerWithTimeInterval(
            operation.number, false, [this](NSTimer&) { calls_.emplace_back("application's timer"); }));
        bar_->setAutoHideTimer(timers_.back());
        break;
    case Kind::ReplaceTimerByAnEarlierOne:
        if (!timers_.empty()) {
            bar_->setAutoHideTimer(timers_[operation.index % timers_.size()]);
        }
        break;
    case Kind::Relayout:
        bar_->updateBarFrameWithFrame(CGRectMake(7.0, 7.0, operation.number, 300.0));
        break;
    case Kind::Drop:
        bar_ = nullptr;
        break;
    default:
        break;
    }
}

void BarStage::addControl(std::int64_t size, bool hasView) {
    const auto control = make<KivUICore::UIComponent>();
    control->setView(hasView ? make<UIView>() : nullptr);
    bar_->addElementToView(control, size);
    paint(*container_->subviews().back());
}

void BarStage::addView() {
    container_->addSubview(make<UIView>(CGRectMake(0.0, 0.0, 10.0, 10.0)));
    paint(*container_->subviews().back());
}

// Each in a shade of its own, by which it is found again in what is drawn.
void BarStage::paint(UIView& view) {
    viewsPainted_ += 1.0;
    view.setBackgroundColor(make<UIKit::UIColor>(viewsPainted_ / 1024.0, 0.0, 0.0, 1.0));
}

void BarStage::fadeByApplication(std::size_t index, double alpha, double duration) {
    const std::string name = "application's fade " + std::to_string(fadesByApplication_++);
    const std::shared_ptr<UIView> faded = view(index);
    UIView::animateWithDuration(
        duration, 0.0, UIKit::UIViewAnimationOptionCurveEaseIn, [faded, alpha] { faded->setAlpha(alpha); },
        [this, name](bool finished) { calls_.push_back(name + (finished ? " finished" : " interrupted")); });
}

std::shared_ptr<UIView> BarStage::view(std::size_t index) const {
    return index == 0 ? container_ : container_->subviews()[index - 1];
}

void BarStage::runLate(double seconds) { host_.clock().advance(seconds); }

void BarStage::turn(double time) {
    host_.clock().set(time);
    host_.runLoop().turn();
}

BarState BarStage::takeState() {
    BarState state;
    state.calls.swap(calls_);
    const std::shared_ptr<Bar> bar = presentBar_.lock();
    state.isAlive = bar != nullptr;
    if (bar) {
        state.delay = bar->delay();
        for (std::size_t index = 0; index < timers_.size(); ++index) {
            if (bar->autoHideTimer() == timers_[index]) {
                state.autoHideTimer = index;
            }
        }
        if (const auto elements = bar->elemets()) {
            state.sizes.emplace();
            for (const auto& element : *elements) {
                state.sizes->push_back(element->size());
            }
        }
    }
    for (const std::shared_ptr<NSTimer>& timer : timers_) {
        state.timers.push_back(timer->isValid() ? std::optional(timer->fireDate()) : std::nullopt);
    }
    const std::vector<double> shown = shownAlphas();
    for (std::size_t index = 0; index < shown.size(); ++index) {
        const std::shared_ptr<UIView> each = view(index);
        state.views.push_back({each->alpha(),
                               each->frame(),
                               index == 0 ? 0 : each->subviews().size(),
                               {shown[index], shown[index]}});
    }
    const double wait = host_.runLoop().timeUntilNextWork().value_or(infinity);
    state.nextWork = {wait, wait};
    return state;
}

// What isn't drawn has an alpha of nothing. Where the window has no damage, what was drawn last is still to
// be seen.
std::vector<double> BarStage::shownAlphas() {
    if (host_.window()->needsDisplay()) {
        host_.window()->setNeedsDisplayEverywhere();
        drawnAlphas_ = alphasIn(*host_.draw());
    }
    std::vector<double> alphas;
    for (std::size_t index = 0; index <= container_->subviews().size(); ++index) {
        const auto drawn = drawnAlphas_.find(view(index)->backgroundColor()->cgColor().red);
        alphas.push_back(drawn == drawnAlphas_.end() ? 0.0 : drawn->second);
    }
    return alphas;
}

} // namespace KivUICoreTests
