#include "Platform/UIKit/UITableView.h"

#include "Platform/UIKit/UIKey.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/CoreGraphics/Values.h"
#include "Tests/UIKit/NullContext.h"
#include "Tests/UIKit/TableTestSupport.h"
#include "Tests/UIKit/TestViews.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <utility>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using Foundation::NSIndexPath;
using testing::ElementsAre;
using testing::IsEmpty;

/// A table of four and a half rows in sight, at (10, 20).
class UITableViewTest : public testing::Test {
protected:
    void show(std::vector<std::int64_t> counts) {
        source->counts = std::move(counts);
        table->setDataSource(source);
        table->setDelegate(source);
        table->reloadData();
        host.window()->addSubview(table);
        source->log.clear();
    }

    std::vector<std::string> shownRows() const {
        std::vector<std::pair<CGFloat, std::string>> rows;
        for (const auto& view : table->subviews()) {
            if (const auto cell = Foundation::as<UITableViewCell>(view)) {
                rows.emplace_back(cell->frame().origin.y, cell->textLabel()->text().value_or("-"));
            }
        }
        std::sort(rows.begin(), rows.end());
        std::vector<std::string> names(rows.size());
        std::transform(rows.begin(), rows.end(), names.begin(), [](const auto& each) { return each.second; });
        return names;
    }

    std::shared_ptr<UITableViewCell> cell(std::int64_t row, std::int64_t section = 0) const {
        return table->cellForRowAtIndexPath(make<NSIndexPath>(row, section));
    }

    /// A point in a row as it lies when nothing is scrolled.
    static CGPoint inRow(int row) { return {50.0, 20.0 + 44.0 * row + 22.0}; }

    bool press(UIKeyboardHIDUsage code) { return table->keyPressed({code, "", false}); }

