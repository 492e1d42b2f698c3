#include "Hosts/Headless/HeadlessHost.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/KivUICore/HostView.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using MediaPlayer::MPVolumeView;
using UIKit::UIColor;
using UIKit::UISlider;
using UIKit::UIView;

constexpr CGFloat column = 320.0 / 12.0;

class KivBarLayoutTest : public testing::Test {
protected:
    std::shared_ptr<SeekBar> makeSeekBar(bool allowsAirPlay) {
        return make<SeekBar>(make<UISlider>(), make<Watcher>(), make<Player>(allowsAirPlay));
    }

    CGRect slotFrame(std::size_t index) const { return bar->view()->subviews().at(index)->frame(); }

    std::vector<CGRect> slotFrames(const KivBar& of) const {
        std::vector<CGRect> frames;
        for (const auto& slot : of.view()->subviews()) {
            frames.push_back(slot->frame());
        }
        return frames;
    }

    static std::shared_ptr<UIComponent> makeComponent(const std::shared_ptr<UIView>& view = make<UIView>()) {
        auto component = make<UIComponent>();
        component->setView(view);
        return component;
    }

    Story story;
    KivUICore::Headless::HeadlessHost host{{320.0, 480.0}};
    std::shared_ptr<KivBar> bar = make<KivBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0));
};

class KivBarLayoutDeathTest : public KivBarLayoutTest {};

// Placing

TEST_F(KivBarLayoutTest, ControlsStandFromLeftToRightInSlotsOfTheirOwn) {
    const auto button = make<Button>(make<UIKit::UIButton>(), nullptr);
    const auto seekBar = makeSeekBar(true);
    const CGRect routeFrame = seekBar->airplayButton()->frame();
    const auto label = make<Label>(make<UIKit::UILabel>(), make<Watcher>());

    bar->addElementToView(button, 2);
    bar->addElementToView(seekBar, 8);
    bar->addElementToView(label, 2);

    EXPECT_EQ(slotFrames(*bar),
              (std::vector{CGRectMake(0.0, 0.0, 2.0 * column, 40.0),
                           CGRectMake(2.0 * column, 0.0, 8.0 * column, 40.0),
                           CGRectMake(2.0 * column + 8.0 * column, 0.0, 2.0 * column, 40.0)}));
    EXPECT_NEAR(slotFrame(2).origin.x, 266.6667, 0.0001);
    EXPECT_EQ(button->view()->frame(), CGRectMake(0.0, 0.0, 2.0 * column, 40.0));
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, 8.0 * column - 44.0, 40.0));
    EXPECT_EQ(label->view()->frame(), CGRectMake(0.0, 0.0, 2.0 * column, 40.0));

    const CGRect moved = seekBar->airplayButton()->frame();
    EXPECT_NEAR(moved.origin.x, 8.0 * column - 44.0, 1e-9);
    EXPECT_NEAR(moved.origin.y, routeFrame.origin.y, 1e-9);
    EXPECT_NEAR(moved.size.width, routeFrame.size.width, 1e-9);
    EXPECT_NEAR(moved.size.height, routeFrame.size.height, 1e-9);

    const auto& slots = bar->view()->subviews();
    EXPECT_EQ(slots[0]->subviews(), std::vector{button->view()});
    EXPECT_EQ(slots[1]->subviews(),
              (std::vector<std::shared_ptr<UIView>>{seekBar->view(), seekBar->airplayButton()}));
    EXPECT_EQ(slots[2]->subviews(), std::vector{label->view()});
    for (const auto& slot : slots) {
        EXPECT_EQ(slot->autoresizingMask(), UIKit::UIViewAutoresizingFlexibleRightMargin);
        EXPECT_EQ(&slot->isa(), &UIView::classObject());
        EXPECT_EQ(slot->backgroundColor(), nullptr);
    }
    for (const auto& view : {button->view(), seekBar->view(), label->view()}) {
        EXPECT_EQ(view->autoresizingMask(), UIKit::UIViewAutoresizingNone);
    }
}

TEST_F(KivBarLayoutTest, EachControlIsRememberedWithItsSize) {
    const auto first = makeComponent();
    const auto second = makeComponent();
    bar->addElementToView(first, 3);
    bar->addElementToView(second, -4);
    const auto elemets = bar->elemets();
    ASSERT_TRUE(elemets);
    ASSERT_EQ(elemets->size(), 2U);
    EXPECT_EQ(elemets->at(0)->view(), first);
    EXPECT_EQ(elemets->at(0)->size(), 3);
    EXPECT_EQ(elemets->at(1)->view(), second);
    EXPECT_EQ(elemets->at(1)->size(), -4);
}

