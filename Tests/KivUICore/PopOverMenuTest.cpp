#include "KivUICore/UIComponent/PopOverMenu.h"

#include "Platform/Foundation/NSBundle.h"
#include "Platform/Foundation/NSCoder.h"
#include "Tests/KivUICore/Menus.h"
#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"

#include <limits>

namespace {

using namespace CoreGraphics;
using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UIModalPresentationStyle;
using UIKit::UITableView;
using UIKit::UITableViewCell;
using UIKit::UIView;
using UIKit::UIViewController;

using PopOverMenuTest = MenuTest;
using PopOverMenuDeathTest = PopOverMenuTest;

std::shared_ptr<UITableViewCell> cellFor(PopOverMenu& menu, std::int64_t index) {
    return menu.tableViewCellForRowAtIndexPath(tableOf(menu), row(index));
}

// Construction

/// A root view that writes down what the menu does with it.
class NotingRoot : public UIView {
public:
    Story* story = nullptr;
    void setFrame(const CGRect& frame) override {
        story->push_back("setFrame: " + describe(frame));
        UIView::setFrame(frame);
    }
    void setBackgroundColor(const std::shared_ptr<UIKit::UIColor>& color) override {
        UIView::setBackgroundColor(color);
        story->push_back("setBackgroundColor: " + background(*this));
    }
    void addSubview(const std::shared_ptr<UIView>& view) override {
        story->push_back("addSubview: " + describe(view->frame()));
        UIView::addSubview(view);
    }
};

/// A menu that writes down how it is made, and whether its fields are filled by then.
class NotingMenu : public PopOverMenu {
public:
    Story story;
    bool makesRoot = true;

    void loadView() override {
        note("loadView");
        if (makesRoot) {
            const auto root = make<NotingRoot>();
            root->story = &story;
            setView(root);
        }
    }
    void setModalPresentationStyle(UIModalPresentationStyle style) override {
        note("style " + std::to_string(static_cast<int>(style)));
        PopOverMenu::setModalPresentationStyle(style);
    }
    void setPreferredContentSize(const CGSize& size) override {
        note("size " + KivUICoreTests::describe(CGRect{{}, size}));
        PopOverMenu::setPreferredContentSize(size);
    }
    void setObserver(const std::shared_ptr<UIEventObserver>& observer) override {
        note("setObserver:");
        PopOverMenu::setObserver(observer);
    }
    void setButtons(std::optional<Buttons> buttons) override {
        note("setButtons:");
        PopOverMenu::setButtons(std::move(buttons));
    }
    std::int64_t numberOfSectionsInTableView(const std::shared_ptr<UITableView>& table) override {
        note(table->superview() ? "sections, inside" : "sections");
        return PopOverMenu::numberOfSectionsInTableView(table);
    }
    std::int64_t tableViewNumberOfRowsInSection(const std::shared_ptr<UITableView>& table,
                                                std::int64_t section) override {
        const std::int64_t count = PopOverMenu::tableViewNumberOfRowsInSection(table, section);
        note("rows " + std::to_string(count));
        return count;
    }

private:
    void setTableView(const std::shared_ptr<UITableView>& /*tableView*/) override { note("setTableView:"); }

