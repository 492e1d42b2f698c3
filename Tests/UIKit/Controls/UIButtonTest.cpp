#include "Platform/UIKit/UIButton.h"

#include "Platform/CoreGraphics/CGImage.h"
#include "Platform/CoreGraphics/TextMetrics.h"
#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/CoreGraphics/AllocationCounter.h"
#include "Tests/UIKit/ControlTestSupport.h"
#include "Tests/UIKit/NullContext.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using KivUICore::Headless::HeadlessHost;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr CGColor white{1.0, 1.0, 1.0, 1.0};
constexpr CGColor red{1.0, 0.0, 0.0, 1.0};

class UIButtonTest : public testing::Test {
protected:
    UIButtonTest() {
        host.window()->addSubview(button);
        recorder->watch(*button);
        host.draw();
    }

    std::vector<CGDrawing::DrawText> texts() const { return drawnBy<CGDrawing::DrawText>(*button); }

    // Where an image is drawn: it is cut to its rectangle.
    std::vector<CGRect> images() const {
        std::vector<CGRect> rects;
        for (const auto& clip : drawnBy<CGDrawing::ClipToRect>(*button)) {
            rects.push_back(clip.rect);
        }
        return rects;
    }

    bool isDrawnAfter(const std::function<void()>& change) {
        host.draw();
        change();
        return host.window()->needsDisplay();
    }

    HeadlessHost host{{300, 100}};
    std::shared_ptr<UIButton> button = make<UIButton>(CGRectMake(20, 30, 120, 40));
    std::shared_ptr<EventRecorder> recorder = make<EventRecorder>();
};

// Touches

TEST_F(UIButtonTest, ATapInsideIsSent) {
    host.tap({50, 50});
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
}

TEST_F(UIButtonTest, ATapThatEndsOutsideIsNoTap) {
    host.touchDown({50, 50});
    host.touchMove({50, 90});
    host.touchUp({50, 90});
    EXPECT_THAT(recorder->events, ElementsAre("down", "up outside"));
}

TEST_F(UIButtonTest, DisabledItSwallowsTouches) {
    button->setEnabled(false);
    host.tap({50, 50});
    EXPECT_THAT(recorder->events, IsEmpty());
    EXPECT_EQ(host.window()->hitTest({50, 50}), button);
}

TEST_F(UIButtonTest, ATargetMayDestroyTheButton) {
    for (const std::string last : {"down", "up inside"}) {
        button = make<UIButton>(CGRectMake(20, 30, 120, 40));
        host.window()->addSubview(button);
        recorder->watch(*button);
        const std::weak_ptr<UIButton> weak = button;
        recorder->onEvent = [this, &last, &weak](const std::string& event) {
            if (event == last && button) {
                button = nullptr;
                weak.lock()->removeFromSuperview();
            }
        };
        host.tap({50, 50});
        EXPECT_TRUE(weak.expired()) << last;
    }
}

// What is shown in which state

TEST_F(UIButtonTest, ShowsNothingAtFirst) {
    EXPECT_EQ(button->currentTitle(), std::nullopt);
    EXPECT_EQ(button->currentImage(), nullptr);
    EXPECT_EQ(button->currentTitleColor(), nullptr);
    EXPECT_THAT(texts(), IsEmpty());
    EXPECT_THAT(images(), IsEmpty());
}

TEST_F(UIButtonTest, ShowsTheNormalTitleWhereAStateHasNone) {
    button->setTitle("Play", UIControlStateNormal);
    button->setTitle("Playing", UIControlStateSelected);
    EXPECT_EQ(button->titleForState(UIControlStateDisabled), "Play");
    EXPECT_EQ(button->titleForState(UIControlStateSelected), "Playing");
    EXPECT_EQ(button->titleForState(UIControlStateSelected | UIControlStateHighlighted), "Play");
    button->setSelected(true);
    EXPECT_EQ(button->currentTitle(), "Playing");
    button->setTitle(std::nullopt, UIControlStateSelected);
    EXPECT_EQ(button->currentTitle(), "Play");
}

TEST_F(UIButtonTest, AnEmptyTitleIsATitle) {
    button->setTitle("Play", UIControlStateNormal);
    button->setTitle("", UIControlStateHighlighted);
    EXPECT_EQ(button->titleForState(UIControlStateHighlighted), "");
    button->setHighlighted(true);
    EXPECT_THAT(texts(), IsEmpty());
}