TEST_F(KivBarLayoutTest, ALoopGoesThroughTheControlsAtOnce) {
    for (const auto& elemet : bar->placedElemets()) {
        ADD_FAILURE() << elemet->size() << " columns in an empty bar";
    }
    bar->addElementToView(makeComponent(), 3);
    bar->addElementToView(makeComponent(), -4);
    std::vector<std::int64_t> sizes;
    for (const auto& elemet : bar->placedElemets()) {
        sizes.push_back(elemet->size());
        bar->setElemets(std::nullopt);
    }
    EXPECT_EQ(sizes, (std::vector<std::int64_t>{3, -4}));
    // A reference into the bar would be gone like that into what `elemets` gives.
    static_assert(std::is_same_v<decltype(bar->placedElemets()), KivBar::Elemets>);
}

TEST_F(KivBarLayoutTest, ASeekBarThatComesFirstTakesItsWholeSlotAndKeepsItsRouteButtonToItself) {
    const auto seekBar = makeSeekBar(true);
    const CGRect routeFrame = seekBar->airplayButton()->frame();
    bar->addElementToView(seekBar, 8);
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 8.0 * column, 40.0));
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, 8.0 * column, 40.0));
    EXPECT_EQ(seekBar->airplayButton()->superview(), nullptr);
    EXPECT_EQ(seekBar->airplayButton()->frame(), routeFrame);
}

TEST_F(KivBarLayoutTest, ASeekBarWithoutARouteButtonKeepsTheRoomForOne) {
    bar->addElementToView(makeComponent(), 2);
    const auto seekBar = makeSeekBar(false);
    bar->addElementToView(seekBar, 8);
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, 8.0 * column - 44.0, 40.0));
    EXPECT_EQ(bar->view()->subviews()[1]->subviews(), std::vector{seekBar->view()});
}

TEST_F(KivBarLayoutTest, ASubclassOfSeekBarIsASeekBar) {
    class ChapterBar : public SeekBar {
    public:
        static const Class& classObject() {
            static const Class& object = ClassBuilder<ChapterBar, SeekBar>("Tests.ChapterBar").build();
            return object;
        }
    };
    bar->addElementToView(makeComponent(), 2);
    const auto chapters = make<ChapterBar>(make<UISlider>(), make<Watcher>(), make<Player>(true));
    bar->addElementToView(chapters, 6);
    EXPECT_EQ(chapters->view()->frame(), CGRectMake(0.0, 0.0, 6.0 * column - 44.0, 40.0));
    EXPECT_EQ(chapters->airplayButton()->superview(), bar->view()->subviews()[1]);
}

TEST_F(KivBarLayoutTest, TheSliderThatASubclassOfSeekBarGivesIsTheOneThatIsPlaced) {
    class Borrowing : public SeekBar {
    public:
        std::shared_ptr<UIView> view() const override { return borrowed; }
        std::shared_ptr<UIView> borrowed = make<UIView>();
    };
    bar->addElementToView(makeComponent(), 2);
    const auto own = make<UISlider>();
    const auto borrowing = make<Borrowing>(own, make<Watcher>(), make<Player>(false));
    bar->addElementToView(borrowing, 6);
    EXPECT_EQ(borrowing->borrowed->frame(), CGRectMake(0.0, 0.0, 6.0 * column - 44.0, 40.0));
    EXPECT_EQ(bar->view()->subviews()[1]->subviews(), std::vector{borrowing->borrowed});
    EXPECT_EQ(own->frame(), CGRect());
}

TEST_F(KivBarLayoutTest, ASeekBarWithoutASliderPlacesItsRouteButtonAlone) {
    bar->addElementToView(makeComponent(), 2);
    const auto seekBar = makeSeekBar(true);
    seekBar->setView(nullptr);
    bar->addElementToView(seekBar, 8);
    EXPECT_EQ(bar->view()->subviews()[1]->subviews(),
              std::vector<std::shared_ptr<UIView>>{seekBar->airplayButton()});
    EXPECT_NEAR(seekBar->airplayButton()->frame().origin.x, 8.0 * column - 44.0, 1e-9);
}

TEST_F(KivBarLayoutTest, ARouteButtonOfTheApplicationsMovesSidewaysAlone) {
    bar->addElementToView(makeComponent(), 2);
    const auto seekBar = makeSeekBar(false);
    const auto button = make<MPVolumeView>(CGRectMake(1.0, 2.0, 30.0, 20.0));
    seekBar->setAirplayButton(button);
    bar->addElementToView(seekBar, 1);
    EXPECT_EQ(button->frame(), CGRectMake(column - 44.0, 2.0, 30.0, 20.0));
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, column - 44.0, 40.0));
}

TEST_F(KivBarLayoutTest, NothingLimitsARowToTwelveColumns) {
    bar->addElementToView(makeComponent(), 6);
    bar->addElementToView(makeComponent(), 6);
    bar->addElementToView(makeComponent(), 2);
    EXPECT_EQ(slotFrame(2), CGRectMake(12.0 * column, 0.0, 2.0 * column, 40.0));
    EXPECT_GE(slotFrame(2).origin.x, 320.0);
}