    void note(const std::string& what) {
        story.push_back(what + (PopOverMenu::observer() && PopOverMenu::buttons() ? "" : " (empty)"));
    }
};

TEST_F(PopOverMenuTest, IsMadeStepByStep) {
    const auto menu = make<NotingMenu>(CGRectMake(10, 20, 200, 300), entries({"a", "b"}), watcher);
    EXPECT_EQ(menu->story, (Story{"loadView (empty)", "setFrame: (10, 20, 200, 300)", "style 7",
                                  "size (0, 0, 200, 300)", "setBackgroundColor: rgba 0.9 0.9 0.9 0.5",
                                  "sections", "rows 2", "addSubview: (10, 20, 200, 300)"}));
}

TEST_F(PopOverMenuTest, HasRootTableAndSizeOfItsFrame) {
    const auto menu = make<PopOverMenu>(CGRectMake(10, 20, 200, 300), entries({"a"}), watcher);
    EXPECT_EQ(menu->view()->frame(), CGRectMake(10, 20, 200, 300));
    const auto table = tableOf(*menu);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->frame(), CGRectMake(10, 20, 200, 300));
    EXPECT_EQ(table->backgroundColor(), nullptr);
    EXPECT_EQ(as<PopOverMenu>(std::shared_ptr<NSObject>(table->delegate(), &table->delegate()->asObject())),
              menu);
    EXPECT_EQ(&table->dataSource()->asObject(), menu.get());
    EXPECT_EQ(menu->preferredContentSize(), (CGSize{200, 300}));
    EXPECT_EQ(menu->modalPresentationStyle(), UIModalPresentationStyle::Popover);
    EXPECT_EQ(background(*menu->view()), "rgba 0.9 0.9 0.9 0.5");
    EXPECT_EQ(menu->observer(), watcher);
    EXPECT_EQ(menu->buttons()->size(), 1U);
    EXPECT_EQ(story, Story());
    EXPECT_EQ(output(), "");
}

TEST_F(PopOverMenuTest, ANegativeSizeIsPreferredAsItsAmount) {
    const auto menu = make<PopOverMenu>(CGRectMake(300, 400, -200, -300), entries({"a"}), watcher);
    EXPECT_EQ(menu->preferredContentSize(), (CGSize{200, 300}));
    EXPECT_EQ(menu->view()->frame(), CGRectMake(300, 400, -200, -300));
    EXPECT_EQ(tableOf(*menu)->frame(), CGRectMake(300, 400, -200, -300));
}

TEST_F(PopOverMenuTest, FromAnArchiveItHasNoTableNoEntriesAndNoObserver) {
    const auto menu = make<PopOverMenu>(make<NSCoder>());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->observer(), nullptr);
    EXPECT_EQ(menu->buttons(), std::nullopt);
    EXPECT_FALSE(menu->isViewLoaded());
    EXPECT_EQ(menu->modalPresentationStyle(), UIModalPresentationStyle::FullScreen);
    menu->setButtons(entries({"a"}));
    EXPECT_EQ(menu->buttons()->size(), 1U);
    EXPECT_EQ(tableOf(*menu), nullptr);
    EXPECT_EQ(menu->tableViewNumberOfRowsInSection(nullptr, 0), 1);
}

TEST_F(PopOverMenuDeathTest, TheNibInitializerAndThePlainOneAreRefused) {
    EXPECT_UNIMPLEMENTED(make<PopOverMenu>(std::optional<std::string>("Menu"), make<NSBundle>()),
                         "init(nibName:bundle:)", "KivUICore.PopOverMenu");
    EXPECT_UNIMPLEMENTED(make<PopOverMenu>(), "init(nibName:bundle:)", "KivUICore.PopOverMenu");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.PopOverMenu")
                             ->alloc()
                             ->send<bool>("initWithNibName:bundle:", std::optional<std::string>(), nullptr),
                         "init(nibName:bundle:)", "KivUICore.PopOverMenu");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.PopOverMenu")->alloc()->send<bool>("init"),
                         "init(nibName:bundle:)", "KivUICore.PopOverMenu");
}

TEST_F(PopOverMenuDeathTest, WithoutARootViewTheProgramStops) {
    class Rootless : public NotingMenu {
    public:
        Rootless() { makesRoot = false; }
    };
    EXPECT_SILENT_STOP(make<Rootless>(CGRectMake(0, 0, 10, 10), PopOverMenu::Buttons(), watcher));
}

// Entries

TEST_F(PopOverMenuTest, EachEntryIsARow) {
    const auto menu = makeMenu({"a", "b", "c"});
    EXPECT_EQ(menu->numberOfSectionsInTableView(nullptr), 1);
    EXPECT_EQ(menu->tableViewNumberOfRowsInSection(nullptr, 0), 3);
    EXPECT_EQ(menu->tableViewNumberOfRowsInSection(nullptr, 7), 3);
    const auto cell = cellFor(*menu, 1);
    EXPECT_EQ(cell->textLabel()->text(), "b");
    EXPECT_EQ(cell->imageView()->image(), (*menu->buttons())[1]->image());
    EXPECT_EQ(cell->reuseIdentifier(), "cell");
}

