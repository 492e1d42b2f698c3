#include "KivUICore/UIComponent/PopOverMenu.h"
#include "Platform/UIKit/UIKey.h"
#include "Tests/KivUICore/Menus.h"

#include <iomanip>
#include <iostream>
#include <utility>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIModalPresentationStyle;
using UIKit::UITableView;
using UIKit::UIView;
using UIKit::UIViewController;

constexpr const char* prepareLine = "pop over prepare for presentation\n";
constexpr const char* dismissLine = "pop did dismiss\n";

using PopOverMenuShowingTest = MenuTest;

/// A pop-over that writes down how it is set up.
class NotingPopover : public UIKit::UIPopoverPresentationController {
public:
    Story story;
    void
    setDelegate(const std::shared_ptr<UIKit::UIPopoverPresentationControllerDelegate>& delegate) override {
        story.push_back("delegate " + delegate->asObject().isa().name());
        UIPopoverPresentationController::setDelegate(delegate);
    }
    void setPermittedArrowDirections(UIKit::UIPopoverArrowDirection directions) override {
        story.push_back("arrows " + std::to_string(directions));
    }
    void setSourceView(const std::shared_ptr<UIView>& view) override {
        story.push_back("source " + describe(view->frame()));
    }
    void setSourceRect(const CGRect& rect) override { story.push_back("rect " + describe(rect)); }
    void setBackgroundColor(const std::shared_ptr<UIKit::UIColor>& given) override {
        story.push_back(given ? "colour" : "no colour");
        color = given;
    }
    std::shared_ptr<UIKit::UIColor> color;
};

class NotingPopoverMenu : public PopOverMenu {
public:
    std::shared_ptr<NotingPopover> popover;
    std::shared_ptr<UIKit::UIPopoverPresentationController> popoverPresentationController() override {
        return popover;
    }
};

class NotingController : public UIViewController {
public:
    Story* story = nullptr;
    std::shared_ptr<UIViewController> shown;
    void presentViewController(const std::shared_ptr<UIViewController>& presented, bool animated,
                               std::function<void()> completion) override {
        shown = presented;
        story->push_back(std::string("present ") + (animated ? "animated" : "at once") +
                         (completion ? " and complete" : ""));
    }
};

class PopOverMenuSetUpTest : public MenuTest {
protected:
    PopOverMenuSetUpTest() {
        menu->popover = make<NotingPopover>(std::shared_ptr<UIViewController>(menu));
        presenter->story = &menu->popover->story;
    }

    std::shared_ptr<NotingPopoverMenu> menu =
        make<NotingPopoverMenu>(CGRectMake(0, 0, 200, 132), entries({"a"}), watcher);
    std::shared_ptr<NotingController> presenter = make<NotingController>();
    std::shared_ptr<UIView> button = make<UIView>(CGRectMake(50, 60, 44, 30));
};

TEST_F(PopOverMenuSetUpTest, SetsThePopoverUpAndThenPresentsTheMenu) {
    const auto color = make<UIKit::UIColor>(1.0, 1.0);
    menu->showPopOver(button, presenter, color);
    EXPECT_EQ(menu->popover->story,
              (Story{"delegate KivUICore.PopOverMenu", "arrows 3", "source (50, 60, 44, 30)",
                     "rect (0, 0, 44, 30)", "colour", "present animated"}));
    EXPECT_EQ(menu->popover->color, color);
    EXPECT_EQ(presenter->shown, menu);
}

TEST_F(PopOverMenuSetUpTest, AnAbsentColourIsPassedOnAsAbsent) {
    menu->popover->color = make<UIKit::UIColor>(1.0, 1.0);
    menu->showPopOver(button, presenter, nullptr);
    EXPECT_EQ(menu->popover->color, nullptr);
}

TEST_F(PopOverMenuSetUpTest, OverNothingItIsSetUpAllTheSameAndNothingIsPresented) {
    menu->showPopOver(button, nullptr, nullptr);
    EXPECT_EQ(menu->popover->story.size(), 5U);
    EXPECT_EQ(story, Story());
    EXPECT_EQ(output(), "");
}

TEST_F(PopOverMenuSetUpTest, WithoutAPopoverItIsPresentedAllTheSame) {
    menu->popover = nullptr;
    Story presentation;
    presenter->story = &presentation;
    menu->showPopOver(button, presenter, nullptr);
    EXPECT_EQ(presentation, Story{"present animated"});
}

TEST_F(PopOverMenuShowingTest, AnotherStyleIsPresentedWithoutAPopover) {
    const auto menu = makeMenu({"a"});
    menu->setModalPresentationStyle(UIModalPresentationStyle::FullScreen);
    show(*menu);
    EXPECT_TRUE(isShown(*menu));
    EXPECT_EQ(menu->view()->frame(), host.window()->bounds());
    EXPECT_EQ(story, Story());
    EXPECT_EQ(output(), "");
}