TEST_F(KivBarLayoutTest, SizesOfZeroAndBelowAreUsedAsGiven) {
    bar->addElementToView(makeComponent(), 0);
    const auto backwards = makeComponent();
    bar->addElementToView(backwards, -3);
    bar->addElementToView(makeComponent(), 1);
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 0.0, 40.0));
    EXPECT_EQ(slotFrame(1), CGRectMake(0.0, 0.0, -3.0 * column, 40.0));
    EXPECT_EQ(backwards->view()->frame(), CGRectMake(0.0, 0.0, -3.0 * column, 40.0));
    EXPECT_EQ(slotFrame(2), CGRectMake(-3.0 * column, 0.0, column, 40.0));
}

TEST_F(KivBarLayoutTest, AControlWithoutAViewStillTakesItsColumns) {
    bar->addElementToView(makeComponent(nullptr), 3);
    bar->addElementToView(makeComponent(nullptr), 2);
    bar->addElementToView(makeComponent(), 1);
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 3.0 * column, 40.0));
    EXPECT_TRUE(bar->view()->subviews()[0]->subviews().empty());
    EXPECT_TRUE(bar->view()->subviews()[1]->subviews().empty());
    EXPECT_EQ(slotFrame(2).origin.x, 3.0 * column + 2.0 * column);
}

TEST_F(KivBarLayoutTest, AControlIsNotToldThatItWasPlaced) {
    const auto seekBar = makeSeekBar(true);
    const auto watcher = make<Watcher>(story);
    seekBar->setObserver(watcher);
    bar->addElementToView(makeComponent(), 2);
    bar->addElementToView(seekBar, 2);
    EXPECT_EQ(seekBar->observer(), watcher);
    EXPECT_EQ(story, Story());
}

TEST_F(KivBarLayoutTest, ABarThatIsDrawnUpwardsTakesItsHeightAsItIsOnlyForTheFirstSlot) {
    const auto upwards = make<KivBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, -40.0));
    const auto first = makeComponent();
    const auto second = makeComponent();
    upwards->addElementToView(first, 2);
    upwards->addElementToView(second, 2);
    EXPECT_EQ(slotFrames(*upwards), (std::vector{CGRectMake(0.0, 0.0, 2.0 * column, -40.0),
                                                 CGRectMake(2.0 * column, 0.0, 2.0 * column, 40.0)}));
    EXPECT_EQ(first->view()->frame(), CGRectMake(0.0, 0.0, 2.0 * column, -40.0));
    EXPECT_EQ(second->view()->frame(), CGRectMake(0.0, 0.0, 2.0 * column, 40.0));
}

TEST_F(KivBarLayoutTest, AnEmptyListOfControlsIsNotAnAbsentOne) {
    bar->setElemets(KivBar::Elemets());
    const auto seekBar = makeSeekBar(true);
    bar->addElementToView(seekBar, 8);
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 8.0 * column, 40.0));
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, 8.0 * column - 44.0, 40.0));
    EXPECT_NE(seekBar->airplayButton()->superview(), nullptr);
}

TEST_F(KivBarLayoutTest, AControlIsTakenOutOfWhereItWas) {
    const auto component = makeComponent();
    bar->addElementToView(component, 2);
    bar->addElementToView(component, 3);
    EXPECT_TRUE(bar->view()->subviews()[0]->subviews().empty());
    EXPECT_EQ(component->view()->superview(), bar->view()->subviews()[1]);
    EXPECT_EQ(bar->elemets()->size(), 2U);
}

/// A view that writes down what is done to it.
class NotingView : public UIView {
public:
    using UIView::init;
    bool init(Story& story, const std::string& name) {
        story_ = &story;
        name_ = name;
        return UIView::init();
    }

    void setFrame(const CGRect& frame) override {
        UIView::setFrame(frame);
        story_->push_back(name_ + " setFrame: " + KivUICoreTests::describe(frame) +
                          (superview() ? ", inside" : ", outside"));
    }
    void addSubview(const std::shared_ptr<UIView>& view) override {
        story_->push_back(name_ + " addSubview: mask " + std::to_string(view->autoresizingMask()) +
                          ", holding " + std::to_string(view->subviews().size()));
        UIView::addSubview(view);
    }
    void removeFromSuperview() override {
        if (superview()) {
            story_->push_back(name_ + " removeFromSuperview");
        }
        UIView::removeFromSuperview();
    }

private:
    Story* story_ = nullptr;
    std::string name_;
};

