#include "KivUICore/KivBar.h"

#include "KivUICore/TopBar/TopBar.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIGraphics.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIColor;
using UIKit::UIImage;
using UIKit::UIView;

constexpr CGRect hostFrame = CGRectMake(0.0, 0.0, 320.0, 480.0);
constexpr CGRect barFrame = CGRectMake(0.0, 0.0, 320.0, 40.0);
constexpr auto black = "rgba 0 0 0 0.65";

std::shared_ptr<UIColor> red() { return make<UIColor>(1.0, 0.0, 0.0, 1.0); }

// Container view

TEST(KivBarTest, AFrameMakesABarThatTakesControls) {
    const auto host = make<UIView>(hostFrame);
    host->addSubview(make<UIView>());
    const auto bar = make<KivBar>(host, barFrame);
    EXPECT_EQ(bar->columnSize(), 320.0 / 12.0);
    EXPECT_EQ(bar->barFrame(), barFrame);
    EXPECT_EQ(bar->columns(), 12.0);
    EXPECT_EQ(bar->delay(), 0.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->superview(), host);
    EXPECT_EQ(host->subviews().back(), bar->view());
    EXPECT_EQ(bar->view()->frame(), barFrame);
    EXPECT_EQ(background(*bar->view()), black);
    EXPECT_EQ(bar->view()->alpha(), 1.0);
    EXPECT_EQ(bar->view()->autoresizingMask(), UIKit::UIViewAutoresizingNone);
    EXPECT_FALSE(bar->view()->isOpaque());
    EXPECT_TRUE(bar->view()->isKindOfClass(UIView::classObject()));
}

TEST(KivBarTest, AColourMakesABarWithoutColumns) {
    const auto host = make<UIView>(hostFrame);
    const auto color = red();
    const auto bar = make<KivBar>(host, barFrame, color);
    EXPECT_EQ(bar->columnSize(), std::nullopt);
    EXPECT_EQ(bar->barFrame(), std::nullopt);
    EXPECT_EQ(bar->columns(), 12.0);
    EXPECT_EQ(bar->delay(), 0.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->superview(), host);
    EXPECT_EQ(host->subviews().back(), bar->view());
    EXPECT_EQ(bar->view()->frame(), barFrame);
    EXPECT_EQ(bar->view()->backgroundColor(), color);
}

TEST(KivBarTest, AnImageMakesABarThatRepeatsItUnscaled) {
    const auto host = make<UIView>(hostFrame);
    const auto image = imageOf({10.0, 10.0});
    const auto bar = make<KivBar>(host, barFrame, image);
    EXPECT_EQ(bar->columnSize(), std::nullopt);
    EXPECT_EQ(bar->barFrame(), std::nullopt);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(host->subviews().back(), bar->view());
    EXPECT_EQ(bar->view()->frame(), barFrame);
    EXPECT_EQ(bar->view()->backgroundColor()->patternImage(), image);
    EXPECT_FALSE(bar->view()->isOpaque());
}

TEST(KivBarTest, AGivenContainerViewStaysAsItIs) {
    const auto host = make<UIView>(hostFrame);
    const auto elsewhere = make<UIView>();
    const auto view = make<UIView>(CGRectMake(1.0, 2.0, 3.0, 4.0));
    elsewhere->addSubview(view);
    const auto bar = make<KivBar>(host, view);
    EXPECT_EQ(bar->view(), view);
    EXPECT_EQ(bar->superview(), host);
    EXPECT_EQ(bar->columnSize(), std::nullopt);
    EXPECT_EQ(bar->barFrame(), std::nullopt);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->columns(), 12.0);
    EXPECT_EQ(bar->delay(), 0.0);
    EXPECT_TRUE(host->subviews().empty());
    EXPECT_EQ(view->superview(), elsewhere);
    EXPECT_EQ(view->backgroundColor(), nullptr);
    EXPECT_EQ(view->frame(), CGRectMake(1.0, 2.0, 3.0, 4.0));
}