TEST_F(PopOverMenuTest, TwoRequestsForARowGiveTwoCells) {
    const auto menu = makeMenu({"a"});
    EXPECT_NE(cellFor(*menu, 0), cellFor(*menu, 0));
}

TEST_F(PopOverMenuTest, WithoutTextOrImageARowShowsNone) {
    const auto menu = makeMenu({"a", ""});
    (*menu->buttons())[0]->setText(std::nullopt);
    (*menu->buttons())[0]->setImage(nullptr);
    EXPECT_EQ(cellFor(*menu, 0)->textLabel()->text(), std::nullopt);
    EXPECT_EQ(cellFor(*menu, 0)->imageView()->image(), nullptr);
    EXPECT_EQ(cellFor(*menu, 1)->textLabel()->text(), "");
    EXPECT_NE(cellFor(*menu, 1)->imageView()->image(), nullptr);
}

TEST_F(PopOverMenuTest, NoEntriesAreNoRows) {
    const auto menu = makeMenu({});
    EXPECT_EQ(tableOf(*menu)->numberOfSections(), 1);
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 0);
    show(*menu);
    EXPECT_EQ(menu->view()->frame().size, (CGSize{200, 132}));
    EXPECT_TRUE(tableOf(*menu)->subviews().empty());
}

TEST_F(PopOverMenuTest, AbsentEntriesAreNoRowsEither) {
    const auto menu = makeMenu({"a", "b"});
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 2);
    menu->setButtons(std::nullopt);
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 0);
    const auto cell = cellFor(*menu, 5);
    EXPECT_EQ(cell->textLabel()->text(), std::nullopt);
    EXPECT_EQ(cell->imageView()->image(), nullptr);
}

TEST_F(PopOverMenuTest, KeepsItsOwnSequenceOfSharedEntries) {
    PopOverMenu::Buttons given = entries({"a", "b"});
    const auto menu = make<PopOverMenu>(CGRectMake(0, 0, 200, 132), given, watcher);
    given[0]->setText("changed");
    given.clear();
    EXPECT_EQ(menu->buttons()->size(), 2U);
    EXPECT_EQ(cellFor(*menu, 0)->textLabel()->text(), "changed");
}

TEST_F(PopOverMenuTest, AnEntryMayStandInSeveralMenusAndTwiceInOne) {
    const auto shared = entry("a");
    const auto menu =
        make<PopOverMenu>(CGRectMake(0, 0, 200, 132), PopOverMenu::Buttons{shared, shared}, watcher);
    const auto other = make<PopOverMenu>(CGRectMake(0, 0, 200, 132), PopOverMenu::Buttons{shared}, watcher);
    EXPECT_EQ(cellFor(*menu, 1)->textLabel()->text(), "a");
    EXPECT_EQ(cellFor(*other, 0)->textLabel()->text(), "a");
    show(*menu);
    host.tap(inRow(1));
    host.advance(1.0);
    EXPECT_EQ(story.back(), "onPopOverButtonPress: 1");
    show(*other);
    host.tap(inRow(0));
    EXPECT_EQ(story.back(), "onPopOverButtonPress: 0");
}

TEST_F(PopOverMenuDeathTest, ARowThatIsNotThereStopsTheProgram) {
    const auto menu = makeMenu({"a", "b"});
    EXPECT_SILENT_STOP(cellFor(*menu, 2));
    EXPECT_SILENT_STOP(cellFor(*menu, -1));
    EXPECT_SILENT_STOP(cellFor(*menu, std::numeric_limits<std::int64_t>::max()));
    menu->setButtons(PopOverMenu::Buttons());
    EXPECT_SILENT_STOP(cellFor(*menu, 0));
}

// Changes

TEST_F(PopOverMenuTest, EntriesMayBeGivenOneByOne) {
    const auto menu = makeMenu({"a"});
    const auto play = make<PopOverButton>(nullptr, "play");
    const auto stop = make<PopOverButton>(nullptr, "stop");
    menu->setButtons({play, stop});
    EXPECT_EQ(menu->buttons(), (PopOverMenu::Buttons{play, stop}));
    menu->setButtons({play});
    EXPECT_EQ(menu->buttons(), PopOverMenu::Buttons{play});
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 1);
    menu->setButtons({});
    EXPECT_EQ(menu->buttons(), PopOverMenu::Buttons());
}