TEST_F(UIButtonTest, ShowsTheNormalImageAndColorWhereAStateHasNone) {
    const auto normal = makeImage({24, 24});
    const auto selected = makeImage({24, 24});
    const auto color = make<UIColor>(1.0, 0.0, 0.0, 1.0);
    button->setImage(normal, UIControlStateNormal);
    button->setImage(selected, UIControlStateSelected);
    button->setTitleColor(color, UIControlStateNormal);
    EXPECT_EQ(button->imageForState(UIControlStateHighlighted), normal);
    EXPECT_EQ(button->imageForState(UIControlStateSelected), selected);
    EXPECT_EQ(button->titleColorForState(UIControlStateSelected), color);
    button->setSelected(true);
    EXPECT_EQ(button->currentImage(), selected);
    button->setImage(nullptr, UIControlStateSelected);
    EXPECT_EQ(button->currentImage(), normal);
}

TEST_F(UIButtonTest, OnlyWhatShowsIsDrawn) {
    const auto image = makeImage({24, 24});
    const auto color = make<UIColor>(1.0, 0.0, 0.0, 1.0);
    EXPECT_TRUE(isDrawnAfter([&] { button->setTitle("Play", UIControlStateNormal); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setImage(image, UIControlStateNormal); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setTitleColor(color, UIControlStateNormal); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setTintColor(color); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setFont(UIFont::systemFontOfSize(12)); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setEnabled(false); }));
    EXPECT_TRUE(isDrawnAfter([&] { button->setImage(image, UIControlStateDisabled); }));
    EXPECT_FALSE(isDrawnAfter([&] {
        button->setTitle("Play", UIControlStateNormal);
        button->setImage(image, UIControlStateNormal);
        button->setTitleColor(color, UIControlStateNormal);
        button->setTintColor(color);
        button->setTitle("Playing", UIControlStateSelected);
        button->setImage(makeImage({24, 24}), UIControlStateSelected);
        button->setFont(button->font());
    }));
}

// Layout

TEST_F(UIButtonTest, AnImageStandsInTheMiddleAtItsOwnSize) {
    button->setImage(makeImage({24, 20}), UIControlStateNormal);
    EXPECT_THAT(images(), ElementsAre(CGRectMake(48, 10, 24, 20)));
}

TEST_F(UIButtonTest, AnImageTooLargeIsShrunkInItsShape) {
    button->setImage(makeImage({200, 160}), UIControlStateNormal);
    EXPECT_THAT(images(), ElementsAre(CGRectMake(35, 0, 50, 40)));
    button->setFrame(CGRectMake(20, 30, 10, 40));
    EXPECT_THAT(images(), ElementsAre(CGRectMake(0, 16, 10, 8)));
}

TEST_F(UIButtonTest, AnImageLiesOnWholePixels) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    button->setFrame(CGRectMake(53.333, 30.2, 53.333, 41));
    for (const CGFloat scale : {1.0, 1.5, 2.0}) {
        host.window()->setContentScale(scale);
        const CGPoint corner = images().at(0).origin;
        const CGFloat x = (corner.x + 53.333) * scale;
        const CGFloat y = (corner.y + 30.2) * scale;
        EXPECT_NEAR(x, std::round(x), 1e-9) << scale;
        EXPECT_NEAR(y, std::round(y), 1e-9) << scale;
        EXPECT_NEAR(corner.x, 53.333 / 2.0 - 12.0, 0.5 / scale + 1e-9) << scale;
    }
}

TEST_F(UIButtonTest, ATitleStandsInTheMiddleInOneLine) {
    button->setTitle("Play", UIControlStateNormal);
    ASSERT_EQ(texts().size(), 1U);
    EXPECT_EQ(texts()[0].text, "Play");
    EXPECT_EQ(texts()[0].style,
              (CGTextStyle{
                  {15.0, CGFontWeight::Medium, CGFigures::Proportional}, white, CGTextAlignment::Center, 1}));
    EXPECT_EQ(CGRectGetMidX(texts()[0].rect), 60.0);
    EXPECT_EQ(CGRectGetMidY(texts()[0].rect), 20.0);
    button->setFont(UIFont::boldSystemFontOfSize(20));
    EXPECT_EQ(texts()[0].style.font, (CGFont{20.0, CGFontWeight::Bold, CGFigures::Proportional}));
}

TEST_F(UIButtonTest, TheImageLeadsTheTitleAndBothTogetherStandInTheMiddle) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    button->setTitle("Play", UIControlStateNormal);
    const CGRect image = images().at(0);
    const CGRect title = texts().at(0).rect;
    EXPECT_EQ(image.size, (CGSize{24, 24}));
    EXPECT_LT(CGRectGetMaxX(image), CGRectGetMinX(title));
    EXPECT_NEAR(CGRectGetMinX(image) + CGRectGetMaxX(title), 120.0, 1.0);
    EXPECT_GT(title.size.width, 4 * 0.4 * 15.0);
    EXPECT_EQ(CGRectGetMidY(image), CGRectGetMidY(title));
}

