#include "Player/Overlay/Messages/MessageView.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/Icons.h"
#include "Player/Overlay/Looks/PlateView.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;
using Foundation::make;

// What two bars leave of the smallest window.
constexpr CGRect smallArea = CGRectMake(0.0, 40.0, 320.0, 100.0);

class MessageViewTest : public testing::Test {
protected:
    MessageViewTest() { host.window()->addSubview(message); }

    CGRect inWindow(const UIKit::UIView& view) const {
        host.window()->layoutIfNeeded();
        return view.convertRectToView(view.bounds(), *host.window());
    }

    void tapButton() {
        const CGRect button = inWindow(*message->button());
        host.tap({CGRectGetMidX(button), CGRectGetMidY(button)});
    }

    mutable Headless::HeadlessHost host{{320.0, 180.0}};
    std::shared_ptr<MessageView> message = make<MessageView>(smallArea);
};

TEST_F(MessageViewTest, PlateFitsItsTextInTheMiddle) {
    message->setText("No film");
    host.window()->layoutIfNeeded();
    const CGRect plate = inWindow(*message->plate());
    EXPECT_NEAR(CGRectGetMidX(plate), 160.0, 0.5);
    EXPECT_NEAR(CGRectGetMidY(plate), 90.0, 0.5);
    EXPECT_LT(CGRectGetWidth(plate), 160.0);
    message->setText("cannot play 'film.mkv': no such file");
    host.window()->layoutIfNeeded();
    EXPECT_GT(CGRectGetWidth(inWindow(*message->plate())), CGRectGetWidth(plate));
    EXPECT_EQ(message->plate()->label()->text(), message->text());
}

TEST_F(MessageViewTest, LongMessageAndItsButtonFitBetweenTheBarsOfTheSmallestWindow) {
    message->setText(std::string(600, 'n'));
    message->setAction(retryIcon(), "Try again", [] {});
    host.window()->layoutIfNeeded();
    const CGRect plate = inWindow(*message->plate());
    const CGRect button = inWindow(*message->button());
    const CGRect text = inWindow(*message->plate()->label());
    EXPECT_TRUE(CGRectContainsRect(smallArea, plate));
    EXPECT_TRUE(CGRectContainsRect(plate, button));
    EXPECT_TRUE(CGRectContainsRect(plate, text));
    EXPECT_FALSE(CGRectIntersectsRect(text, button));
    EXPECT_GE(CGRectGetHeight(button), 40.0);
    EXPECT_GE(CGRectGetWidth(button), 40.0);
    // Two lines.
    EXPECT_GE(CGRectGetHeight(text), 2.0 * 18.75);
}

TEST_F(MessageViewTest, PressOfTheButtonRunsItsAction) {
    int runs = 0;
    message->setText("No film");
    message->setAction(retryIcon(), "Try again", [&runs] { ++runs; });
    host.window()->layoutIfNeeded();
    EXPECT_EQ(message->button()->currentTitle(), "Try again");
    tapButton();
    EXPECT_EQ(runs, 1);
    message->setAction(retryIcon(), "Another", [&runs] { runs += 10; });
    host.window()->layoutIfNeeded();
    tapButton();
    EXPECT_EQ(runs, 11);
}

TEST_F(MessageViewTest, OnlyTheButtonTakesTouches) {
    message->setText(std::string(100, 'n'));
    host.window()->layoutIfNeeded();
    EXPECT_EQ(host.window()->hitTest({160.0, 90.0}), host.window());
    message->setAction(retryIcon(), "Try again", [] {});
    host.window()->layoutIfNeeded();
    const CGRect text = inWindow(*message->plate()->label());
    EXPECT_EQ(host.window()->hitTest({CGRectGetMidX(text), CGRectGetMidY(text)}), host.window());
    const CGRect button = inWindow(*message->button());
    EXPECT_EQ(host.window()->hitTest({CGRectGetMidX(button), CGRectGetMidY(button)}), message->button());
    EXPECT_EQ(host.window()->hitTest({CGRectGetMinX(button) + 1.0, CGRectGetMaxY(button) - 1.0}),
              message->button());
}