TEST_F(KivBarLayoutTest, AControlIsSizedThenPutIntoItsSlotAndTheSlotIntoTheBar) {
    bar->setView(make<NotingView>(story, "bar"));
    bar->setColumnSize(10.0);
    bar->addElementToView(makeComponent(make<NotingView>(story, "first")), 2);
    bar->addElementToView(makeComponent(make<NotingView>(story, "second")), 3);
    EXPECT_EQ(story,
              (Story{"first setFrame: (0, 0, 20, 40), outside", "bar addSubview: mask 4, holding 1",
                     "second setFrame: (0, 0, 30, 40), outside", "bar addSubview: mask 4, holding 1"}));
}

/// A slider that has something done to it when it is given a frame.
class UnsteadySlider : public UISlider {
public:
    void setFrame(const CGRect& frame) override {
        UISlider::setFrame(frame);
        if (const auto copy = onFrame) {
            copy();
        }
    }
    std::function<void()> onFrame;
};

TEST_F(KivBarLayoutTest, ASliderThatIsReplacedWhenItIsSizedIsNotTheOneThatIsPlaced) {
    bar->addElementToView(makeComponent(), 1);
    const auto unsteady = make<UnsteadySlider>();
    const auto successor = make<UISlider>(CGRectMake(1.0, 2.0, 3.0, 4.0));
    const auto seekBar = make<SeekBar>(unsteady, make<Watcher>(), make<Player>(false));
    unsteady->onFrame = [&] { seekBar->setView(successor); };
    bar->addElementToView(seekBar, 8);
    EXPECT_EQ(bar->view()->subviews()[1]->subviews(), std::vector<std::shared_ptr<UIView>>{successor});
    EXPECT_EQ(successor->frame(), CGRectMake(1.0, 2.0, 3.0, 4.0));
    EXPECT_EQ(unsteady->frame(), CGRectMake(0.0, 0.0, 8.0 * column - 44.0, 40.0));

    const auto leaving = make<UnsteadySlider>();
    const auto without = make<SeekBar>(leaving, make<Watcher>(), make<Player>(false));
    leaving->onFrame = [&] { without->setView(nullptr); };
    bar->addElementToView(without, 2);
    EXPECT_TRUE(bar->view()->subviews()[2]->subviews().empty());
}

TEST_F(KivBarLayoutTest, TheRouteButtonStandsInFrontOfTheSlider) {
    bar->addElementToView(makeComponent(), 1);
    const auto seekBar = makeSeekBar(true);
    bar->addElementToView(seekBar, 3);
    EXPECT_EQ(bar->view()->subviews()[1]->subviews().back(), seekBar->airplayButton());
}

TEST_F(KivBarLayoutTest, ControlsArePlacedByName) {
    const std::shared_ptr<NSObject> named = bar;
    const auto component = makeComponent();
    named->send("addElementToView:size:", component, 3);
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 3.0 * column, 40.0));
    named->send("updateBarFrameWithFrame:", CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(bar->view()->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
    named->send("clean");
    EXPECT_EQ(bar->elemets(), std::nullopt);
}

// What stops the program

TEST_F(KivBarLayoutDeathTest, ABarWithoutColumnsTakesNoControl) {
    const auto adopting = make<KivBar>(host.window(), make<UIView>());
    const auto colored =
        make<KivBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0), make<UIColor>(1.0, 1.0));
    const auto patterned =
        make<KivBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0), imageOf({1.0, 1.0}));
    EXPECT_SILENT_STOP(adopting->addElementToView(makeComponent(), 1));
    EXPECT_SILENT_STOP(colored->addElementToView(makeComponent(), 1));
    EXPECT_SILENT_STOP(patterned->addElementToView(makeComponent(), 1));
    EXPECT_SILENT_STOP(patterned->send("addElementToView:size:", makeComponent(), 1));
}

/// A bar whose columns go after they were asked for a given number of times.
class FadingColumnsBar : public KivBar {
public:
    std::optional<CGFloat> columnSize() const override {
        return left-- > 0 ? std::optional(10.0) : std::nullopt;
    }
    mutable int left = 0;
};

TEST_F(KivBarLayoutDeathTest, TheWidthThatIsTakenNeedsColumnsAsSoonAsThereIsAControl) {
    const auto fading = make<FadingColumnsBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    fading->left = 1;
    fading->addElementToView(makeComponent(), 1);
    fading->left = 1;
    EXPECT_SILENT_STOP(fading->addElementToView(makeComponent(), 1));
    fading->setElemets(KivBar::Elemets());
    fading->left = 1;
    fading->addElementToView(makeComponent(), 1);
    EXPECT_EQ(fading->left, 0);
}