TEST(KivBarTest, FramesOfAnySizeAreTaken) {
    const auto host = make<UIView>(hostFrame);
    EXPECT_EQ(make<KivBar>(host, CGRectMake(5.0, 6.0, 0.0, 40.0))->columnSize(), 0.0);
    // The width of a rectangle that is drawn from right to left is a positive one too.
    const auto backwards = make<KivBar>(host, CGRectMake(5.0, 6.0, -120.0, -40.0));
    EXPECT_EQ(backwards->columnSize(), 10.0);
    EXPECT_EQ(backwards->barFrame(), CGRectMake(5.0, 6.0, -120.0, -40.0));
    EXPECT_EQ(backwards->view()->frame(), CGRectMake(5.0, 6.0, -120.0, -40.0));
}

TEST(KivBarTest, AnInitializerRunAgainStartsFromTheBeginning) {
    const auto host = make<UIView>(hostFrame);
    const auto bar = make<KivBar>(host, barFrame);
    bar->setDelay(5.0);
    bar->setElemets(KivBar::Elemets());
    ASSERT_TRUE(bar->send<bool>("initWithSuperview:frame:backgroundColor:", host, barFrame, red()));
    EXPECT_EQ(bar->delay(), 0.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->columnSize(), std::nullopt);
    EXPECT_EQ(bar->barFrame(), std::nullopt);
}

TEST(KivBarTest, WhatWasSetBeforeAnInitializerDoesNotOutliveIt) {
    const auto host = make<UIView>(hostFrame);
    const auto bar = allocate<KivBar>();
    bar->setDelay(5.0);
    bar->setElemets(KivBar::Elemets());
    bar->setAutoHideTimer(make<Foundation::NSTimer>());
    ASSERT_TRUE(bar->init(host, barFrame));
    EXPECT_EQ(bar->delay(), 0.0);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    ASSERT_TRUE(bar->init(host, host));
    EXPECT_EQ(bar->columnSize(), std::nullopt);
    EXPECT_EQ(bar->barFrame(), std::nullopt);
}

// The order of what a host view is asked

TEST(KivBarTest, AFrameAddsTheContainerViewBeforeItGetsItsBackground) {
    Story story;
    const auto host = make<HostView>(hostFrame, story);
    const auto bar = make<KivBar>(host, barFrame);
    EXPECT_EQ(story, (Story{"addSubview: (0, 0, 320, 40), no background"}));
    EXPECT_EQ(background(*bar->view()), black);
}

TEST(KivBarTest, AColourIsGivenToAContainerViewThatIsAddedAndInFront) {
    Story story;
    const auto host = make<HostView>(hostFrame, story);
    const auto bar = make<KivBar>(host, barFrame, red());
    EXPECT_EQ(story, (Story{"addSubview: (0, 0, 320, 40), no background",
                            "bringSubviewToFront: (0, 0, 320, 40), no background, inside"}));
}

TEST(KivBarTest, AnImageIsGivenToAContainerViewThatIsAddedAndInFront) {
    Story story;
    const auto host = make<HostView>(hostFrame, story);
    const auto bar = make<KivBar>(host, barFrame, imageOf({10.0, 10.0}));
    EXPECT_EQ(story, (Story{"addSubview: (0, 0, 320, 40), no background",
                            "bringSubviewToFront: (0, 0, 320, 40), no background, inside"}));
}

TEST(KivBarTest, AGivenContainerViewLeavesTheHostViewAlone) {
    Story story;
    const auto host = make<HostView>(hostFrame, story);
    const auto bar = make<KivBar>(host, make<UIView>());
    EXPECT_EQ(story, Story());
}

// Background

TEST(KivBarTest, TheBackgroundColourCanBeChanged) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), barFrame);
    const auto color = red();
    bar->setBackgroundColor(color);
    EXPECT_EQ(bar->view()->backgroundColor(), color);
    EXPECT_FALSE(bar->view()->isOpaque());
}

class ImageContexts {
public:
    /// The number of image contexts that are open, which are closed.
    static int close() {
        int count = 0;
        for (; UIKit::UIGraphicsGetCurrentContext(); ++count) {
            UIKit::UIGraphicsEndImageContext();
        }
        return count;
    }
};