TEST_F(PopOverMenuTest, EntriesAreSentAsAListAndNothingTakesThemAway) {
    const auto menu = makeMenu({"a"});
    const auto play = make<PopOverButton>(nullptr, "play");
    menu->send("setButtons:", PopOverMenu::Buttons{play, play});
    EXPECT_EQ(menu->buttons()->size(), 2U);
    EXPECT_EQ(menu->send<PopOverMenu::Buttons>("buttons"), (PopOverMenu::Buttons{play, play}));
    menu->send("setButtons:", nullptr);
    EXPECT_EQ(menu->buttons(), std::nullopt);
    menu->send("setButtons:", std::optional(PopOverMenu::Buttons{play}));
    EXPECT_EQ(menu->buttons()->size(), 1U);

    const auto other = std::static_pointer_cast<PopOverMenu>(PopOverMenu::classObject().alloc());
    EXPECT_TRUE(other->send<bool>("initWithFrame:buttons:observer:", CGRectMake(0, 0, 200, 132),
                                  PopOverMenu::Buttons{play}, nullptr));
    EXPECT_EQ(other->buttons()->size(), 1U);
}

TEST_F(PopOverMenuTest, EveryStoreReloadsOnceWhetherShownOrNot) {
    const auto menu = make<NotingMenu>(CGRectMake(0, 0, 200, 132), entries({"a"}), watcher);
    for (const bool shown : {false, true}) {
        if (shown) {
            show(*menu);
        }
        menu->setButtons(entries({"a"}));
        menu->story.clear();
        menu->setButtons(entries({"a", "b"}));
        EXPECT_EQ(menu->story, (Story{"setButtons:", "sections, inside", "rows 2"}));
        menu->story.clear();
        menu->setButtons(std::nullopt);
        EXPECT_EQ(menu->story, (Story{"setButtons:", "sections, inside (empty)", "rows 0 (empty)"}));
    }
}

TEST_F(PopOverMenuTest, OneChangeInPlaceReloadsOnceWhateverItDoes) {
    const auto menu = make<NotingMenu>(CGRectMake(0, 0, 200, 132), entries({"a", "b"}), watcher);
    menu->story.clear();
    menu->changeButtons([](std::optional<PopOverMenu::Buttons>& buttons) {
        buttons->push_back(entry("c"));
        buttons->push_back(entry("d"));
        buttons->erase(buttons->begin());
    });
    EXPECT_EQ(menu->story, (Story{"setButtons:", "sections, inside", "rows 3"}));
    EXPECT_EQ(cellFor(*menu, 2)->textLabel()->text(), "d");
    menu->changeButtons([](std::optional<PopOverMenu::Buttons>& buttons) { buttons.reset(); });
    EXPECT_EQ(menu->buttons(), std::nullopt);
    menu->story.clear();
    menu->changeButtons([](std::optional<PopOverMenu::Buttons>& /*buttons*/) {});
    EXPECT_EQ(menu->story.size(), 3U);
}

TEST_F(PopOverMenuTest, AnEntrysOwnChangeShowsWithTheNextReload) {
    const auto menu = makeMenu({"a"});
    show(*menu);
    const auto shownText = [&] { return tableOf(*menu)->cellForRowAtIndexPath(row(0))->textLabel()->text(); };
    (*menu->buttons())[0]->setText("b");
    EXPECT_EQ(shownText(), "a");
    menu->changeButtons([](std::optional<PopOverMenu::Buttons>&) {});
    EXPECT_EQ(shownText(), "b");
}

// Held and let go