TEST_F(KivBarLayoutDeathTest, WhatCountsIsWhatIsThereNow) {
    const auto adopting = make<KivBar>(host.window(), make<UIView>());
    adopting->setColumnSize(10.0);
    EXPECT_SILENT_STOP(adopting->addElementToView(makeComponent(), 1));
    adopting->setBarFrame(CGRectMake(0.0, 0.0, 1.0, 30.0));
    adopting->addElementToView(makeComponent(), 2);
    EXPECT_EQ(slotFrames(*adopting), std::vector{CGRectMake(0.0, 0.0, 20.0, 30.0)});

    bar->setColumnSize(std::nullopt);
    EXPECT_SILENT_STOP(bar->addElementToView(makeComponent(), 1));
    bar->setElemets(KivBar::Elemets());
    EXPECT_SILENT_STOP(bar->addElementToView(makeComponent(), 1));
    bar->setColumnSize(10.0);
    bar->addElementToView(makeComponent(), 1);
    bar->setBarFrame(std::nullopt);
    EXPECT_SILENT_STOP(bar->addElementToView(makeComponent(), 1));
}

/// A bar that prints when its list is set, so that it shows what was done before a stop.
class PrintingBar : public KivBar {
public:
    void setElemets(const std::optional<Elemets>& elemets) override {
        std::fprintf(stderr, elemets ? "a list of %zu\n" : "no list\n", elemets ? elemets->size() : 0);
        KivBar::setElemets(elemets);
    }
};

TEST_F(KivBarLayoutDeathTest, TheEmptyListIsStoredBeforeTheStopAndNothingElse) {
    const auto printing = make<PrintingBar>(host.window(), make<UIView>());
    const auto component = makeComponent(make<NotingView>(story, "control"));
    EXPECT_STOP_PRINTING(printing->addElementToView(component, 1), "a list of 0\n");
    printing->KivBar::setElemets(KivBar::Elemets());
    EXPECT_SILENT_STOP(printing->addElementToView(component, 1));
    printing->KivBar::setElemets(std::nullopt);
    EXPECT_EQ(story, Story());
}

// A new size of the host view

TEST_F(KivBarLayoutTest, ATopBarFollowsAtTheTopInAFixedPatternOfSlots) {
    const auto top = make<TopBar>(host.window());
    for (const std::int64_t size : {1, 1, 1, 1}) {
        top->addElementToView(makeComponent(), size);
    }
    top->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(top->view()->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
    EXPECT_EQ(slotFrames(*top),
              (std::vector{CGRectMake(0.0, 0.0, 80.0, 40.0), CGRectMake(80.0, 0.0, 288.0, 40.0),
                           CGRectMake(320.0, 0.0, 80.0, 40.0), CGRectMake(400.0, 0.0, 80.0, 40.0)}));
}

TEST_F(KivBarLayoutTest, ABottomBarFollowsAtTheBottom) {
    const auto bottom = make<BottomBar>(host.window());
    bottom->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, 280.0, 480.0, 40.0));
}

TEST_F(KivBarLayoutTest, ABarOfAnotherHeightBecomesFortyPointsHigh) {
    const auto bottom = make<BottomBar>(host.window(), 60.0);
    bottom->addElementToView(makeComponent(), 2);
    bottom->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, 280.0, 480.0, 40.0));
    EXPECT_EQ(slotFrames(*bottom), std::vector{CGRectMake(0.0, 0.0, 80.0, 40.0)});
    const auto top = make<TopBar>(host.window(), 60.0);
    top->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(top->view()->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
}

TEST_F(KivBarLayoutTest, ASubclassOfBottomBarIsABottomBar) {
    class PlainBar : public BottomBar {};
    class NamedBar : public BottomBar {
    public:
        static const Class& classObject() {
            static const Class& object = ClassBuilder<NamedBar, BottomBar>("Tests.NamedBar").build();
            return object;
        }
    };
    for (const std::shared_ptr<BottomBar>& bottom :
         {std::shared_ptr<BottomBar>(make<PlainBar>(host.window())),
          std::shared_ptr<BottomBar>(make<NamedBar>(host.window()))}) {
        bottom->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
        EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, 280.0, 480.0, 40.0));
    }
}

TEST_F(KivBarLayoutTest, APlainBarFollowsAtTheTopWhereverItWas) {
    const auto plain = make<KivBar>(host.window(), CGRectMake(10.0, 100.0, 320.0, 40.0));
    plain->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(plain->view()->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
}

TEST_F(KivBarLayoutTest, TheOriginOfTheNewFrameIsIgnoredAndItsSizeReadAsAnArea) {
    const auto bottom = make<BottomBar>(host.window());
    bottom->updateBarFrameWithFrame(CGRectMake(30.0, 70.0, 480.0, 320.0));
    EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, 280.0, 480.0, 40.0));
    bottom->updateBarFrameWithFrame(CGRectMake(30.0, 70.0, -480.0, -320.0));
    EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, 280.0, 480.0, 40.0));
    bottom->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 30.0));
    EXPECT_EQ(bottom->view()->frame(), CGRectMake(0.0, -10.0, 480.0, 40.0));
}