/// An image that writes down where it is drawn.
class DrawnImage : public UIImage {
public:
    void drawInRect(const CGRect& rect) const override {
        drawn.push_back(rect);
        UIImage::drawInRect(rect);
    }

    mutable std::vector<CGRect> drawn;
};

std::shared_ptr<DrawnImage> drawnImage() { return make<DrawnImage>(imageOf({10.0, 10.0})->drawing()); }

TEST(KivBarTest, ABackgroundImageIsStretchedOverTheContainerViewWhichBecomesOpaque) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), CGRectMake(7.0, 8.0, 320.0, 40.0));
    const auto image = drawnImage();
    bar->setBackgroundImage(image);
    EXPECT_EQ(image->drawn, std::vector{CGRectMake(0.0, 0.0, 320.0, 40.0)});
    const auto pattern = bar->view()->backgroundColor()->patternImage();
    ASSERT_NE(pattern, nullptr);
    EXPECT_EQ(pattern->size(), CGSizeMake(320.0, 40.0));

    CGRecordingContext expected({320.0, 40.0});
    image->drawing()->draw(expected, CGRectMake(0.0, 0.0, 320.0, 40.0));
    EXPECT_EQ(*pattern->drawing(), *expected.drawing());
    EXPECT_TRUE(bar->view()->isOpaque());
    EXPECT_EQ(ImageContexts::close(), 0);
}

TEST(KivBarTest, ABackgroundImageIsDrawnIntoTheBoundsAtTheSizeOfTheFrame) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), barFrame);
    bar->view()->setTransform(CGAffineTransformMakeScale(0.5, 0.5));
    bar->view()->setBounds(CGRectMake(3.0, 4.0, 320.0, 40.0));
    const auto image = drawnImage();
    bar->setBackgroundImage(image);
    EXPECT_EQ(image->drawn, std::vector{CGRectMake(3.0, 4.0, 320.0, 40.0)});
    EXPECT_EQ(bar->view()->backgroundColor()->patternImage()->size(), CGSizeMake(160.0, 20.0));
}

TEST(KivBarTest, AnEmptyBackgroundImageChangesNothingAndLeavesAContextOpen) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), barFrame);
    ASSERT_EQ(ImageContexts::close(), 0);
    bar->setBackgroundImage(nullptr);
    EXPECT_EQ(background(*bar->view()), black);
    EXPECT_FALSE(bar->view()->isOpaque());
    EXPECT_EQ(ImageContexts::close(), 1);
}

TEST(KivBarTest, AnEmptyBackgroundImageOfABarWithoutAreaStopsNothing) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), CGRectMake(0.0, 0.0, 320.0, 0.0));
    bar->setBackgroundImage(nullptr);
    EXPECT_EQ(background(*bar->view()), black);
    EXPECT_EQ(ImageContexts::close(), 1);
}

TEST(KivBarDeathTest, ABackgroundImageOfABarWithoutAreaStopsSilently) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), CGRectMake(0.0, 0.0, 320.0, 0.0));
    EXPECT_SILENT_STOP(bar->setBackgroundImage(imageOf({10.0, 10.0})));
}

// Tear-down

TEST(KivBarTest, ABarThatEndsLeavesItsContainerViewInTheHostView) {
    const auto host = make<UIView>(hostFrame);
    auto bar = make<KivBar>(host, barFrame);
    const auto view = bar->view();
    bar = nullptr;
    EXPECT_EQ(view->superview(), host);
    EXPECT_EQ(view.use_count(), 2);
    EXPECT_EQ(background(*view), black);
}

TEST(KivBarTest, HoldsItsHostView) {
    auto host = make<UIView>(hostFrame);
    const std::weak_ptr<UIView> present = host;
    auto bar = make<KivBar>(host, barFrame);
    host = nullptr;
    EXPECT_FALSE(present.expired());
    bar = nullptr;
    EXPECT_TRUE(present.expired());
}