TEST_F(PopOverMenuShowingTest, EveryPresentationWritesItsLineAndTellsBeforeAnythingCanBeChosen) {
    const auto menu = makeMenu({"a", "b"});
    for (int time = 0; time < 3; ++time) {
        story.clear();
        watcher->reaction = [&](const std::string& operation) {
            if (operation == "popOverShouldPresent") {
                EXPECT_FALSE(isShown(*menu));
                EXPECT_EQ(output(), prepareLine);
            }
        };
        show(*menu);
        EXPECT_EQ(story, Story{"popOverShouldPresent"});
        EXPECT_EQ(output(), "");
        EXPECT_EQ(tableOf(*menu)->subviews().size(), 2U);
        host.tap(inRow(0));
        host.advance(1.0);
        EXPECT_FALSE(isShown(*menu));
    }
}

TEST_F(PopOverMenuShowingTest, AsAnAnswerItStaysAPopoverInTheSmallestWindow) {
    const auto menu = makeMenu({"a", "b"});
    EXPECT_EQ(menu->adaptivePresentationStyleForPresentationController(nullptr),
              UIModalPresentationStyle::None);
    host.window()->setFrame(CGRectMake(0, 0, 100, 100));
    show(*menu);
    EXPECT_LT(menu->view()->frame().size.width, 100.0);
}

TEST_F(PopOverMenuShowingTest, AMenuThatIsTooHighIsMadeSmallerAndScrolls) {
    std::vector<std::string> texts(200);
    for (std::size_t index = 0; index < texts.size(); ++index) {
        texts[index] = "Track " + std::to_string(index);
    }
    const auto menu = make<PopOverMenu>(CGRectMake(0, 0, 200, 8800), entries(texts), watcher);
    show(*menu);
    EXPECT_EQ(menu->view()->frame().size.height, 360.0 - 10.0 - 52.0);
    EXPECT_EQ(tableOf(*menu)->frame().size.height, 360.0 - 10.0 - 52.0);
    EXPECT_LT(tableOf(*menu)->subviews().size(), 10U);
    host.window()->sendScroll(inRow(1), {0.0, -1e6});
    host.tap(inRow(6));
    EXPECT_EQ(story.back(), "onPopOverButtonPress: 199");
}

// Choosing

TEST_F(PopOverMenuShowingTest, AChoiceIsReportedThenTheMenuClosesAndNoDismissalFollows) {
    const auto menu = makeMenu({"a", "b", "c"});
    show(*menu);
    host.advance(1.0);
    output();
    watcher->reaction = [&](const std::string&) {
        EXPECT_TRUE(isShown(*menu));
        EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
    };
    host.tap(inRow(2));
    EXPECT_EQ(story, (Story{"popOverShouldPresent", "onPopOverButtonPress: 2"}));
    EXPECT_TRUE(isShown(*menu));
    host.advance(1.0);
    EXPECT_FALSE(isShown(*menu));
    EXPECT_EQ(story.size(), 2U);
    EXPECT_EQ(output(), "");
    EXPECT_EQ(tableOf(*menu)->indexPathForSelectedRow(), nullptr);
}

/// A table and a menu that write down the end of a choice.
class NotingTable : public UITableView {
public:
    Story* story = nullptr;
    void deselectRowAtIndexPath(const std::shared_ptr<NSIndexPath>& indexPath, bool animated) override {
        story->push_back("deselect " + std::to_string(indexPath->row()) + (animated ? " animated" : ""));
    }
};

class NotingChoiceMenu : public PopOverMenu {
public:
    Story* story = nullptr;
    void dismissViewControllerAnimated(bool animated, std::function<void()> completion) override {
        story->push_back(std::string("dismiss") + (animated ? " animated" : "") +
                         (completion ? " and complete" : ""));
    }
};

TEST_F(PopOverMenuShowingTest, AChoiceIsToldThenDismissesThenDeselectsInTheTableThatReportedIt) {
    const auto menu = make<NotingChoiceMenu>(CGRectMake(0, 0, 200, 132), entries({"a", "b", "c"}), watcher);
    menu->story = &story;
    const auto table = make<NotingTable>();
    table->story = &story;
    menu->tableViewDidSelectRowAtIndexPath(table, row(2));
    EXPECT_EQ(story, (Story{"onPopOverButtonPress: 2", "dismiss animated", "deselect 2 animated"}));
    story.clear();
    menu->setObserver(nullptr);
    menu->tableViewDidSelectRowAtIndexPath(table, row(1));
    EXPECT_EQ(story, (Story{"dismiss animated", "deselect 1 animated"}));
}

TEST_F(PopOverMenuShowingTest, TheKeyboardChooses) {
    const auto menu = makeMenu({"a", "b", "c"});
    show(*menu);
    for (const auto code : {UIKit::UIKeyboardHIDUsage::DownArrow, UIKit::UIKeyboardHIDUsage::DownArrow,
                            UIKit::UIKeyboardHIDUsage::ReturnOrEnter}) {
        EXPECT_TRUE(host.window()->sendKey({code, "", false}));
    }
    EXPECT_EQ(story.back(), "onPopOverButtonPress: 1");
    host.advance(1.0);
    EXPECT_FALSE(isShown(*menu));
    EXPECT_FALSE(host.window()->sendKey({UIKit::UIKeyboardHIDUsage::DownArrow, "", false}));
}