TEST_F(UIButtonTest, ALongTitleStaysInsideBesideItsImage) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    button->setTitle("A title that is much too long", UIControlStateNormal);
    EXPECT_GE(CGRectGetMinX(images().at(0)), 0.0);
    EXPECT_LE(CGRectGetMaxX(texts().at(0).rect), 120.0);
    button->setFrame(CGRectMake(20, 30, 20, 40));
    EXPECT_THAT(texts().at(0).rect.size.width, 0.0);
}

TEST_F(UIButtonTest, FitsWhatItShowsAndAFinger) {
    EXPECT_EQ(button->sizeThatFits({}), (CGSize{44, 44}));
    button->setImage(makeImage({24, 60}), UIControlStateNormal);
    EXPECT_EQ(button->sizeThatFits({}), (CGSize{44, 60}));
    button->setTitle("Play the film", UIControlStateNormal);
    EXPECT_GT(button->sizeThatFits({}).width, 24.0 + 13 * 0.3 * 15.0);
}

TEST_F(UIButtonTest, ImageAndTitleNeedRoomBesideEachOtherAndBetween) {
    const CGFont big{100.0, CGFontWeight::Regular};
    button->setFont(UIFont::systemFontOfSize(100.0, UIFontWeightRegular));
    button->setTitle("Play", UIControlStateNormal);
    const CGFloat title = estimatedTextWidth("Play", big);
    EXPECT_EQ(button->sizeThatFits({}),
              (CGSize{std::ceil(title + 8.0), std::ceil(estimatedLineHeight(big))}));
    button->setImage(makeImage({24, 60}), UIControlStateNormal);
    EXPECT_EQ(button->sizeThatFits({}),
              (CGSize{std::ceil(24.0 + 4.0 + title + 8.0), std::ceil(estimatedLineHeight(big))}));
    button->setImage(makeImage({24, 160}), UIControlStateNormal);
    EXPECT_EQ(button->sizeThatFits({}).height, 160.0);
}

// Looks

TEST_F(UIButtonTest, HeldDownItLightsUp) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    EXPECT_THAT(drawnBy<CGDrawing::FillRoundedRect>(*button), IsEmpty());
    EXPECT_TRUE(isDrawnAfter([&] { host.touchDown({50, 50}); }));
    const auto glow = drawnBy<CGDrawing::FillRoundedRect>(*button);
    ASSERT_EQ(glow.size(), 1U);
    EXPECT_TRUE(CGRectContainsRect(button->bounds(), glow[0].rect));
    EXPECT_TRUE(isDrawnAfter([&] { host.touchMove({50, 95}); }));
    EXPECT_THAT(drawnBy<CGDrawing::FillRoundedRect>(*button), IsEmpty());
}

TEST_F(UIButtonTest, DisabledItFades) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    button->setTitle("Play", UIControlStateNormal);
    EXPECT_THAT(drawnBy<CGDrawing::BeginGroup>(*button), IsEmpty());
    button->setEnabled(false);
    const auto groups = drawnBy<CGDrawing::BeginGroup>(*button);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_LT(groups[0].alpha, 0.5);
    EXPECT_EQ(groups[0].bounds, images().at(0));
    EXPECT_LT(texts().at(0).style.color.alpha, 0.5);
}

TEST_F(UIButtonTest, WhatIsMeantForTheDisabledStateDoesNotFade) {
    button->setImage(makeImage({24, 24}), UIControlStateDisabled);
    button->setTitle("Play", UIControlStateNormal);
    button->setTitleColor(make<UIColor>(1.0, 0.0, 0.0, 1.0), UIControlStateDisabled);
    button->setEnabled(false);
    EXPECT_THAT(drawnBy<CGDrawing::BeginGroup>(*button), IsEmpty());
    EXPECT_EQ(texts().at(0).style.color, red);
}

TEST_F(UIButtonTest, ATintColorsDrawingsAndTitlesWithoutAColor) {
    button->setImage(makeImage({24, 24}, {0.0, 0.0, 1.0, 0.5}), UIControlStateNormal);
    button->setTitle("Play", UIControlStateNormal);
    EXPECT_EQ(drawnBy<CGDrawing::FillRect>(*button).at(0).color, (CGColor{0.0, 0.0, 1.0, 0.5}));
    button->setTintColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    EXPECT_EQ(drawnBy<CGDrawing::FillRect>(*button).at(0).color, (CGColor{1.0, 0.0, 0.0, 0.5}));
    EXPECT_EQ(texts().at(0).style.color, red);
    button->setTitleColor(make<UIColor>(1.0, 1.0), UIControlStateNormal);
    EXPECT_EQ(texts().at(0).style.color, white);
}