TEST(KivBarTest, ABarThatEndsIsCleaned) {
    const auto host = make<UIView>(hostFrame);
    auto bar = make<KivBar>(host, barFrame);
    std::vector<std::shared_ptr<UIComponent>> components;
    for (int index = 0; index < 2; ++index) {
        const auto component = make<UIComponent>();
        component->setView(make<UIView>());
        component->setObserver(make<Watcher>());
        bar->addElementToView(component, 2);
        components.push_back(component);
    }
    const auto view = bar->view();
    bar = nullptr;
    for (const auto& component : components) {
        EXPECT_EQ(component->observer(), nullptr);
        EXPECT_EQ(component->view()->superview(), nullptr);
        EXPECT_EQ(component.use_count(), 1);
    }
    EXPECT_EQ(view->superview(), host);
    EXPECT_EQ(view->subviews().size(), 2U);
}

/// A bar with a `clean` of its own.
class TidyBar : public KivBar {
public:
    void clean() override {
        ++cleans();
        stillItself() = &isa() == &classObject() && weak_from_this().expired();
        hadSuperview() = superview() != nullptr && view() != nullptr;
        if (goesOn()) {
            KivBar::clean();
        }
    }

    static int& cleans() {
        static int count = 0;
        return count;
    }
    static bool& stillItself() {
        static bool value = false;
        return value;
    }
    static bool& hadSuperview() {
        static bool value = false;
        return value;
    }
    static bool& goesOn() {
        static bool value = true;
        return value;
    }
};

TEST(KivBarTest, TheCleanOfASubclassIsTheOneThatRunsAtTheEnd) {
    TidyBar::cleans() = 0;
    TidyBar::goesOn() = true;
    const auto component = make<UIComponent>();
    component->setObserver(make<Watcher>());
    make<TidyBar>(make<UIView>(hostFrame), barFrame)->addElementToView(component, 2);
    EXPECT_EQ(TidyBar::cleans(), 1);
    EXPECT_TRUE(TidyBar::stillItself());
    EXPECT_TRUE(TidyBar::hadSuperview());
    EXPECT_EQ(component->observer(), nullptr);
}

TEST(KivBarTest, ASubclassWhoseCleanDoesNothingKeepsTheObservers) {
    TidyBar::cleans() = 0;
    TidyBar::goesOn() = false;
    const auto component = make<UIComponent>();
    component->setObserver(make<Watcher>());
    make<TidyBar>(make<UIView>(hostFrame), barFrame)->addElementToView(component, 2);
    EXPECT_EQ(TidyBar::cleans(), 1);
    EXPECT_NE(component->observer(), nullptr);
    EXPECT_EQ(component.use_count(), 1);
}

// Accessors that a subclass overrides

/// A bar that writes down which of its accessors are used.
class ListeningBar : public KivBar {
public:
    using KivBar::init;
    bool init(Story& story, const std::shared_ptr<UIView>& superview, const CGRect& frame) {
        story_ = &story;
        return KivBar::init(superview, frame);
    }

    std::shared_ptr<UIView> superview() const override { return note("superview"), KivBar::superview(); }
    void setSuperview(const std::shared_ptr<UIView>& superview) override {
        note("setSuperview:");
        KivBar::setSuperview(superview);
    }
    std::shared_ptr<UIView> view() const override { return note("view"), KivBar::view(); }
    void setView(const std::shared_ptr<UIView>& view) override {
        note("setView:");
        KivBar::setView(view);
    }
    std::shared_ptr<NSTimer> autoHideTimer() const override {
        return note("autoHideTimer"), KivBar::autoHideTimer();
    }
    void setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) override {
        note("setAutoHideTimer:");
        KivBar::setAutoHideTimer(timer);
    }
    double delay() const override { return note("delay"), KivBar::delay(); }
    void setDelay(double delay) override {
        note("setDelay:");
        KivBar::setDelay(delay);
    }
    std::optional<Elemets> elemets() const override { return note("elemets"), KivBar::elemets(); }
    void setElemets(const std::optional<Elemets>& elemets) override {
        note("setElemets:");
        KivBar::setElemets(elemets);
    }
    std::optional<CGFloat> columnSize() const override { return note("columnSize"), KivBar::columnSize(); }
    void setColumnSize(const std::optional<CGFloat>& columnSize) override {
        note("setColumnSize:");
        KivBar::setColumnSize(columnSize);
    }
    std::optional<CGRect> barFrame() const override { return note("barFrame"), KivBar::barFrame(); }
    void setBarFrame(const std::optional<CGRect>& barFrame) override {
        note("setBarFrame:");
        KivBar::setBarFrame(barFrame);
    }

