#include "Platform/UIKit/UIResponder.h"

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/Message.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/UIKit/TestViews.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;
using testing::ElementsAre;
using testing::IsEmpty;

/// Owns a window, and writes down what reaches it.
class WindowOwner : public UIResponder {
public:
    Log log;
    bool takes = false;
    std::shared_ptr<UIResponder> next;

    std::shared_ptr<UIResponder> nextResponder() const override { return next; }
    void touchesBegan(const UITouch& touch) override {
        log.push_back("began");
        UIResponder::touchesBegan(touch);
    }
    void touchesMoved(const UITouch& touch) override {
        log.push_back("moved");
        UIResponder::touchesMoved(touch);
    }
    void touchesEnded(const UITouch& touch) override {
        log.push_back("ended");
        UIResponder::touchesEnded(touch);
    }
    void touchesCancelled(const UITouch& touch) override {
        log.push_back("cancelled");
        UIResponder::touchesCancelled(touch);
    }
    bool scrollBy(const CGPoint& /*delta*/) override {
        log.push_back("scrolled");
        return takes;
    }
    bool keyPressed(const UIKey& key) override {
        log.push_back("key " + key.characters);
        return takes;
    }
};

class UIResponderTest : public testing::Test {
protected:
    UIResponderTest() {
        window.addSubview(view);
        window.setOwner(owner);
        view->log->clear();
    }

    KivUICore::Headless::HeadlessHost host{{100, 100}};
    UIWindow& window = *host.window();
    std::shared_ptr<UIView> plain = make<UIView>(CGRectMake(0, 50, 50, 50));
    std::shared_ptr<ProbeView> view = makeProbe(CGRectMake(0, 0, 50, 50), "view ");
    std::shared_ptr<WindowOwner> owner = make<WindowOwner>();
    const UIKey key{UIKeyboardHIDUsage::None, "m", false};
};

using UIResponderDeathTest = UIResponderTest;

TEST_F(UIResponderTest, TheWayLeadsFromAViewToThoseAroundItTheWindowAndItsOwner) {
    view->addSubview(plain);
    EXPECT_EQ(plain->nextResponder(), view);
    EXPECT_EQ(view->nextResponder(), host.window());
    EXPECT_EQ(window.nextResponder(), owner);
    EXPECT_EQ(make<UIResponder>()->nextResponder(), nullptr);
    EXPECT_EQ(make<UIView>()->nextResponder(), nullptr);
}

TEST_F(UIResponderTest, ATouchThatNoViewTakesReachesTheOwnerAndWhoIsBehindIt) {
    window.addSubview(plain);
    const auto last = make<WindowOwner>();
    owner->next = last;
    host.tap({10, 60});
    host.touchDown({10, 60});
    host.touchMove({11, 60});
    host.touchCancel();
    EXPECT_THAT(owner->log, ElementsAre("began", "ended", "began", "moved", "cancelled"));
    EXPECT_EQ(last->log, owner->log);
    EXPECT_THAT(*view->log, IsEmpty());
}

TEST_F(UIResponderTest, ATouchThatAViewTakesReachesNobodyElse) {
    host.tap({10, 10});
    EXPECT_THAT(owner->log, IsEmpty());
}

TEST_F(UIResponderTest, TheWheelReachesTheOwnerAfterTheViews) {
    EXPECT_FALSE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_THAT(*view->log, ElementsAre("view scrolled 1"));
    EXPECT_THAT(owner->log, ElementsAre("scrolled"));
    owner->takes = true;
    EXPECT_TRUE(window.sendScroll({10, 10}, {0, 1}));
}

TEST_F(UIResponderTest, AKeyThatNobodyTakesReachesTheOwnerAndWhoIsBehindIt) {
    const auto last = make<WindowOwner>();
    owner->next = last;
    EXPECT_FALSE(window.sendKey(key));
    EXPECT_THAT(owner->log, ElementsAre("key m"));
    EXPECT_THAT(last->log, ElementsAre("key m"));
    last->takes = true;
    EXPECT_TRUE(window.sendKey(key));
    owner->takes = true;
    last->log.clear();
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_THAT(last->log, IsEmpty());
}

TEST_F(UIResponderTest, AModalViewLetsKeysThroughToTheOwnerAndKeepsTheWheel) {
    const auto modal = makeProbe(CGRectMake(0, 0, 100, 100));
    window.addModalView(modal, view);
    owner->takes = true;
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_TRUE(window.sendScroll({10, 10}, {0, 1}));
    EXPECT_THAT(owner->log, ElementsAre("key m"));
    modal->onKey = [](const UIKey&) { return true; };
    EXPECT_TRUE(window.sendKey(key));
    EXPECT_THAT(owner->log, ElementsAre("key m"));
}

TEST_F(UIResponderTest, AnOwnerIsHeldWeaklyAndReplaced) {
    const auto other = make<WindowOwner>();
    window.setOwner(other);
    window.sendKey(key);
    EXPECT_THAT(owner->log, IsEmpty());
    EXPECT_THAT(other->log, ElementsAre("key m"));
    window.setOwner(owner);
    owner.reset();
    EXPECT_EQ(window.owner(), nullptr);
    EXPECT_FALSE(window.sendKey(key));
    window.setOwner(nullptr);
    EXPECT_EQ(window.nextResponder(), nullptr);
}

TEST_F(UIResponderTest, IsReachedByName) {
    EXPECT_EQ(view->send<std::shared_ptr<UIResponder>>("nextResponder"), host.window());
    window.send("setOwner:", nullptr);
    EXPECT_EQ(window.send<std::shared_ptr<UIResponder>>("owner"), nullptr);
}

TEST_F(UIResponderDeathTest, AnOwnerThatLeadsBackToTheWindowIsReported) {
    EXPECT_DEATH(window.setOwner(view), "Fatal error: A window's owner leads back to the window");
    owner->next = view;
    EXPECT_DEATH(window.setOwner(owner), "Fatal error: A window's owner leads back to the window");
}

} // namespace