TEST_F(KivBarLayoutTest, TheNewSizeOfAContainerViewTravelsOverHalfASecondEasingIn) {
    const CGFloat start = host.runLoop().now();
    bar->addElementToView(makeComponent(), 12);
    host.advance(0.0);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 120.0, 320.0));
    // From 320 to 20: less than half of the way in half of the time.
    const auto shownWidth = [this] { return bar->view()->subviews()[0]->presentedFrame().size.width; };
    EXPECT_EQ(slotFrame(0), CGRectMake(0.0, 0.0, 20.0, 40.0));
    EXPECT_DOUBLE_EQ(shownWidth(), 320.0);
    host.advance(0.25);
    EXPECT_LT(shownWidth(), 260.0);
    EXPECT_GT(shownWidth(), 200.0);
    host.advance(0.24);
    EXPECT_GT(shownWidth(), 20.0);
    host.advance(0.01);
    EXPECT_DOUBLE_EQ(shownWidth(), 20.0);
    EXPECT_NEAR(host.runLoop().now() - start, 0.5, 1e-9);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(KivBarLayoutTest, ANewSizeLeavesColumnsControlsAndSizesAsTheyAre) {
    const auto component = makeComponent();
    bar->addElementToView(component, 5);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    EXPECT_EQ(bar->columnSize(), column);
    EXPECT_EQ(component->view()->frame(), CGRectMake(0.0, 0.0, 5.0 * column, 40.0));
    EXPECT_EQ(bar->elemets()->at(0)->size(), 5);
    bar->addElementToView(makeComponent(), 1);
    EXPECT_EQ(slotFrame(1), CGRectMake(5.0 * column, 0.0, column, 40.0));
}

TEST_F(KivBarLayoutTest, EveryDirectSubviewOfTheContainerViewCountsAsASlot) {
    const auto picture = make<UIView>(CGRectMake(1.0, 1.0, 1.0, 1.0));
    bar->view()->addSubview(picture);
    bar->addElementToView(makeComponent(), 2);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(picture->frame(), CGRectMake(0.0, 0.0, 80.0, 40.0));
    EXPECT_EQ(slotFrame(1), CGRectMake(80.0, 0.0, 288.0, 40.0));
}

TEST_F(KivBarLayoutTest, TheSlotsOfANewSizeAreThoseThatAreThereWhenTheContainerViewHasIt) {
    class Filling : public UIView {
    public:
        void setFrame(const CGRect& frame) override {
            UIView::setFrame(frame);
            addSubview(late);
        }
        std::shared_ptr<UIView> late = make<UIView>();
    };
    const auto filling = make<Filling>();
    bar->setView(filling);
    bar->addElementToView(makeComponent(), 2);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(slotFrames(*bar),
              (std::vector{CGRectMake(0.0, 0.0, 80.0, 40.0), CGRectMake(80.0, 0.0, 288.0, 40.0)}));
}

TEST_F(KivBarLayoutTest, WidthsThatDoNotDivideEvenlyAreNotRounded) {
    for (int index = 0; index < 3; ++index) {
        bar->addElementToView(makeComponent(), 1);
    }
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 1000.0, 320.0));
    const CGFloat x1 = 2.0 * 1000.0 / 12.0;
    EXPECT_EQ(slotFrames(*bar), (std::vector{CGRectMake(0.0, 0.0, x1, 40.0), CGRectMake(x1, 0.0, 600.0, 40.0),
                                             CGRectMake(x1 + 1000.0 / 12.0 * 6.0, 0.0, x1, 40.0)}));
}

TEST_F(KivBarLayoutTest, TheReLayoutHoldsTheBarJustForTheCall) {
    const std::weak_ptr<KivBar> present = bar;
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    bar = nullptr;
    EXPECT_TRUE(present.expired());
    host.advance(1.0);
}