// Closing from outside

TEST_F(PopOverMenuShowingTest, ATouchOutsideWritesItsLineAndTellsOfTheDismissal) {
    const auto menu = makeMenu({"a", "b"});
    show(*menu);
    host.advance(1.0);
    output();
    host.tap(outside);
    host.advance(1.0);
    EXPECT_FALSE(isShown(*menu));
    EXPECT_EQ(output(), dismissLine);
    EXPECT_EQ(story, (Story{"popOverShouldPresent", "onPopOverDismiss"}));
}

TEST_F(PopOverMenuShowingTest, EscapeDoesWhatATouchOutsideDoes) {
    const auto menu = makeMenu({"a", "b"});
    show(*menu);
    output();
    EXPECT_TRUE(host.window()->sendKey({UIKit::UIKeyboardHIDUsage::Escape, "", false}));
    host.advance(1.0);
    EXPECT_EQ(output(), dismissLine);
    EXPECT_EQ(story.back(), "onPopOverDismiss");
}

TEST_F(PopOverMenuShowingTest, ClosedFromOutsideInMidPressItTellsOfNoChoice) {
    const auto menu = makeMenu({"a", "b", "c"});
    show(*menu);
    host.advance(1.0);
    story.clear();
    host.touchDown(inRow(1), 1);
    host.touchDown(outside, 2);
    host.touchUp(inRow(1), 1);
    host.touchUp(outside, 2);
    host.advance(1.0);
    EXPECT_EQ(story, Story{"onPopOverDismiss"});
}

TEST_F(PopOverMenuShowingTest, WithoutAnObserverTheLinesAreWrittenAllTheSame) {
    const auto menu = makeMenu({"a", "b"});
    menu->setObserver(nullptr);
    show(*menu);
    host.tap(outside);
    host.advance(1.0);
    EXPECT_EQ(output(), std::string(prepareLine) + dismissLine);
    EXPECT_EQ(story, Story());
    show(*menu);
    host.tap(inRow(0));
    host.advance(1.0);
    EXPECT_FALSE(isShown(*menu));
}

TEST_F(PopOverMenuShowingTest, ItsLinesAreWrittenAsTheyAreWhateverTheStreamIsSetTo) {
    const auto menu = makeMenu({"a", "b"});
    std::cout << std::setfill('*') << std::setw(60) << std::right;
    show(*menu);
    EXPECT_EQ(output(), prepareLine);
    std::cout << std::setw(60);
    host.tap(outside);
    host.advance(1.0);
    EXPECT_EQ(output(), dismissLine);
    std::cout << std::setfill(' ') << std::setw(0);
    std::cout.setstate(std::ios::badbit);
    show(*menu);
    host.tap(outside);
    host.advance(1.0);
    std::cout.clear();
    EXPECT_EQ(output(), std::string(prepareLine) + dismissLine);
}

TEST_F(PopOverMenuShowingTest, ItsLinesKeepTheirPlaceAmongWhatTheProgramWrites) {
    const auto menu = makeMenu({"a", "b"});
    std::cout << "before\n";
    show(*menu);
    std::cout << "after" << std::endl;
    EXPECT_EQ(output(), std::string("before\n") + prepareLine + "after\n");
}

TEST_F(PopOverMenuShowingTest, AChoiceMayLetGoOfTheTableAndTheRowThatItWasToldWith) {
    const auto menu = make<NotingChoiceMenu>(CGRectMake(0, 0, 200, 132), entries({"a", "b", "c"}), watcher);
    menu->story = &story;
    auto noting = make<NotingTable>();
    noting->story = &story;
    std::shared_ptr<UITableView> table = std::move(noting);
    std::shared_ptr<NSIndexPath> path = row(2);
    watcher->reaction = [&](const std::string& /*operation*/) {
        table = nullptr;
        path = nullptr;
    };
    menu->tableViewDidSelectRowAtIndexPath(table, path);
    EXPECT_EQ(story, (Story{"onPopOverButtonPress: 2", "dismiss animated", "deselect 2 animated"}));
}

TEST_F(PopOverMenuSetUpTest, WhatItIsShownWithMayBeLetGoMeanwhile) {
    class Distracting : public NotingPopover {
    public:
        std::function<void()> onArrows;
        void setPermittedArrowDirections(UIKit::UIPopoverArrowDirection directions) override {
            NotingPopover::setPermittedArrowDirections(directions);
            onArrows();
        }
    };
    const auto distracting = make<Distracting>(std::shared_ptr<UIViewController>(menu));
    menu->popover = distracting;
    presenter->story = &distracting->story;
    std::shared_ptr<UIViewController> over = std::move(presenter);
    auto color = make<UIKit::UIColor>(1.0, 0.5);
    distracting->onArrows = [&] {
        button = nullptr;
        over = nullptr;
        color = nullptr;
    };
    menu->showPopOver(button, over, color);
    EXPECT_EQ(distracting->story,
              (Story{"delegate KivUICore.PopOverMenu", "arrows 3", "source (50, 60, 44, 30)",
                     "rect (0, 0, 44, 30)", "colour", "present animated"}));
}

} // namespace