    std::vector<std::int64_t> highlighted() const {
        std::vector<std::int64_t> rows;
        for (std::int64_t row = 0; row < table->numberOfRowsInSection(0); ++row) {
            if (cell(row) && cell(row)->isHighlighted()) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    KivUICore::Headless::HeadlessHost host{{300, 300}};
    std::shared_ptr<ListSource> source = makeSource({});
    std::shared_ptr<UITableView> table =
        make<UITableView>(CGRectMake(10, 20, 200, 198), UITableViewStyle::Plain);
};

using UITableViewDeathTest = UITableViewTest;

// Rows

TEST_F(UITableViewTest, AsksForSectionsAndRowsAtOnceAndForCellsWhenItIsInAWindow) {
    source->counts = {2};
    table->setDataSource(source);
    EXPECT_THAT(source->log, IsEmpty());
    table->reloadData();
    EXPECT_THAT(source->log, ElementsAre("sections", "rows 0"));
    EXPECT_EQ(table->numberOfSections(), 1);
    EXPECT_EQ(table->numberOfRowsInSection(0), 2);
    host.window()->addSubview(table);
    EXPECT_THAT(source->log, ElementsAre("sections", "rows 0", "cell 0.0", "cell 0.1"));
    EXPECT_EQ(cell(1)->frame(), CGRectMake(0, 44, 200, 44));
}

TEST_F(UITableViewTest, AsksWithoutAReloadWhenItComesIntoAWindowFirst) {
    source->counts = {1};
    table->setDataSource(source);
    host.window()->addSubview(table);
    EXPECT_THAT(source->log, ElementsAre("sections", "rows 0", "cell 0.0"));
}

TEST_F(UITableViewTest, AsksForTheCellsInSightAloneHoweverManyRowsThereAre) {
    for (const std::int64_t count : {10, 10'000, 1'000'000}) {
        show({count});
        EXPECT_THAT(shownRows(), ElementsAre("0.0", "0.1", "0.2", "0.3", "0.4"));
        table->setContentOffset(44.0 * 3.0);
        EXPECT_THAT(source->log, ElementsAre("cell 0.5", "cell 0.6", "cell 0.7"));
        EXPECT_THAT(shownRows(), ElementsAre("0.3", "0.4", "0.5", "0.6", "0.7"));
        table->removeFromSuperview();
        table->setContentOffset(0.0);
    }
}

TEST_F(UITableViewTest, AMillionRowsTakeNoMoreRoomThanTen) {
    const auto bytesFor = [this](std::int64_t count) {
        const auto made = make<UITableView>(CGRectMake(0, 0, 200, 198));
        source->counts = {count};
        made->setDataSource(source);
        const std::size_t before = allocationCount();
        host.window()->addSubview(made);
        source->log.clear();
        const auto allocations = allocationCount() - before;
        made->removeFromSuperview();
        return allocations;
    };
    bytesFor(10);
    EXPECT_EQ(bytesFor(10), bytesFor(1'000'000));
}

TEST_F(UITableViewTest, RowsOfSeveralSectionsFollowEachOther) {
    show({2, 0, 2});
    EXPECT_THAT(shownRows(), ElementsAre("0.0", "0.1", "2.0", "2.1"));
    EXPECT_EQ(cell(1, 2)->frame().origin.y, 132.0);
    host.tap(inRow(2));
    EXPECT_THAT(source->log, ElementsAre("chose 2.0"));
    EXPECT_EQ(table->indexPathForSelectedRow()->section(), 2);
}

/// A source that says nothing of sections.
class PlainSource : public Foundation::Adopting<Foundation::NSObject, UITableViewDataSource> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<PlainSource, NSObject>("Test.PlainSource")
                .adopts<UITableViewDataSource>()
                .build();
        return object;
    }
    std::int64_t tableViewNumberOfRowsInSection(const std::shared_ptr<UITableView>& /*table*/,
                                                std::int64_t section) override {
        return section == 0 ? 3 : 100;
    }
    std::shared_ptr<UITableViewCell>
    tableViewCellForRowAtIndexPath(const std::shared_ptr<UITableView>& /*table*/,
                                   const std::shared_ptr<NSIndexPath>& /*path*/) override {
        return make<UITableViewCell>();
    }
};

TEST_F(UITableViewTest, WithoutAWordOfSectionsThereIsOne) {
    const auto plain = make<PlainSource>();
    table->setDataSource(plain);
    host.window()->addSubview(table);
    EXPECT_EQ(table->numberOfSections(), 1);
    EXPECT_EQ(table->subviews().size(), 3U);
}

TEST_F(UITableViewTest, WithoutADataSourceItIsEmpty) {
    host.window()->addSubview(table);
    table->reloadData();
    EXPECT_EQ(table->numberOfSections(), 0);
    EXPECT_THAT(table->subviews(), IsEmpty());
    host.tap(inRow(0));
    EXPECT_FALSE(press(UIKeyboardHIDUsage::DownArrow));
    EXPECT_FALSE(table->scrollBy({0, -10}));
}

TEST_F(UITableViewTest, HoldsNeitherDataSourceNorDelegate) {
    show({100});
    const std::weak_ptr<ListSource> weak = source;
    source = nullptr;
    EXPECT_TRUE(weak.expired());
    EXPECT_EQ(table->dataSource(), nullptr);
    EXPECT_EQ(table->delegate(), nullptr);
    EXPECT_EQ(shownRows().size(), 5U);
    table->setContentOffset(88.0);
    EXPECT_EQ(shownRows().size(), 3U);
    host.tap(inRow(0));
    table->reloadData();
    EXPECT_THAT(shownRows(), IsEmpty());
}

TEST_F(UITableViewTest, DrawsNoBackgroundOfItsOwn) {
    host.window()->addSubview(table);
    host.window()->setNeedsDisplayEverywhere();
    const auto drawing = host.draw();
    for (const CGDrawing::Operation& each : drawing->operations()) {
        EXPECT_FALSE(std::holds_alternative<CGDrawing::FillRect>(each));
    }
}

// Reloading

TEST_F(UITableViewTest, AReloadAsksForEverythingAnew) {
    show({3});
    const auto before = cell(0);
    source->counts = {2};
    table->reloadData();
    EXPECT_THAT(source->log, ElementsAre("sections", "rows 0", "cell 0.0", "cell 0.1"));
    EXPECT_NE(cell(0), before);
    EXPECT_EQ(before->superview(), nullptr);
    EXPECT_EQ(shownRows().size(), 2U);
}

TEST_F(UITableViewTest, CellsAreKeptWhileTheTableIsOutOfTheWindow) {
    show({3});
    const auto before = cell(0);
    table->removeFromSuperview();
    host.window()->addSubview(table);
    EXPECT_THAT(source->log, IsEmpty());
    EXPECT_EQ(cell(0), before);
}

TEST_F(UITableViewTest, ShrinkingContentScrollsBackToItsEnd) {
    show({100});
    table->setContentOffset(1000.0);
    source->counts = {6};
    table->reloadData();
    EXPECT_EQ(table->contentOffset(), 6 * 44.0 - 198.0);
    EXPECT_THAT(shownRows(), ElementsAre("0.1", "0.2", "0.3", "0.4", "0.5"));
    source->counts = {1};
    table->reloadData();
    EXPECT_EQ(table->contentOffset(), 0.0);
}

TEST_F(UITableViewTest, ADataSourceThatChangesInMidReloadShowsWhatItHasAtLast) {
    show({3});
    for (const char* moment : {"sections", "rows 0", "cell 0.0", "cell 0.1"}) {
        SCOPED_TRACE(moment);
        source->counts = {3};
        bool isFirst = true;
        source->onCall = [&](const std::string& what) {
            if (what == moment && std::exchange(isFirst, false)) {
                source->counts = {2};
                table->reloadData();
            }
        };
        table->reloadData();
        EXPECT_THAT(shownRows(), ElementsAre("0.0", "0.1"));
        source->onCall = nullptr;
    }
}

TEST_F(UITableViewTest, ADataSourceThatReloadsAtEveryAnswerEndsAllTheSame) {
    show({3});
    source->onCall = [&](const std::string&) { table->reloadData(); };
    table->reloadData();
    EXPECT_LT(source->log.size(), 20U);
    source->onCall = nullptr;
    table->reloadData();
    EXPECT_THAT(shownRows(), ElementsAre("0.0", "0.1", "0.2"));
}

TEST_F(UITableViewTest, ADataSourceThatScrollsAtEveryAnswerEndsAllTheSame) {
    show({100});
    source->onCall = [&](const std::string&) { table->setContentOffset(table->contentOffset() + 500.0); };
    table->reloadData();
    source->onCall = nullptr;
    table->reloadData();
    EXPECT_EQ(shownRows().size(), 6U);
}

TEST_F(UITableViewTest, ADataSourceMayDieInMidReload) {
    for (const char* moment : {"sections", "rows 0", "cell 0.0", "cell 0.1"}) {
        SCOPED_TRACE(moment);
        source = makeSource({});
        show({3});
        std::weak_ptr<ListSource> weak = source;
        source->onCall = [&, weak, moment](const std::string& what) {
            if (what == moment) {
                source = nullptr;
            }
        };
        table->reloadData();
        EXPECT_TRUE(weak.expired());
        EXPECT_EQ(source, nullptr);
        table->reloadData();
        EXPECT_THAT(shownRows(), IsEmpty());
        table->removeFromSuperview();
    }
}

/// A table that says when it goes. Watched otherwise, its memory would stay, and use of it go unnoticed.
class MortalTable : public UITableView {
public:
    bool* isGone = nullptr;

protected:
    void dealloc() override {
        *isGone = true;
        UITableView::dealloc();
    }
};

TEST_F(UITableViewTest, AnyAnswerMayTearTheTableDown) {
    for (const std::string moment : {"sections", "rows 0", "cell 0.0", "chose 0.0"}) {
        SCOPED_TRACE(moment);
        bool isGone = false;
        source = makeSource({});
        auto mortal = make<MortalTable>(CGRectMake(10, 20, 200, 198));
        mortal->isGone = &isGone;
        table = std::move(mortal);
        show({3});
        source->onCall = [this, moment](const std::string& what) {
            if (what == moment) {
                table->removeFromSuperview();
                table = nullptr;
            }
        };
        if (moment == "chose 0.0") {
            host.tap(inRow(0));
        } else {
            UITableView& asked = *table;
            asked.reloadData();
        }
        EXPECT_TRUE(isGone);
    }
}

TEST_F(UITableViewTest, AnAnswerToANewSizeMayTearItDown) {
    bool isGone = false;
    auto mortal = make<MortalTable>(CGRectMake(10, 20, 200, 198));
    mortal->isGone = &isGone;
    table = std::move(mortal);
    show({100});
    table->setContentOffset(table->bounds().size.height * 100.0);
    source->onCall = [this](const std::string& /*what*/) {
        table->removeFromSuperview();
        table = nullptr;
        source->onCall = nullptr;
    };
    UITableView& resized = *table;
    resized.setFrame(CGRectMake(10, 20, 200, 280));
    host.advance(0.0);
    EXPECT_TRUE(isGone);
}

TEST_F(UITableViewTest, AnotherDataSourceSetInMidReloadIsAskedInstead) {
    show({3});
    const auto other = makeSource({1});
    source->onCall = [&](const std::string& what) {
        if (what == "cell 0.1") {
            table->setDataSource(other);
        }
    };
    table->reloadData();
    EXPECT_THAT(shownRows(), ElementsAre("0.0"));
    EXPECT_THAT(other->log, ElementsAre("sections", "rows 0", "cell 0.0"));
}

/// A cell that does what a test likes when it is highlighted, selected or moved.
class RestlessCell : public UITableViewCell {
public:
    std::function<void(const std::string&)> onCall;