private:
    void note(const std::string& accessor) const {
        if (story_) {
            story_->push_back(accessor);
        }
    }

    Story* story_ = nullptr;
};

TEST(KivBarTest, InitializersWriteTheFieldsDirectly) {
    Story story;
    const auto host = make<UIView>(hostFrame);
    const auto bar = make<ListeningBar>(story, host, barFrame);
    EXPECT_TRUE(bar->init(host, barFrame));
    EXPECT_TRUE(bar->init(host, barFrame, red()));
    EXPECT_TRUE(bar->init(host, barFrame, imageOf({10.0, 10.0})));
    EXPECT_TRUE(bar->init(host, host));
    EXPECT_EQ(story, Story());
    EXPECT_EQ(bar->view(), host);
}

/// A bar that shows another view than the one it was made with.
class BorrowingBar : public KivBar {
public:
    std::shared_ptr<UIView> view() const override { return borrowed; }

    std::shared_ptr<UIView> borrowed = make<UIView>(CGRectMake(0.0, 0.0, 20.0, 10.0));
};

TEST(KivBarTest, BackgroundsGoToTheViewThatASubclassGives) {
    const auto host = make<UIView>(hostFrame);
    const auto bar = make<BorrowingBar>(host, barFrame);
    const auto color = red();
    bar->setBackgroundColor(color);
    EXPECT_EQ(bar->borrowed->backgroundColor(), color);
    bar->setBackgroundImage(imageOf({10.0, 10.0}));
    EXPECT_EQ(bar->borrowed->backgroundColor()->patternImage()->size(), CGSizeMake(20.0, 10.0));
    EXPECT_TRUE(bar->borrowed->isOpaque());
    EXPECT_EQ(background(*host->subviews().back()), black);
}

// By name

const std::set<std::string> reachable{"superview",
                                      "setSuperview:",
                                      "view",
                                      "setView:",
                                      "autoHideTimer",
                                      "setAutoHideTimer:",
                                      "delay",
                                      "setDelay:",
                                      "columns",
                                      "init",
                                      "initWithSuperview:frame:",
                                      "initWithSuperview:frame:backgroundColor:",
                                      "initWithSuperview:frame:backgroundImage:",
                                      "initWithSuperview:view:",
                                      "setAutoHide:",
                                      "resetAutoHide",
                                      "setBackgroundColor:",
                                      "setBackgroundImage:",
                                      "hide",
                                      "show",
                                      "updateBarFrameWithFrame:",
                                      "addElementToView:size:",
                                      "clean"};

TEST(KivBarTest, JustItsPublicOperationsAreReachedByName) {
    EXPECT_EQ(names(KivBar::classObject().selectors()), reachable);
    EXPECT_EQ(names(KivBar::classObject().classMethods().selectors()), std::set<std::string>{"barHeight"});
    EXPECT_EQ(KivBar::classObject().superclass(), &NSObject::classObject());
}

TEST(KivBarDeathTest, ElementsColumnSizeAndBarFrameAreOutOfReach) {
    const auto bar = make<KivBar>(make<UIView>(hostFrame), barFrame);
    for (const char* selector : {"elemets", "columnSize", "barFrame", "getCurrentWidth"}) {
        EXPECT_FALSE(bar->respondsToSelector(selector));
        EXPECT_STOP_PRINTING(bar->send(selector), std::string("Fatal error: Unrecognized selector '") +
                                                      selector + "' sent to class 'KivUICore.KivBar'\n");
    }
}