TEST_F(UIButtonTest, PixelsKeepTheirColorsUnderATint) {
    const auto pixels = CGImage::create(1, 1, {10, 20, 30, 255});
    button->setImage(make<UIImage>(pixels), UIControlStateNormal);
    button->setTintColor(make<UIColor>(1.0, 0.0, 0.0, 1.0));
    EXPECT_EQ(drawnBy<CGDrawing::DrawImage>(*button).at(0).image, pixels);
}

TEST_F(UIButtonTest, DrawingAllocatesNothing) {
    button->setImage(makeImage({24, 24}), UIControlStateNormal);
    button->setTitle("A title that is too long for a string to hold in itself", UIControlStateNormal);
    button->setTintColor(make<UIColor>(1.0, 0.5));
    button->setEnabled(false);
    button->setHighlighted(true);
    NullContext context;
    const std::size_t before = allocationCount();
    button->drawRect(context, button->bounds());
    EXPECT_EQ(allocationCount(), before);
}

TEST_F(UIButtonTest, CanBeReachedByName) {
    const auto image = makeImage({24, 24});
    const auto color = make<UIColor>(1.0, 0.5);
    button->send("setTitle:forState:", "Play", UIControlStateNormal);
    button->send("setImage:forState:", image, UIControlStateNormal);
    button->send("setTitleColor:forState:", color, UIControlStateNormal);
    button->send("setEnabled:", false);
    EXPECT_EQ(button->send<std::optional<std::string>>("currentTitle"), "Play");
    EXPECT_EQ(button->send<std::shared_ptr<UIImage>>("currentImage"), image);
    EXPECT_EQ(button->send<std::shared_ptr<UIImage>>("imageForState:", UIControlStateSelected), image);
    EXPECT_EQ(button->send<std::shared_ptr<UIColor>>("titleColorForState:", UIControlStateNormal), color);
    EXPECT_EQ(button->send<std::optional<std::string>>("titleForState:", UIControlStateSelected), "Play");
    EXPECT_FALSE(button->isEnabled());
}

// Keys

class UIButtonKeyTest : public UIButtonTest {
protected:
    bool press(const UIKey& key) {
        recorder->events.clear();
        return host.window()->sendKey(key);
    }

    const UIKey enter{UIKeyboardHIDUsage::ReturnOrEnter, "", false};
    const UIKey space{UIKeyboardHIDUsage::None, " ", false};
};

TEST_F(UIButtonKeyTest, ReturnAndSpacePressAFocusedButton) {
    host.window()->setFocusedView(button);
    EXPECT_TRUE(press(enter));
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
    EXPECT_TRUE(press(space));
    EXPECT_THAT(recorder->events, ElementsAre("down", "up inside"));
    EXPECT_FALSE(button->isHighlighted());
}

TEST_F(UIButtonKeyTest, OtherKeysGoOn) {
    host.window()->setFocusedView(button);
    EXPECT_FALSE(press({UIKeyboardHIDUsage::None, "m", false}));
    EXPECT_FALSE(press({UIKeyboardHIDUsage::LeftArrow, "", false}));
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UIButtonKeyTest, AButtonWithoutTheFocusTakesNoKey) {
    EXPECT_FALSE(press(enter));
    EXPECT_FALSE(button->keyPressed(enter));
    host.window()->setFocusedView(button);
    button->setEnabled(false);
    EXPECT_FALSE(press(enter));
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UIButtonKeyTest, AKeyThatIsHeldPressesOnce) {
    host.window()->setFocusedView(button);
    EXPECT_TRUE(press({UIKeyboardHIDUsage::ReturnOrEnter, "", true}));
    EXPECT_THAT(recorder->events, IsEmpty());
}

TEST_F(UIButtonKeyTest, AKeyDuringATouchPressesNothing) {
    host.window()->setFocusedView(button);
    host.touchDown({30, 40});
    EXPECT_TRUE(press(enter));
    EXPECT_THAT(recorder->events, IsEmpty());
    host.touchUp({30, 40});
    EXPECT_THAT(recorder->events, ElementsAre("up inside"));
}

TEST_F(UIButtonKeyTest, AButtonThatGoesWhileItIsPressedCancels) {
    host.window()->setFocusedView(button);
    recorder->onEvent = [this](const std::string& event) {
        if (event == "down") {
            button->removeFromSuperview();
            button.reset();
        }
    };
    EXPECT_TRUE(press(enter));
    EXPECT_THAT(recorder->events, ElementsAre("down", "cancel"));
}

} // namespace