TEST_F(MessageViewTest, WithoutItsActionTheButtonIsGoneAndThePlateLower) {
    int runs = 0;
    message->setText("No film");
    host.window()->layoutIfNeeded();
    const CGRect plain = message->plate()->frame();
    message->setAction(retryIcon(), "Try again", [&runs] { ++runs; });
    host.window()->layoutIfNeeded();
    EXPECT_GT(CGRectGetHeight(message->plate()->frame()), CGRectGetHeight(plain) + 20.0);
    message->clearAction();
    host.window()->layoutIfNeeded();
    EXPECT_TRUE(message->button()->isHidden());
    EXPECT_EQ(message->plate()->frame(), plain);
    tapButton();
    EXPECT_EQ(runs, 0);
}

TEST_F(MessageViewTest, LowAreaHasAnIconBesideTheText) {
    const CGRect low = CGRectMake(0.0, 40.0, 200.0, 60.0);
    int runs = 0;
    message->setText("No such file.");
    message->setAction(retryIcon(), "Try again", [&runs] { ++runs; });
    message->setFrame(low);
    host.window()->layoutIfNeeded();
    const CGRect button = inWindow(*message->button());
    const CGRect text = inWindow(*message->plate()->label());
    EXPECT_TRUE(CGRectContainsRect(low, inWindow(*message->plate())));
    EXPECT_TRUE(CGRectContainsRect(inWindow(*message->plate()), button));
    EXPECT_FALSE(CGRectIntersectsRect(text, button));
    EXPECT_GE(CGRectGetWidth(button), 40.0);
    EXPECT_GE(CGRectGetHeight(button), 40.0);
    EXPECT_EQ(message->button()->currentTitle(), std::nullopt);
    EXPECT_NE(message->button()->currentImage(), nullptr);
    EXPECT_GE(CGRectGetWidth(text), message->plate()->label()->sizeThatFits({}).width);
    tapButton();
    EXPECT_EQ(runs, 1);
    message->setFrame(smallArea);
    host.window()->layoutIfNeeded();
    EXPECT_EQ(message->button()->currentTitle(), "Try again");
    EXPECT_GE(CGRectGetMinY(inWindow(*message->button())),
              CGRectGetMaxY(inWindow(*message->plate()->label())));
}

TEST_F(MessageViewTest, InTheSmallestAreaTheTextItselfIsPressed) {
    const CGRect small = CGRectMake(0.0, 0.0, 100.0, 60.0);
    int runs = 0;
    message->setText("No such file.");
    message->setAction(retryIcon(), "Try again", [&runs] { ++runs; });
    message->setFrame(small);
    host.window()->layoutIfNeeded();
    EXPECT_TRUE(CGRectContainsRect(small, inWindow(*message->plate())));
    EXPECT_EQ(inWindow(*message->button()), inWindow(*message->plate()));
    EXPECT_EQ(message->button()->currentTitle(), std::nullopt);
    EXPECT_EQ(message->button()->currentImage(), nullptr);
    // Two lines of it.
    EXPECT_GE(CGRectGetHeight(inWindow(*message->plate()->label())), 2.0 * 16.25);
    tapButton();
    EXPECT_EQ(runs, 1);
}

TEST_F(MessageViewTest, ActionMayTearTheMessageDown) {
    message->setAction(retryIcon(), "Try again", [this] {
        message->removeFromSuperview();
        message.reset();
    });
    tapButton();
    EXPECT_EQ(message, nullptr);
}

TEST_F(MessageViewTest, FollowsItsArea) {
    message->setText("No film");
    message->setAction(retryIcon(), "Try again", [] {});
    message->setFrame(CGRectMake(0.0, 40.0, 800.0, 400.0));
    host.window()->layoutIfNeeded();
    EXPECT_NEAR(CGRectGetMidX(inWindow(*message->plate())), 400.0, 0.5);
    EXPECT_NEAR(CGRectGetMidY(inWindow(*message->plate())), 240.0, 0.5);
    message->setFrame(CGRectMake(0.0, 40.0, 10.0, 5.0));
    host.window()->layoutIfNeeded();
    EXPECT_LE(CGRectGetWidth(message->plate()->frame()), 10.0);
}

} // namespace

} // namespace KivUICore::Overlay