TEST(KivBarTest, ABarIsMadeByNameAlone) {
    const auto host = make<UIView>(hostFrame);
    const Class* found = Class::named("KivUICore.KivBar");
    ASSERT_EQ(found, &KivBar::classObject());

    const auto framed = found->alloc();
    ASSERT_TRUE(framed->send<bool>("initWithSuperview:frame:", host, barFrame));
    EXPECT_EQ(framed->send<double>("columns"), 12.0);
    EXPECT_EQ(framed->send<double>("delay"), 0.0);
    EXPECT_EQ(framed->send<std::shared_ptr<UIView>>("superview"), host);
    EXPECT_EQ(framed->send<std::shared_ptr<NSTimer>>("autoHideTimer"), nullptr);
    EXPECT_EQ(host->subviews().back(), framed->send<std::shared_ptr<UIView>>("view"));

    const auto colored = found->alloc();
    ASSERT_TRUE(colored->send<bool>("initWithSuperview:frame:backgroundColor:", host, barFrame, red()));
    EXPECT_EQ(background(*host->subviews().back()), "rgba 1 0 0 1");

    const auto patterned = found->alloc();
    ASSERT_TRUE(patterned->send<bool>("initWithSuperview:frame:backgroundImage:", host, barFrame,
                                      imageOf({10.0, 10.0})));
    EXPECT_EQ(background(*host->subviews().back()), "a pattern");

    const auto view = make<UIView>();
    const auto adopting = found->alloc();
    ASSERT_TRUE(adopting->send<bool>("initWithSuperview:view:", host, view));
    EXPECT_EQ(adopting->send<std::shared_ptr<UIView>>("view"), view);
    EXPECT_EQ(host->subviews().size(), 3U);
}

TEST(KivBarTest, PropertiesAndBackgroundsAreSetByName) {
    const auto host = make<UIView>(hostFrame);
    const std::shared_ptr<NSObject> bar = make<KivBar>(host, barFrame);
    const auto view = make<UIView>(barFrame);
    bar->send("setView:", view);
    bar->send("setSuperview:", view);
    bar->send("setDelay:", 2.5);
    bar->send("setBackgroundColor:", red());
    EXPECT_EQ(bar->send<std::shared_ptr<UIView>>("view"), view);
    EXPECT_EQ(bar->send<std::shared_ptr<UIView>>("superview"), view);
    EXPECT_EQ(bar->send<double>("delay"), 2.5);
    EXPECT_EQ(background(*view), "rgba 1 0 0 1");
    bar->send("setBackgroundImage:", imageOf({10.0, 10.0}));
    EXPECT_EQ(background(*view), "a pattern");
}

TEST(KivBarTest, TheDefaultHeightIsAPropertyOfTheClass) {
    EXPECT_EQ(KivBar::barHeight(), 40.0);
    for (const char* name : {"KivUICore.KivBar", "KivUICore.TopBar", "KivUICore.BottomBar"}) {
        EXPECT_EQ(Class::named(name)->send<double>("barHeight"), 40.0);
        EXPECT_EQ(Class::named(name)->classMethod("setBarHeight:"), nullptr);
    }
}

TEST(KivBarDeathTest, WithoutArgumentsThereIsNoBar) {
    EXPECT_UNIMPLEMENTED(make<KivBar>(), "init()", "KivUICore.KivBar");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.KivBar")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.KivBar");
}

// Overriding