    void setFrame(const CGRect& frame) override {
        UITableViewCell::setFrame(frame);
        call("moved");
    }
    void setHighlighted(bool highlighted) override {
        UITableViewCell::setHighlighted(highlighted);
        call(highlighted ? "highlighted" : "highlighted no more");
    }
    void setSelected(bool selected, bool animated) override {
        UITableViewCell::setSelected(selected, animated);
        call(selected ? "selected" : "selected no more");
    }

private:
    void call(const std::string& what) {
        if (const auto told = onCall) {
            told(what);
        }
    }
};

/// A source whose cells may all take their rows away.
class RestlessSource : public ListSource {
public:
    std::function<void(const std::string&)> onCellCall;

    std::shared_ptr<UITableViewCell>
    tableViewCellForRowAtIndexPath(const std::shared_ptr<UITableView>& /*table*/,
                                   const std::shared_ptr<NSIndexPath>& path) override {
        EXPECT_LT(path->row(), counts[0]);
        const auto cell = make<RestlessCell>();
        cell->onCall = [this](const std::string& what) {
            if (const auto told = onCellCall) {
                told(what);
            }
        };
        return cell;
    }
};

TEST_F(UITableViewTest, ACellMayTakeTheRowsAway) {
    for (const std::string moment :
         {"moved", "highlighted", "highlighted no more", "selected", "selected no more"}) {
        SCOPED_TRACE(moment);
        const auto restless = make<RestlessSource>();
        source = restless;
        table = make<UITableView>(CGRectMake(10, 20, 200, 198), UITableViewStyle::Plain);
        show({100});
        host.tap(inRow(2));
        source->log.clear();
        restless->onCellCall = [&](const std::string& what) {
            if (what == moment) {
                restless->onCellCall = nullptr;
                source->counts = {1};
                table->reloadData();
            }
        };
        host.touchDown(inRow(3));
        host.touchUp(inRow(3));
        press(UIKeyboardHIDUsage::DownArrow);
        press(UIKeyboardHIDUsage::DownArrow);
        table->setContentOffset(20.0);
        EXPECT_EQ(restless->onCellCall, nullptr);
        EXPECT_EQ(table->numberOfRowsInSection(0), 1);
        const bool isAfterTheChoice = moment == "moved";
        EXPECT_THAT(source->log, testing::Contains("chose 0.3").Times(isAfterTheChoice ? 1 : 0));
        table->removeFromSuperview();
    }
}

TEST_F(UITableViewDeathTest, ADataSourceWithoutACellIsReported) {
    show({3});
    source->givesCells = false;
    EXPECT_DEATH(table->reloadData(), "Fatal error: The data source of a table gave no cell for a row");
}

// Touches

TEST_F(UITableViewTest, APressHighlightsARowAndAReleaseInsideChoosesIt) {
    show({10});
    host.touchDown(inRow(2));
    EXPECT_THAT(highlighted(), ElementsAre(2));
    EXPECT_THAT(source->log, IsEmpty());
    host.touchUp(inRow(2));
    EXPECT_THAT(highlighted(), IsEmpty());
    EXPECT_THAT(source->log, ElementsAre("chose 0.2"));
    EXPECT_TRUE(cell(2)->isSelected());
    EXPECT_EQ(table->indexPathForSelectedRow()->row(), 2);
}

TEST_F(UITableViewTest, AReleaseElsewhereChoosesNothing) {
    show({10});
    host.touchDown({50, 20 + 40});
    host.touchMove({50, 20 + 46});
    EXPECT_THAT(highlighted(), IsEmpty());
    host.touchMove({50, 20 + 41});
    EXPECT_THAT(highlighted(), ElementsAre(0));
    host.touchUp({50, 20 + 46});
    EXPECT_THAT(source->log, IsEmpty());
    host.touchDown(inRow(1));
    host.touchMove({280, 20 + 66});
    EXPECT_THAT(highlighted(), IsEmpty());
    host.touchUp({280, 20 + 66});
    EXPECT_THAT(source->log, IsEmpty());
}

TEST_F(UITableViewTest, ADragScrollsInsteadOfChoosing) {
    show({10});
    host.touchDown(inRow(2));
    host.touchMove({50, 120});
    EXPECT_EQ(table->contentOffset(), 0.0);
    EXPECT_THAT(highlighted(), ElementsAre(2));
    host.touchMove({50, 110});
    EXPECT_THAT(highlighted(), IsEmpty());
    host.touchMove({50, 80});
    EXPECT_EQ(table->contentOffset(), 30.0);
    host.touchMove({50, 128});
    EXPECT_EQ(table->contentOffset(), 0.0);
    host.touchMove({50, 120});
    EXPECT_EQ(table->contentOffset(), 8.0);
    host.touchUp({50, 120});
    EXPECT_THAT(source->log, testing::Not(testing::Contains("chose 0.2")));
    EXPECT_EQ(table->indexPathForSelectedRow(), nullptr);
    host.advance(2.0);
    EXPECT_EQ(table->contentOffset(), 8.0);
}

TEST_F(UITableViewTest, ADragGoesOnBesideTheTableAndThroughAReload) {
    show({1000});
    host.touchDown(inRow(3));
    host.touchMove({50, 160});
    host.touchMove({50, -500});
    EXPECT_EQ(table->contentOffset(), 660.0);
    host.touchMove({50, -1000});
    EXPECT_EQ(table->contentOffset(), 1160.0);
    table->reloadData();
    host.touchMove({50, -1100});
    EXPECT_EQ(table->contentOffset(), 1260.0);
}

TEST_F(UITableViewTest, ADragGoesNoFurtherThanTheEnds) {
    show({5});
    host.touchDown(inRow(2));
    host.touchMove({50, 100});
    host.touchMove({50, -500});
    EXPECT_EQ(table->contentOffset(), 5 * 44.0 - 198.0);
    host.touchMove({50, -490});
    EXPECT_EQ(table->contentOffset(), 5 * 44.0 - 198.0 - 10.0);
    host.touchMove({50, 900});
    EXPECT_EQ(table->contentOffset(), 0.0);
}

TEST_F(UITableViewTest, ATouchBelowTheRowsChoosesNothing) {
    show({1});
    host.tap(inRow(2));
    EXPECT_THAT(source->log, IsEmpty());
}

TEST_F(UITableViewTest, ACancelledPressChoosesNothing) {
    show({10});
    host.touchDown(inRow(2));
    host.touchCancel();
    EXPECT_THAT(highlighted(), IsEmpty());
    EXPECT_THAT(source->log, IsEmpty());
    host.tap(inRow(1));
    EXPECT_THAT(source->log, ElementsAre("chose 0.1"));
}

TEST_F(UITableViewTest, ASecondTouchIsPassedOver) {
    show({10});
    host.touchDown(inRow(2), 1);
    host.touchDown(inRow(3), 2);
    EXPECT_THAT(highlighted(), ElementsAre(2));
    host.touchUp(inRow(3), 2);
    EXPECT_THAT(source->log, IsEmpty());
    host.touchUp(inRow(2), 1);
    EXPECT_THAT(source->log, ElementsAre("chose 0.2"));
}

TEST_F(UITableViewTest, RowsThatChangeUnderAPressAreNotChosen) {
    show({10});
    host.touchDown(inRow(2));
    table->reloadData();
    EXPECT_THAT(highlighted(), IsEmpty());
    source->log.clear();
    host.touchUp(inRow(2));
    EXPECT_THAT(source->log, IsEmpty());
}

TEST_F(UITableViewTest, AControlInACellKeepsItsOwnTouches) {
    show({3});
    const auto probe = makeProbe(CGRectMake(0, 0, 40, 44));
    cell(1)->addSubview(probe);
    probe->log->clear();
    host.tap({20, 20 + 66});
    EXPECT_THAT(*probe->log, ElementsAre("began 0", "ended 0"));
    EXPECT_THAT(source->log, IsEmpty());
}

// Selection

TEST_F(UITableViewTest, DeselectingTakesTheTintAwayAtOnceOrSlowly) {
    show({10});
    for (const bool animated : {false, true}) {
        host.tap(inRow(2));
        table->deselectRowAtIndexPath(make<NSIndexPath>(1, 0), animated);
        table->deselectRowAtIndexPath(nullptr, animated);
        EXPECT_TRUE(cell(2)->isSelected());
        table->deselectRowAtIndexPath(make<NSIndexPath>(2, 0), animated);
        EXPECT_FALSE(cell(2)->isSelected());
        EXPECT_EQ(table->indexPathForSelectedRow(), nullptr);
        EXPECT_EQ(host.runLoop().timeUntilNextWork().has_value(), animated);
        host.advance(1.0);
    }
}

TEST_F(UITableViewTest, AnotherChoiceTakesTheSelectionAlong) {
    show({10});
    host.tap(inRow(2));
    host.tap(inRow(1));
    EXPECT_FALSE(cell(2)->isSelected());
    EXPECT_TRUE(cell(1)->isSelected());
}

TEST_F(UITableViewTest, ASelectedRowComesBackSelectedAndAReloadForgetsIt) {
    show({100});
    host.tap(inRow(2));
    table->setContentOffset(1000.0);
    EXPECT_EQ(cell(2), nullptr);
    table->setContentOffset(0.0);
    EXPECT_TRUE(cell(2)->isSelected());
    table->reloadData();
    EXPECT_FALSE(cell(2)->isSelected());
    EXPECT_EQ(table->indexPathForSelectedRow(), nullptr);
}

TEST_F(UITableViewTest, WithoutADelegateThatListensAChoiceIsJustASelection) {
    show({3});
    table->setDelegate(nullptr);
    host.tap(inRow(1));
    EXPECT_TRUE(cell(1)->isSelected());
    EXPECT_THAT(source->log, IsEmpty());
}

// The wheel

TEST_F(UITableViewTest, TheWheelScrollsToTheEndsAndIsTakenThereToo) {
    show({10});
    EXPECT_TRUE(host.window()->sendScroll(inRow(1), {0, -50}));
    EXPECT_EQ(table->contentOffset(), 50.0);
    EXPECT_TRUE(host.window()->sendScroll(inRow(1), {0, -5000}));
    EXPECT_EQ(table->contentOffset(), 440.0 - 198.0);
    EXPECT_TRUE(host.window()->sendScroll(inRow(1), {0, -1}));
    EXPECT_TRUE(host.window()->sendScroll(inRow(1), {0, 5000}));
    EXPECT_EQ(table->contentOffset(), 0.0);
    EXPECT_FALSE(table->scrollBy({0, std::numeric_limits<double>::quiet_NaN()}));
}

TEST_F(UITableViewTest, TheWheelPassesATableThatFits) {
    show({4});
    EXPECT_FALSE(host.window()->sendScroll(inRow(1), {0, -50}));
    EXPECT_EQ(table->contentOffset(), 0.0);
}

TEST_F(UITableViewTest, TheWheelUnderAPressTakesTheChoiceAway) {
    show({10});
    host.touchDown(inRow(1));
    table->scrollBy({0, -10});
    EXPECT_THAT(highlighted(), IsEmpty());
    host.touchUp(inRow(1));
    EXPECT_EQ(table->indexPathForSelectedRow(), nullptr);
}

// The indicator

TEST_F(UITableViewTest, AnIndicatorShowsWhichPartIsInSight) {
    show({9});
    const auto indicator = table->subviews().back();
    EXPECT_EQ(Foundation::as<UITableViewCell>(indicator), nullptr);
    EXPECT_EQ(indicator->frame(), CGRectMake(193, 7, 4, 92));
    table->setContentOffset(1000.0);
    EXPECT_EQ(indicator->frame(), CGRectMake(193, 396 - 7 - 92, 4, 92));
    EXPECT_EQ(table->subviews().back(), indicator);
    source->counts = {4};
    table->reloadData();
    EXPECT_TRUE(indicator->isHidden());
    source->counts = {1'000'000};
    table->reloadData();
    EXPECT_FALSE(indicator->isHidden());
    EXPECT_EQ(indicator->frame().size.height, 24.0);
}

TEST_F(UITableViewTest, ATableThatFitsHasNoIndicator) {
    show({4});
    EXPECT_EQ(table->subviews().size(), 4U);
}

// Size

TEST_F(UITableViewTest, AnotherSizeShowsOtherRowsAndKeepsWithinTheEnd) {
    show({10});
    table->setFrame(CGRectMake(0, 0, 100, 88));
    host.advance(0.0);
    EXPECT_THAT(shownRows(), ElementsAre("0.0", "0.1"));
    EXPECT_EQ(cell(0)->frame(), CGRectMake(0, 0, 100, 44));
    table->setContentOffset(440.0);
    EXPECT_EQ(table->contentOffset(), 352.0);
    table->setFrame(CGRectMake(0, 0, 100, 132));
    host.advance(0.0);
    EXPECT_EQ(table->contentOffset(), 308.0);
    EXPECT_THAT(shownRows(), ElementsAre("0.7", "0.8", "0.9"));
    table->setFrame(CGRectMake(0, 0, 100, 0));
    host.advance(0.0);
    EXPECT_THAT(shownRows(), IsEmpty());
}

TEST_F(UITableViewTest, GrowsWithItsSuperview) {
    const auto around = make<UIView>(CGRectMake(0, 0, 200, 300));
    table->setFrame(CGRectMake(10, 20, 200, 300));
    around->addSubview(table);
    around->setFrame(CGRectMake(0, 0, 150, 100));
    EXPECT_EQ(table->frame(), CGRectMake(10, 20, 150, 100));
    around->setFrame(CGRectMake(0, 0, 200, 300));
    EXPECT_EQ(table->frame(), CGRectMake(10, 20, 200, 300));
}

// Keys

TEST_F(UITableViewTest, UpAndDownMoveAHighlightThatStaysInSight) {
    show({10});
    EXPECT_TRUE(press(UIKeyboardHIDUsage::DownArrow));
    EXPECT_THAT(highlighted(), ElementsAre(0));
    EXPECT_TRUE(press(UIKeyboardHIDUsage::UpArrow));
    EXPECT_THAT(highlighted(), ElementsAre(0));
    for (int step = 0; step < 5; ++step) {
        press(UIKeyboardHIDUsage::DownArrow);
    }
    EXPECT_THAT(highlighted(), ElementsAre(5));
    EXPECT_EQ(table->contentOffset(), 6 * 44.0 - 198.0);
    press(UIKeyboardHIDUsage::UpArrow);
    EXPECT_EQ(table->contentOffset(), 6 * 44.0 - 198.0);
}

TEST_F(UITableViewTest, UpBeginsAtTheLastRowInSight) {
    show({10});
    press(UIKeyboardHIDUsage::UpArrow);
    EXPECT_THAT(highlighted(), ElementsAre(4));
    EXPECT_EQ(table->contentOffset(), 5 * 44.0 - 198.0);
}

TEST_F(UITableViewTest, PageUpBeginsAPageAboveTheLastRowInSight) {
    show({1000});
    table->setContentOffset(20 * 44.0);
    press(UIKeyboardHIDUsage::PageUp);
    EXPECT_THAT(highlighted(), ElementsAre(20));
}

TEST_F(UITableViewTest, PageDownBeginsAPageBelowTheFirstRowInSight) {
    show({1000});
    table->setContentOffset(20 * 44.0);
    press(UIKeyboardHIDUsage::PageDown);
    EXPECT_THAT(highlighted(), ElementsAre(24));
}

TEST_F(UITableViewTest, HomeEndAndThePageKeysGoFurther) {
    show({1000});
    press(UIKeyboardHIDUsage::End);
    EXPECT_EQ(table->contentOffset(), 44'000.0 - 198.0);
    EXPECT_TRUE(cell(999)->isHighlighted());
    press(UIKeyboardHIDUsage::PageUp);
    EXPECT_TRUE(cell(995)->isHighlighted());
    press(UIKeyboardHIDUsage::Home);
    EXPECT_EQ(table->contentOffset(), 0.0);
    EXPECT_TRUE(cell(0)->isHighlighted());
    press(UIKeyboardHIDUsage::PageDown);
    EXPECT_TRUE(cell(4)->isHighlighted());
    press(UIKeyboardHIDUsage::End);
    press(UIKeyboardHIDUsage::PageDown);
    press(UIKeyboardHIDUsage::DownArrow);
    EXPECT_TRUE(cell(999)->isHighlighted());
}

TEST_F(UITableViewTest, ReturnChoosesTheHighlightedRow) {
    show({10});
    EXPECT_FALSE(press(UIKeyboardHIDUsage::ReturnOrEnter));
    press(UIKeyboardHIDUsage::DownArrow);
    press(UIKeyboardHIDUsage::DownArrow);
    EXPECT_TRUE(press(UIKeyboardHIDUsage::ReturnOrEnter));
    EXPECT_THAT(source->log, ElementsAre("chose 0.1"));
}

TEST_F(UITableViewTest, OtherKeysAreNotTaken) {
    show({10});
    EXPECT_FALSE(press(UIKeyboardHIDUsage::Escape));
    EXPECT_FALSE(press(UIKeyboardHIDUsage::LeftArrow));
    EXPECT_FALSE(table->keyPressed({UIKeyboardHIDUsage::None, "m", false}));
}

TEST_F(UITableViewTest, TheHighlightOfTheKeysOutlivesAReloadWhereItsRowDoes) {
    show({10});
    press(UIKeyboardHIDUsage::DownArrow);
    press(UIKeyboardHIDUsage::DownArrow);
    table->reloadData();
    EXPECT_THAT(highlighted(), ElementsAre(1));
    source->counts = {1};
    table->reloadData();
    EXPECT_THAT(highlighted(), IsEmpty());
    EXPECT_FALSE(press(UIKeyboardHIDUsage::ReturnOrEnter));
}

TEST_F(UITableViewTest, ATableThatComesBackHasNoHighlight) {
    show({10});
    press(UIKeyboardHIDUsage::DownArrow);
    table->removeFromSuperview();
    host.window()->addSubview(table);
    EXPECT_THAT(highlighted(), IsEmpty());
}

TEST_F(UITableViewTest, WhileATouchIsDownKeysAreNotTaken) {
    show({10});
    host.touchDown(inRow(1));
    EXPECT_FALSE(press(UIKeyboardHIDUsage::DownArrow));
    EXPECT_THAT(highlighted(), ElementsAre(1));
}

// Drawing

TEST_F(UITableViewTest, AnIdleTableDrawsNothing) {
    show({1000});
    host.draw();
    host.advance(5.0);
    EXPECT_FALSE(host.window()->needsDisplay());
    EXPECT_EQ(host.runLoop().timeUntilNextWork(), std::nullopt);
}

TEST_F(UITableViewTest, DrawingItAllocatesNothing) {
    show({1000});
    NullContext context;
    host.window()->display(context);
    host.window()->setNeedsDisplayEverywhere();
    const std::size_t before = allocationCount();
    host.window()->display(context);
    EXPECT_EQ(allocationCount(), before);
}

} // namespace