TEST_F(KivBarLayoutTest, ReLayingABarWithoutColumnsIsAllowed) {
    const auto view = make<UIView>();
    const auto adopting = make<KivBar>(host.window(), view);
    adopting->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(view->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
}

// Cleaning

TEST_F(KivBarLayoutTest, CleaningEmptiesObserversAndSlotsAndForgetsTheControls) {
    const auto first = makeComponent();
    const auto seekBar = makeSeekBar(true);
    first->setObserver(make<Watcher>());
    bar->addElementToView(first, 2);
    bar->addElementToView(seekBar, 8);
    bar->setAutoHide(3.0);
    const auto timer = bar->autoHideTimer();
    const auto slots = bar->view()->subviews();

    bar->clean();

    EXPECT_EQ(first->observer(), nullptr);
    EXPECT_EQ(seekBar->observer(), nullptr);
    EXPECT_EQ(first->view()->superview(), nullptr);
    EXPECT_EQ(seekBar->view()->superview(), nullptr);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_FALSE(timer->isValid());
    EXPECT_EQ(bar->view()->subviews(), slots);
    EXPECT_TRUE(slots[0]->subviews().empty());
    EXPECT_EQ(slots[1]->subviews(), std::vector<std::shared_ptr<UIView>>{seekBar->airplayButton()});
    EXPECT_EQ(bar->columnSize(), column);
    EXPECT_EQ(bar->barFrame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    EXPECT_EQ(bar->delay(), 3.0);
    EXPECT_EQ(bar->view()->superview(), host.window());
    EXPECT_EQ(background(*bar->view()), "rgba 0 0 0 0.65");
    EXPECT_EQ(first.use_count(), 1);

    host.advance(10.0);
    EXPECT_EQ(bar->view()->alpha(), 1.0);
}

TEST_F(KivBarLayoutTest, AfterCleaningARowStartsAgainWhileTheOldSlotsStay) {
    bar->addElementToView(makeComponent(), 2);
    bar->addElementToView(makeComponent(), 2);
    bar->clean();
    const auto seekBar = makeSeekBar(true);
    bar->addElementToView(seekBar, 6);
    ASSERT_EQ(bar->view()->subviews().size(), 3U);
    EXPECT_EQ(slotFrame(2), CGRectMake(0.0, 0.0, 6.0 * column, 40.0));
    EXPECT_EQ(seekBar->view()->frame(), CGRectMake(0.0, 0.0, 6.0 * column, 40.0));
    EXPECT_EQ(seekBar->airplayButton()->superview(), nullptr);
    bar->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(slotFrame(2), CGRectMake(320.0, 0.0, 80.0, 40.0));
}

TEST_F(KivBarLayoutTest, CleaningABarWithoutControlsStopsItsTimer) {
    bar->setAutoHide(3.0);
    bar->clean();
    EXPECT_EQ(bar->autoHideTimer(), nullptr);
    EXPECT_EQ(bar->elemets(), std::nullopt);
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    bar->clean();
    EXPECT_EQ(bar->elemets(), std::nullopt);
}

TEST_F(KivBarLayoutTest, AListReadBeforeCleaningKeepsItsRecords) {
    const auto component = makeComponent();
    bar->addElementToView(component, 2);
    const auto before = bar->elemets();
    bar->clean();
    ASSERT_EQ(before->size(), 1U);
    EXPECT_EQ(before->at(0)->view(), component);
    EXPECT_EQ(before->at(0)->size(), 2);
}

TEST_F(KivBarLayoutTest, AViewThatIsElsewhereByNowIsTakenOutThereToo) {
    const auto component = makeComponent();
    bar->addElementToView(component, 2);
    const auto elsewhere = make<UIView>();
    elsewhere->addSubview(component->view());
    bar->clean();
    EXPECT_TRUE(elsewhere->subviews().empty());
}

/// A control whose accessors write down what a bar does with them.
class NotingControl : public UIComponent {
public:
    using UIComponent::init;
    bool init(Story& story, const std::string& name) {
        story_ = &story;
        name_ = name;
        view_ = make<NotingView>(story, name);
        return UIComponent::init();
    }

    std::shared_ptr<UIView> view() const override { return view_; }
    void setView(const std::shared_ptr<UIView>& view) override {
        story_->push_back(name_ + " setView:");
        view_ = view;
    }
    std::shared_ptr<UIEventObserver> observer() const override {
        story_->push_back(name_ + " observer");
        return nullptr;
    }
    void setObserver(const std::shared_ptr<UIEventObserver>& observer) override {
        story_->push_back(name_ + (observer ? " setObserver:" : " setObserver: nothing"));
    }

private:
    Story* story_ = nullptr;
    std::string name_;
    std::shared_ptr<UIView> view_;
};

TEST_F(KivBarLayoutTest, CleaningGoesThroughTheControlsAccessorsOneControlAfterTheOther) {
    bar->addElementToView(make<NotingControl>(story, "a"), 2);
    bar->addElementToView(make<NotingControl>(story, "b"), 2);
    story.clear();
    bar->clean();
    EXPECT_EQ(story, (Story{"a setObserver: nothing", "a removeFromSuperview", "b setObserver: nothing",
                            "b removeFromSuperview"}));
}

/// A bar that keeps its list elsewhere, has columns of its own and writes down what is set.
class OwnListBar : public KivBar {
public:
    std::optional<Elemets> elemets() const override { return list; }
    void setElemets(const std::optional<Elemets>& elemets) override {
        story.push_back(elemets ? "list of " + std::to_string(elemets->size()) : "no list");
        list = elemets;
    }
    std::optional<CGFloat> columnSize() const override { return 5.0; }
    std::optional<CGRect> barFrame() const override { return CGRectMake(0.0, 0.0, 1.0, 9.0); }
    std::shared_ptr<NSTimer> autoHideTimer() const override {
        story.push_back("autoHideTimer");
        return KivBar::autoHideTimer();
    }
    void setAutoHideTimer(const std::shared_ptr<NSTimer>& timer) override {
        story.push_back(timer ? "setAutoHideTimer:" : "setAutoHideTimer: nothing");
        KivBar::setAutoHideTimer(timer);
    }

    std::optional<Elemets> list;
    mutable Story story;
};

TEST_F(KivBarLayoutTest, ListColumnsAndFrameAreTheOnesThatASubclassGives) {
    const auto own = make<OwnListBar>(host.window(), make<UIView>());
    own->addElementToView(makeComponent(), 2);
    own->addElementToView(makeComponent(), 3);
    EXPECT_EQ(own->story, (Story{"list of 0", "list of 1", "list of 2"}));
    EXPECT_EQ(slotFrames(*own),
              (std::vector{CGRectMake(0.0, 0.0, 10.0, 9.0), CGRectMake(10.0, 0.0, 15.0, 9.0)}));
    EXPECT_EQ(own->KivBar::elemets(), std::nullopt);
    EXPECT_EQ(own->placedElemets(), own->list);
    own->story.clear();
    own->clean();
    EXPECT_EQ(own->story, (Story{"autoHideTimer", "setAutoHideTimer: nothing", "list of 0", "no list"}));
}

/// A bar that shows another view than the one it was made with.
class BorrowingBar : public KivBar {
public:
    std::shared_ptr<UIView> view() const override { return borrowed; }

    std::shared_ptr<UIView> borrowed = make<UIView>();
};

TEST_F(KivBarLayoutTest, SlotsAreThoseOfTheViewThatASubclassGives) {
    const auto borrowing = make<BorrowingBar>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    borrowing->addElementToView(makeComponent(), 1);
    EXPECT_EQ(borrowing->borrowed->subviews().size(), 1U);
    EXPECT_TRUE(borrowing->KivBar::view()->subviews().empty());
    borrowing->updateBarFrameWithFrame(CGRectMake(0.0, 0.0, 480.0, 320.0));
    EXPECT_EQ(borrowing->borrowed->frame(), CGRectMake(0.0, 0.0, 480.0, 40.0));
    EXPECT_EQ(slotFrames(*borrowing), std::vector{CGRectMake(0.0, 0.0, 80.0, 40.0)});
    EXPECT_EQ(borrowing->KivBar::view()->frame(), CGRectMake(0.0, 0.0, 320.0, 40.0));
}

TEST_F(KivBarLayoutTest, AControlIsRememberedWhenItsSlotIsInTheBar) {
    class Remembering : public KivBar {
    public:
        void setElemets(const std::optional<Elemets>& elemets) override {
            slotsThen.push_back(view()->subviews().size());
            KivBar::setElemets(elemets);
        }
        std::vector<std::size_t> slotsThen;
    };
    const auto remembering = make<Remembering>(host.window(), CGRectMake(0.0, 0.0, 320.0, 40.0));
    remembering->addElementToView(makeComponent(), 1);
    remembering->addElementToView(makeComponent(), 1);
    EXPECT_EQ(remembering->slotsThen, (std::vector<std::size_t>{0, 1, 2}));
}

TEST_F(KivBarLayoutTest, SlotsGoIntoTheViewThatTheBarHasNow) {
    const auto other = make<UIView>();
    const auto first = bar->view();
    bar->setView(other);
    bar->addElementToView(makeComponent(), 2);
    EXPECT_EQ(other->subviews().size(), 1U);
    EXPECT_TRUE(first->subviews().empty());
}

// Who holds whom

TEST_F(KivBarLayoutTest, TheBarHoldsItsControlsUntilItIsCleaned) {
    auto component = makeComponent();
    const std::weak_ptr<UIComponent> present = component;
    bar->addElementToView(component, 2);
    component = nullptr;
    EXPECT_FALSE(present.expired());
    bar->clean();
    EXPECT_TRUE(present.expired());
}

TEST_F(KivBarLayoutTest, CleaningBreaksTheCycleOfAnObserverThatOwnsItsControl) {
    auto component = makeComponent();
    auto watcher = make<Watcher>();
    const std::weak_ptr<UIComponent> presentComponent = component;
    const std::weak_ptr<Watcher> presentWatcher = watcher;
    watcher->reaction = [owned = component](const std::string&) {};
    component->setObserver(watcher);
    bar->addElementToView(component, 2);
    component = nullptr;
    watcher = nullptr;
    EXPECT_FALSE(presentComponent.expired());
    bar->clean();
    EXPECT_TRUE(presentComponent.expired());
    EXPECT_TRUE(presentWatcher.expired());
}

} // namespace