TEST(KivBarTest, OverridableOperationsStandInTheirOrder) {
    using View = const std::shared_ptr<UIView>&;
    const std::vector slots{
        slotOf(&KivBar::superview),
        slotOf(&KivBar::setSuperview),
        slotOf(&KivBar::view),
        slotOf(&KivBar::setView),
        slotOf(&KivBar::autoHideTimer),
        slotOf(&KivBar::setAutoHideTimer),
        slotOf(&KivBar::delay),
        slotOf(&KivBar::setDelay),
        slotOf(&KivBar::elemets),
        slotOf(&KivBar::setElemets),
        slotOf(&KivBar::columnSize),
        slotOf(&KivBar::setColumnSize),
        slotOf(&KivBar::barFrame),
        slotOf(&KivBar::setBarFrame),
        slotOf(overload<bool(View, const CGRect&)>(&KivBar::init)),
        slotOf(overload<bool(View, const CGRect&, const std::shared_ptr<UIColor>&)>(&KivBar::init)),
        slotOf(overload<bool(View, const CGRect&, const std::shared_ptr<UIImage>&)>(&KivBar::init)),
        slotOf(overload<bool(View, View)>(&KivBar::init)),
        slotOf(&KivBar::setAutoHide),
        slotOf(&KivBar::resetAutoHide),
        slotOf(overload<void(const std::shared_ptr<UIColor>&)>(&KivBar::setBackgroundColor)),
        slotOf(overload<void(const std::shared_ptr<UIImage>&)>(&KivBar::setBackgroundImage)),
        slotOf(&KivBar::hide),
        slotOf(&KivBar::show),
    };
    const std::size_t first = slots.front().value_or(0);
    for (std::size_t index = 0; index < slots.size(); ++index) {
        EXPECT_EQ(slots[index], first + index) << index;
    }
    // One private operation stands before each of these.
    EXPECT_EQ(slotOf(&KivBar::updateBarFrameWithFrame), first + slots.size() + 1);
    EXPECT_EQ(slotOf(&KivBar::addElementToView), first + slots.size() + 2);
    EXPECT_EQ(slotOf(&KivBar::clean), first + slots.size() + 4);
    EXPECT_EQ(slotOf(&KivBar::columns), std::nullopt);
}

/// A bar that overrides what is private to bars.
class NarrowBar : public KivBar {
public:
    std::vector<CGFloat> alphas;

private:
    void handleAnimationWithAlpha(CGFloat alpha) override { alphas.push_back(alpha); }
    CGFloat getCurrentWidth() const override { return 7.0; }
};

TEST(KivBarTest, WhatIsPrivateToABarCanStillBeOverridden) {
    const auto host = make<UIView>(hostFrame);
    const auto bar = make<NarrowBar>(host, barFrame);
    bar->addElementToView(make<UIComponent>(), 2);
    bar->addElementToView(make<UIComponent>(), 2);
    EXPECT_EQ(bar->view()->subviews()[0]->frame().origin.x, 0.0);
    EXPECT_EQ(bar->view()->subviews()[1]->frame().origin.x, 7.0);
    bar->hide();
    bar->view()->setAlpha(0.5);
    bar->show();
    EXPECT_EQ(bar->alphas, (std::vector{0.0, 1.0}));
    EXPECT_EQ(bar->view()->alpha(), 0.5);
}

TEST(KivBarTest, AnApplicationsBarIsDeclaredInAFewLines) {
    class Strip : public KivBar {
    public:
        static const Class& classObject() {
            static const Class& object =
                ClassBuilder<Strip, KivBar>("Tests.Strip").method<&Strip::onRotate>("onRotate").build();
            return object;
        }
        void onRotate() { resetAutoHide(); }
    };
    const auto strip = make<Strip>(make<UIView>(hostFrame), barFrame);
    EXPECT_TRUE(strip->isKindOfClass(KivBar::classObject()));
    EXPECT_EQ(ownSelectors(strip->isa()), std::set<std::string>{"onRotate"});
    strip->send("onRotate");
    EXPECT_EQ(Class::named("Tests.Strip"), &Strip::classObject());
}

TEST(KivBarTest, ABackgroundImageThatThrowsLeavesNoImageContextOpen) {
    class FragileImage : public UIImage {
    public:
        using UIImage::init;
        void drawInRect(const CGRect& /*rect*/) const override { throw std::string("image"); }
    };
    const auto bar = make<TopBar>(make<UIView>(hostFrame));
    const auto before = UIKit::UIGraphicsGetCurrentContext();
    EXPECT_THROW(bar->setBackgroundImage(make<FragileImage>(imageOf({10.0, 10.0})->drawing())), std::string);
    EXPECT_EQ(UIKit::UIGraphicsGetCurrentContext(), before);
}

} // namespace