TEST_F(PopOverMenuTest, HoldsItsObserverTableAndEntriesAndLetsThemGoAtItsEnd) {
    auto observer = make<Watcher>();
    PopOverMenu::Buttons buttons = entries({"a"});
    const std::weak_ptr<Watcher> presentObserver = observer;
    const std::weak_ptr<PopOverButton> presentEntry = buttons[0];
    auto menu = make<PopOverMenu>(CGRectMake(0, 0, 200, 132), std::move(buttons), observer);
    const std::weak_ptr<UITableView> presentTable = tableOf(*menu);
    observer = nullptr;
    show(*menu);
    menu->dismissViewControllerAnimated(false, nullptr);
    EXPECT_FALSE(presentObserver.expired() || presentEntry.expired() || presentTable.expired());
    menu = nullptr;
    EXPECT_TRUE(presentObserver.expired() && presentEntry.expired() && presentTable.expired());
}

TEST_F(PopOverMenuTest, GoesCleanlyWithTheViewsThatItIsShownOver) {
    const auto menu = makeMenu({"a", "b"});
    show(*menu);
    controller->view()->removeFromSuperview();
    EXPECT_TRUE(host.window()->subviews().empty());
    EXPECT_EQ(controller->presentedViewController(), nullptr);
    host.advance(1.0);
    EXPECT_EQ(story, Story{"popOverShouldPresent"});
}

// By name

TEST_F(PopOverMenuTest, AddsJustItsOperationsToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(PopOverMenu::classObject()),
              (std::set<std::string>{
                  "observer", "setObserver:", "buttons",
                  "setButtons:", "initWithFrame:buttons:observer:", "showPopOver:overViewController:color:",
                  "numberOfSectionsInTableView:", "tableView:numberOfRowsInSection:",
                  "tableView:cellForRowAtIndexPath:", "tableView:didSelectRowAtIndexPath:",
                  "prepareForPopoverPresentation:", "popoverPresentationControllerDidDismissPopover:",
                  "adaptivePresentationStyleForPresentationController:"}));
    EXPECT_EQ(PopOverMenu::classObject().superclass(), &UIViewController::classObject());
    EXPECT_FALSE(makeMenu({})->respondsToSelector("tableView"));
    EXPECT_FALSE(makeMenu({})->respondsToSelector("setTableView:"));
}

TEST_F(PopOverMenuTest, IsMadeAndWorkedByName) {
    const std::shared_ptr<NSObject> menu = Class::named("KivUICore.PopOverMenu")->alloc();
    ASSERT_TRUE(menu->send<bool>("initWithFrame:buttons:observer:", CGRectMake(0, 0, 200, 132),
                                 entries({"a", "b"}), watcher));
    EXPECT_EQ(menu->send<std::shared_ptr<UIEventObserver>>("observer"), watcher);
    menu->send("setButtons:", std::optional<PopOverMenu::Buttons>(entries({"a"})));
    EXPECT_EQ(menu->send<std::optional<PopOverMenu::Buttons>>("buttons")->size(), 1U);
    menu->send("showPopOver:overViewController:color:", anchor, controller, nullptr);
    EXPECT_EQ(story, Story{"popOverShouldPresent"});
    const auto table = make<UITableView>();
    EXPECT_EQ(menu->send<int>("numberOfSectionsInTableView:", table), 1);
    EXPECT_EQ(menu->send<int>("tableView:numberOfRowsInSection:", table, 0), 1);
    EXPECT_EQ(menu->send<std::shared_ptr<UITableViewCell>>("tableView:cellForRowAtIndexPath:", table, row(0))
                  ->textLabel()
                  ->text(),
              "a");
    EXPECT_EQ(menu->send<int>("adaptivePresentationStyleForPresentationController:", nullptr), -1);
    menu->send("tableView:didSelectRowAtIndexPath:", table, row(0));
    EXPECT_EQ(story.back(), "onPopOverButtonPress: 0");
    menu->send("popoverPresentationControllerDidDismissPopover:", nullptr);
    EXPECT_EQ(story.back(), "onPopOverDismiss");
    const auto restored = Class::named("KivUICore.PopOverMenu")->alloc();
    EXPECT_TRUE(restored->send<bool>("initWithCoder:", make<NSCoder>()));
}

// Overriding

