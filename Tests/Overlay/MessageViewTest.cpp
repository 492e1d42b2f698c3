#include "Player/Overlay/MessageView.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/PlateView.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

namespace Overlay {

namespace {

using namespace CoreGraphics;
using Foundation::make;

// What two bars leave of the smallest window.
constexpr CGRect smallArea = CGRectMake(0.0, 40.0, 320.0, 100.0);

class MessageViewTest : public testing::Test {
protected:
    MessageViewTest() { host.window()->addSubview(message); }

    CGRect inWindow(const UIKit::UIView& view) const {
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
    const CGRect plate = inWindow(*message->plate());
    EXPECT_NEAR(CGRectGetMidX(plate), 160.0, 0.5);
    EXPECT_NEAR(CGRectGetMidY(plate), 90.0, 0.5);
    EXPECT_LT(CGRectGetWidth(plate), 160.0);
    message->setText("cannot play 'film.mkv': no such file");
    EXPECT_GT(CGRectGetWidth(inWindow(*message->plate())), CGRectGetWidth(plate));
    EXPECT_EQ(message->plate()->label()->text(), message->text());
}

TEST_F(MessageViewTest, LongMessageAndItsButtonFitBetweenTheBarsOfTheSmallestWindow) {
    message->setText(std::string(600, 'n'));
    message->setAction("Try again", [] {});
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
    message->setAction("Try again", [&runs] { ++runs; });
    EXPECT_EQ(message->button()->currentTitle(), "Try again");
    tapButton();
    EXPECT_EQ(runs, 1);
    message->setAction("Another", [&runs] { runs += 10; });
    tapButton();
    EXPECT_EQ(runs, 11);
}

TEST_F(MessageViewTest, OnlyTheButtonTakesTouches) {
    message->setText(std::string(100, 'n'));
    EXPECT_EQ(host.window()->hitTest({160.0, 90.0}), host.window());
    message->setAction("Try again", [] {});
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
    const CGRect plain = message->plate()->frame();
    message->setAction("Try again", [&runs] { ++runs; });
    EXPECT_GT(CGRectGetHeight(message->plate()->frame()), CGRectGetHeight(plain) + 20.0);
    message->clearAction();
    EXPECT_TRUE(message->button()->isHidden());
    EXPECT_EQ(message->plate()->frame(), plain);
    tapButton();
    EXPECT_EQ(runs, 0);
}

TEST_F(MessageViewTest, ActionMayTearTheMessageDown) {
    message->setAction("Try again", [this] {
        message->removeFromSuperview();
        message.reset();
    });
    tapButton();
    EXPECT_EQ(message, nullptr);
}

TEST_F(MessageViewTest, FollowsItsArea) {
    message->setText("No film");
    message->setAction("Try again", [] {});
    message->setFrame(CGRectMake(0.0, 40.0, 800.0, 400.0));
    EXPECT_NEAR(CGRectGetMidX(inWindow(*message->plate())), 400.0, 0.5);
    EXPECT_NEAR(CGRectGetMidY(inWindow(*message->plate())), 240.0, 0.5);
    message->setFrame(CGRectMake(0.0, 40.0, 10.0, 5.0));
    EXPECT_LE(CGRectGetWidth(message->plate()->frame()), 10.0);
}

} // namespace

} // namespace Overlay
