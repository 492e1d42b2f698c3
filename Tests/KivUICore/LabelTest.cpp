#include "KivUICore/UIComponent/Label.h"

#include "Tests/KivUICore/Stops.h"
#include "Tests/KivUICore/Tables.h"
#include "Tests/KivUICore/Watchers.h"

#include <cmath>
#include <limits>

namespace {

using namespace Foundation;
using namespace KivUICore;
using namespace KivUICoreTests;
using UIKit::UILabel;
using UIKit::UIView;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float greatest = 9223371487098961920.0F;
constexpr float least = -9223372036854775808.0F;

class LabelTest : public testing::Test {
protected:
    std::optional<std::string> textOf(float time) const {
        label->updateLabelWithTime(time);
        return view->text();
    }

    std::shared_ptr<UILabel> view = make<UILabel>();
    std::shared_ptr<Watcher> watcher = make<Watcher>();
    std::shared_ptr<Label> label = make<Label>(view, watcher);
};

class LabelDeathTest : public LabelTest {};

TEST_F(LabelTest, HoldsItsViewAndItsObserverAndShowsNothingYet) {
    EXPECT_EQ(label->view(), view);
    EXPECT_EQ(label->observer(), watcher);
    EXPECT_EQ(view->text(), std::nullopt);
    EXPECT_EQ(label->textLabel(), view);
}

TEST_F(LabelTest, ShowsMinutesAndSecondsBelowAnHour) {
    EXPECT_EQ(textOf(0.0F), "00:00");
    EXPECT_EQ(textOf(7.0F), "00:07");
    EXPECT_EQ(textOf(60.0F), "01:00");
    EXPECT_EQ(textOf(599.0F), "09:59");
    EXPECT_EQ(textOf(600.0F), "10:00");
    EXPECT_EQ(textOf(3599.0F), "59:59");
}

TEST_F(LabelTest, ShowsHoursFromExactlyOneHourOn) {
    EXPECT_EQ(textOf(3599.9F), "59:59");
    EXPECT_EQ(textOf(3600.0F), "01:00:00");
    EXPECT_EQ(textOf(3661.0F), "01:01:01");
    EXPECT_EQ(textOf(35999.0F), "09:59:59");
}

TEST_F(LabelTest, HoursAreNotLimited) {
    EXPECT_EQ(textOf(36000.0F), "10:00:00");
    EXPECT_EQ(textOf(360000.0F), "100:00:00");
    EXPECT_EQ(textOf(3600000.0F + 3661.0F), "1001:01:01");
}

TEST_F(LabelTest, FractionsAreDropped) {
    EXPECT_EQ(textOf(0.999F), "00:00");
    EXPECT_EQ(textOf(5.9F), "00:05");
    EXPECT_EQ(textOf(59.99F), "00:59");
    EXPECT_EQ(textOf(-0.5F), "00:00");
    EXPECT_EQ(textOf(-0.0F), "00:00");
    EXPECT_EQ(textOf(-5.9F), "00:0-5");
}

TEST_F(LabelTest, EachPartOfANegativeTimeKeepsItsSignBehindAZero) {
    EXPECT_EQ(textOf(-5.0F), "00:0-5");
    EXPECT_EQ(textOf(-65.0F), "0-1:0-5");
    EXPECT_EQ(textOf(-60.0F), "0-1:00");
    EXPECT_EQ(textOf(-3599.0F), "0-59:0-59");
    EXPECT_EQ(textOf(-3600.0F), "0-1:00:00");
    EXPECT_EQ(textOf(-3661.0F), "0-1:0-1:0-1");
    EXPECT_EQ(textOf(-36000.0F), "0-10:00:00");
}

TEST_F(LabelTest, TheLargestTimesAreShown) {
    EXPECT_EQ(textOf(greatest), "2562047635305267:12:00");
    EXPECT_EQ(textOf(least), "0-2562047788015215:0-30:0-8");
}

TEST_F(LabelDeathTest, ATimeThatNoIntegerHoldsStopsSilently) {
    for (const float time : {notANumber, infinity, -infinity, 1e19F, -1e19F,
                             std::nextafter(greatest, infinity), std::nextafter(least, -infinity)}) {
        EXPECT_SILENT_STOP(label->updateLabelWithTime(time));
    }
}

TEST_F(LabelTest, WithoutALabelNoTimeIsLookedAt) {
    for (const std::shared_ptr<UIView>& other : {std::shared_ptr<UIView>(), make<UIView>()}) {
        label->setView(other);
        for (const float time : {5.0F, notANumber, infinity, -infinity, 1e19F}) {
            label->updateLabelWithTime(time);
        }
    }
    EXPECT_EQ(view->text(), std::nullopt);
}

TEST_F(LabelTest, AnyViewIsTaken) {
    const auto plain = make<UIView>();
    const auto inert = make<Label>(plain, watcher);
    EXPECT_EQ(inert->view(), plain);
    inert->updateLabelWithTime(5.0F);
}

TEST_F(LabelDeathTest, AskingForALabelThatIsNotThereStopsSilently) {
    label->setView(nullptr);
    EXPECT_SILENT_STOP(label->textLabel());
    label->setView(make<UIView>());
    EXPECT_SILENT_STOP(label->textLabel());
    EXPECT_SILENT_STOP(make<Label>(make<UIView>(), watcher)->textLabel());
    EXPECT_SILENT_STOP(label->send<std::shared_ptr<UILabel>>("textLabel"));
}

TEST_F(LabelTest, TellsItsObserverNothing) {
    Story story;
    label->setObserver(make<Watcher>(story));
    label->updateLabelWithTime(5.0F);
    label->textLabel();
    EXPECT_EQ(story, Story());
}

/// A label that counts how often its text is set.
class CountedLabel : public UILabel {
public:
    void setText(const std::optional<std::string>& text) override {
        texts.push_back(text);
        UILabel::setText(text);
    }
    std::vector<std::optional<std::string>> texts;
};

TEST_F(LabelTest, EachUpdateReplacesTheWholeText) {
    const auto counted = make<CountedLabel>();
    label->setView(counted);
    label->updateLabelWithTime(3600.0F);
    label->updateLabelWithTime(59.0F);
    EXPECT_EQ(counted->texts, (std::vector<std::optional<std::string>>{"01:00:00", "00:59"}));
    EXPECT_EQ(view->text(), std::nullopt);
}

TEST_F(LabelTest, ReleasesViewAndObserverWhenItEnds) {
    label = nullptr;
    EXPECT_EQ(view.use_count(), 1);
    EXPECT_EQ(watcher.use_count(), 1);
}

// By name

TEST_F(LabelTest, AddsJustItsOperationsToWhatIsReachedByName) {
    EXPECT_EQ(ownSelectors(Label::classObject()),
              (std::set<std::string>{"initWithView:observer:", "updateLabelWithTime:", "textLabel"}));
    EXPECT_EQ(Label::classObject().superclass(), &UIComponent::classObject());
    EXPECT_TRUE(Label::classObject().classMethods().selectors().empty());
}

TEST_F(LabelTest, IsMadeAndWorkedByName) {
    const auto named = Class::named("KivUICore.Label")->alloc();
    ASSERT_TRUE(named->send<bool>("initWithView:observer:", view, watcher));
    named->send("updateLabelWithTime:", 61.5F);
    EXPECT_EQ(view->text(), "01:01");
    EXPECT_EQ(named->send<std::shared_ptr<UILabel>>("textLabel"), view);
}

TEST_F(LabelDeathTest, WithoutArgumentsThereIsNoLabel) {
    EXPECT_UNIMPLEMENTED(make<Label>(), "init()", "KivUICore.Label");
    EXPECT_UNIMPLEMENTED(Class::named("KivUICore.Label")->alloc()->send<bool>("init"), "init()",
                         "KivUICore.Label");
}

// Overriding

TEST_F(LabelTest, NothingOfItsOwnCanBeOverridden) {
    EXPECT_FALSE(slotOf(&Label::updateLabelWithTime));
    EXPECT_FALSE(slotOf(&Label::textLabel));
}

/// A label that shows another view than the one it is given.
class MirrorLabel : public Label {
public:
    std::shared_ptr<UIView> view() const override { return mirror; }
    void setView(const std::shared_ptr<UIView>& view) override {
        story.emplace_back("setView:");
        Label::setView(view);
    }
    void setObserver(const std::shared_ptr<UIEventObserver>& observer) override {
        story.emplace_back("setObserver:");
        Label::setObserver(observer);
    }

    Story story;
    std::shared_ptr<UILabel> mirror = make<UILabel>();
};

TEST_F(LabelTest, ViewAndThenObserverGoThroughASubclass) {
    const auto mirrored = make<MirrorLabel>(view, watcher);
    EXPECT_EQ(mirrored->story, (Story{"setView:", "setObserver:"}));
    mirrored->updateLabelWithTime(5.0F);
    EXPECT_EQ(mirrored->mirror->text(), "00:05");
    EXPECT_EQ(mirrored->textLabel(), mirrored->mirror);
    EXPECT_EQ(view->text(), std::nullopt);
}

} // namespace