TEST_F(PopOverMenuTest, ItsOperationsAreOverridableInTheirOrder) {
    const auto first = slotOf(&PopOverMenu::observer);
    ASSERT_TRUE(first);
    std::size_t slot = *first;
    EXPECT_EQ(slotOf(&PopOverMenu::setObserver), ++slot);
    // The table's getter and setter, which only the menu itself can name.
    slot += 2;
    EXPECT_EQ(slotOf(&PopOverMenu::buttons), ++slot);
    EXPECT_EQ(
        slotOf(Foundation::overload<void(std::optional<PopOverMenu::Buttons>)>(&PopOverMenu::setButtons)),
        ++slot);
    using Init =
        bool (PopOverMenu::*)(const CGRect&, PopOverMenu::Buttons, const std::shared_ptr<UIEventObserver>&);
    EXPECT_EQ(slotOf(static_cast<Init>(&PopOverMenu::init)), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::showPopOver), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::numberOfSectionsInTableView), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::tableViewNumberOfRowsInSection), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::tableViewCellForRowAtIndexPath), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::tableViewDidSelectRowAtIndexPath), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::prepareForPopoverPresentation), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::popoverPresentationControllerDidDismissPopover), ++slot);
    EXPECT_EQ(slotOf(&PopOverMenu::adaptivePresentationStyleForPresentationController), ++slot);
    EXPECT_FALSE(slotOf(&PopOverMenu::changeButtons));
}

/// A menu with another observer, other entries and another table than it was given.
class OverridingMenu : public PopOverMenu {
public:
    std::shared_ptr<Watcher> otherObserver;
    std::optional<Buttons> otherButtons;
    std::shared_ptr<UITableView> otherTable;

    std::shared_ptr<UIEventObserver> observer() const override { return otherObserver; }
    const std::optional<Buttons>& buttons() const override { return otherButtons; }

private:
    std::shared_ptr<UITableView> tableView() const override { return otherTable; }
};

class LoudButton : public PopOverButton {
public:
    const std::optional<std::string>& text() const override { return loud_; }
    std::shared_ptr<UIKit::UIImage> image() const override { return nullptr; }

private:
    std::optional<std::string> loud_ = "LOUD";
};

TEST_F(PopOverMenuTest, ReadsObserverEntriesAndTheirContentsThroughTheirGetters) {
    Story others;
    const auto menu = make<OverridingMenu>(CGRectMake(0, 0, 200, 132), entries({"a", "b"}), watcher);
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 0);
    menu->otherObserver = make<Watcher>(others);
    menu->otherButtons = PopOverMenu::Buttons{make<LoudButton>(imageOf({1.0, 1.0}), "quiet")};
    tableOf(*menu)->reloadData();
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 1);
    EXPECT_EQ(cellFor(*menu, 0)->textLabel()->text(), "LOUD");
    EXPECT_EQ(cellFor(*menu, 0)->imageView()->image(), nullptr);
    show(*menu);
    host.tap(inRow(0));
    host.advance(1.0);
    EXPECT_EQ(others, (Story{"popOverShouldPresent", "onPopOverButtonPress: 0"}));
    EXPECT_EQ(story, Story());
}

TEST_F(PopOverMenuTest, TheChangeHookReadsTheTableThroughItsGetter) {
    const auto menu = make<OverridingMenu>(CGRectMake(0, 0, 200, 132), entries({"a"}), watcher);
    menu->otherButtons = entries({"a", "b", "c"});
    const auto table = make<UITableView>();
    table->setDataSource(menu);
    menu->otherTable = table;
    menu->setButtons(std::nullopt);
    EXPECT_EQ(table->numberOfRowsInSection(0), 3);
    EXPECT_EQ(tableOf(*menu)->numberOfRowsInSection(0), 0);
}

TEST_F(PopOverMenuTest, TheTableIsAskedOfASubclassInsteadWhereItOverrides) {
    class Sectioned : public PopOverMenu {
    public:
        std::int64_t numberOfSectionsInTableView(const std::shared_ptr<UITableView>& /*table*/) override {
            return 2;
        }
    };
    const auto menu = make<Sectioned>(CGRectMake(0, 0, 200, 132), entries({"a"}), watcher);
    EXPECT_EQ(tableOf(*menu)->numberOfSections(), 2);
}

} // namespace
