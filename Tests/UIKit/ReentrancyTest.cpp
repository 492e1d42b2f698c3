#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UIControl.h"
#include "Platform/UIKit/UIWindow.h"
#include "Tests/UIKit/TestViews.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

namespace {

using namespace CoreGraphics;
using namespace UIKit;
using Foundation::make;

constexpr UIControlEvents singleEvents[] = {
    UIControlEventTouchDown,      UIControlEventTouchDragInside, UIControlEventTouchDragOutside,
    UIControlEventTouchDragEnter, UIControlEventTouchDragExit,   UIControlEventTouchUpInside,
    UIControlEventTouchUpOutside, UIControlEventTouchCancel,     UIControlEventValueChanged};

/// A control in a group in a window, which all but hold themselves, and what a callback may do to them.
class Scene {
public:
    struct Destruction {
        const char* name;
        void (Scene::*destroy)();

        friend void PrintTo(const Destruction& destruction, std::ostream* out) { *out << destruction.name; }
    };

    Scene() {
        window->addSubview(group);
        group->addSubview(control);
        group->addSubview(probe);
    }

    /// Lets go of the weak references too: while there are any, the memory of what is gone stays allocated,
    /// and no sanitizer sees it used.
    void unwatch() {
        weakWindow.reset();
        weakControl.reset();
        weakProbe.reset();
    }

    void removeSender() {
        if (control) {
            control->removeFromSuperview();
            probe->removeFromSuperview();
        }
    }

    void dropSender() {
        removeSender();
        control.reset();
        probe.reset();
    }

    void dropSuperview() {
        if (group) {
            group->removeFromSuperview();
            group.reset();
            control.reset();
            probe.reset();
        }
    }

    void dropWindow() {
        group.reset();
        control.reset();
        probe.reset();
        window.reset();
    }

    void dropEverythingInTurn() {
        dropSender();
        dropSuperview();
        dropWindow();
    }

    void sendTouch(UITouchPhase phase, const CGPoint& location) {
        if (window) {
            window->sendTouch(0, phase, location);
        }
    }

    static constexpr CGPoint onControl{10, 10};
    static constexpr CGPoint onProbe{60, 10};
    static constexpr CGPoint onNothing{500, 10};

    KivUICore::Headless::VirtualClock clock;
    Foundation::NSRunLoop loop{clock};
    std::shared_ptr<UIWindow> window = make<UIWindow>(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIView> group = make<UIView>(CGRectMake(0, 0, 100, 100));
    std::shared_ptr<UIControl> control = make<UIControl>(CGRectMake(0, 0, 50, 50));
    std::shared_ptr<ProbeView> probe = makeProbe(CGRectMake(50, 0, 50, 50));
    std::shared_ptr<Log> log = probe->log;

    std::weak_ptr<UIWindow> weakWindow = window;
    std::weak_ptr<UIControl> weakControl = control;
    std::weak_ptr<ProbeView> weakProbe = probe;
};

enum class Watch { ForLeaks, ForUseAfterwards };

class ReentrancyTest : public testing::TestWithParam<std::tuple<Scene::Destruction, Watch>> {
protected:
    void SetUp() override { prepare(scene); }

    static void prepare(Scene& fresh) {
        if (std::get<Watch>(GetParam()) == Watch::ForUseAfterwards) {
            fresh.unwatch();
        }
    }

    static void destroy(Scene& any) { (any.*std::get<Scene::Destruction>(GetParam()).destroy)(); }
    void destroy() { destroy(scene); }

    /// A full gesture: in, about, out, about, in and up, then one that ends outside and one that is
    /// cancelled.
    void gesture(const CGPoint& start) {
        const auto path = [&](std::initializer_list<CGPoint> points) {
            scene.sendTouch(UITouchPhase::Began, start);
            for (const CGPoint& point : points) {
                scene.sendTouch(UITouchPhase::Moved, point);
            }
        };
        path({start, Scene::onNothing, Scene::onNothing, start});
        scene.sendTouch(UITouchPhase::Ended, start);
        path({Scene::onNothing});
        scene.sendTouch(UITouchPhase::Ended, Scene::onNothing);
        path({start});
        scene.sendTouch(UITouchPhase::Cancelled, start);
    }

    /// What was given up is gone, and what follows meets nobody.
    void expectSettled() {
        scene.dropEverythingInTurn();
        EXPECT_TRUE(scene.weakControl.expired());
        EXPECT_TRUE(scene.weakProbe.expired());
        EXPECT_TRUE(scene.weakWindow.expired());
    }

    Scene scene;
};

TEST_P(ReentrancyTest, ControlEvent) {
    for (const UIControlEvents event : singleEvents) {
        Scene fresh;
        prepare(fresh);
        int told = 0;
        const auto target = makeListener([&] {
            ++told;
            destroy(fresh);
        });
        fresh.control->addTarget(target, "tell:", event);
        const auto send = [&](UITouchPhase phase, const CGPoint& point) { fresh.sendTouch(phase, point); };
        send(UITouchPhase::Began, Scene::onControl);
        send(UITouchPhase::Moved, Scene::onControl);
        send(UITouchPhase::Moved, Scene::onNothing);
        send(UITouchPhase::Moved, Scene::onControl);
        if (event == UIControlEventTouchUpInside) {
            send(UITouchPhase::Ended, Scene::onControl);
        } else if (event == UIControlEventTouchUpOutside) {
            send(UITouchPhase::Ended, Scene::onNothing);
        } else if (event == UIControlEventTouchCancel) {
            send(UITouchPhase::Cancelled, Scene::onNothing);
        } else if (event == UIControlEventValueChanged) {
            fresh.control->sendActionsForControlEvents(event);
        }
        send(UITouchPhase::Moved, Scene::onControl);
        send(UITouchPhase::Ended, Scene::onControl);
        EXPECT_EQ(told, 1) << event;
        target->sender.reset();
        fresh.dropEverythingInTurn();
        EXPECT_TRUE(fresh.weakControl.expired());
        EXPECT_TRUE(fresh.weakWindow.expired());
    }
}

TEST_P(ReentrancyTest, ControlEventWithFurtherTargets) {
    int told = 0;
    const auto destroyer = makeListener([&] { destroy(); });
    const auto witness = makeListener([&] { ++told; });
    scene.control->addTarget(destroyer, "tell", UIControlEventTouchDown);
    scene.control->addTarget(witness, "tell", UIControlEventTouchDown);
    gesture(Scene::onControl);
    EXPECT_GE(told, 1) << "it was registered when the event happened";
    expectSettled();
}

TEST_P(ReentrancyTest, TouchStep) {
    for (const std::size_t step : {1u, 2u, 3u, 6u, 7u, 8u, 9u, 11u, 12u}) {
        Scene fresh;
        prepare(fresh);
        fresh.log->clear();
        fresh.probe->onTouch = [&](const UITouch& touch) {
            if (fresh.log->size() == step) {
                destroy(fresh);
            }
            EXPECT_NE(touch.view, nullptr);
        };
        for (int round = 0; round < 3; ++round) {
            fresh.sendTouch(UITouchPhase::Began, Scene::onProbe);
            fresh.sendTouch(UITouchPhase::Moved, Scene::onProbe);
            fresh.sendTouch(UITouchPhase::Moved, Scene::onNothing);
            fresh.sendTouch(round == 2 ? UITouchPhase::Cancelled : UITouchPhase::Ended, Scene::onProbe);
        }
        fresh.dropEverythingInTurn();
        EXPECT_TRUE(fresh.weakProbe.expired());
        EXPECT_TRUE(fresh.weakWindow.expired());
        const auto cancels = std::count(fresh.log->begin(), fresh.log->end(), "cancelled 0");
        EXPECT_LE(cancels, 1) << step;
    }
}

TEST_P(ReentrancyTest, HitTest) {
    class Restless : public UIView {
    public:
        std::function<void()> onHitTest;
        std::shared_ptr<UIView> hitTest(const CGPoint& /*point*/) override {
            onHitTest();
            return nullptr;
        }
    };
    const auto restless = make<Restless>(CGRectMake(0, 0, 100, 100));
    restless->onHitTest = [&] { destroy(); };
    scene.window->addSubview(restless);
    gesture(Scene::onProbe);
    expectSettled();
    const auto begins = std::count(scene.log->begin(), scene.log->end(), "began 0");
    const auto ends = std::count_if(scene.log->begin(), scene.log->end(), [](const std::string& each) {
        return each == "ended 0" || each == "cancelled 0";
    });
    EXPECT_EQ(begins, ends);
}

TEST_P(ReentrancyTest, CancellationOfAllTouches) {
    scene.probe->onTouch = [&](const UITouch& touch) {
        if (touch.phase == UITouchPhase::Cancelled) {
            destroy();
        }
    };
    for (UITouchIdentifier finger = 0; finger < 3; ++finger) {
        scene.window->sendTouch(finger, UITouchPhase::Began, Scene::onProbe);
    }
    scene.log->clear();
    scene.window->cancelTouches();
    EXPECT_EQ(std::count_if(scene.log->begin(), scene.log->end(),
                            [](const std::string& each) { return each.starts_with("cancelled"); }),
              3);
    expectSettled();
}

TEST_P(ReentrancyTest, CancellationByRemoval) {
    scene.probe->onTouch = [&](const UITouch& touch) {
        if (touch.phase == UITouchPhase::Cancelled) {
            destroy();
        }
    };
    for (UITouchIdentifier finger = 0; finger < 3; ++finger) {
        scene.window->sendTouch(finger, UITouchPhase::Began, Scene::onProbe);
    }
    scene.log->clear();
    scene.group->removeFromSuperview();
    EXPECT_EQ(std::count_if(scene.log->begin(), scene.log->end(),
                            [](const std::string& each) { return each.starts_with("cancelled"); }),
              3);
    expectSettled();
}

TEST_P(ReentrancyTest, ComingIntoAWindow) {
    scene.group->removeFromSuperview();
    scene.probe->onWindow = [&] { destroy(); };
    scene.window->addSubview(scene.group);
    expectSettled();
}

TEST_P(ReentrancyTest, LeavingAWindow) {
    scene.probe->onWindow = [&] { destroy(); };
    scene.group->removeFromSuperview();
    expectSettled();
}

TEST_P(ReentrancyTest, MovingToAnotherSuperview) {
    const auto other = make<UIView>(CGRectMake(0, 0, 100, 100));
    scene.window->addSubview(other);
    scene.probe->onWindow = [&] { destroy(); };
    other->addSubview(scene.probe);
    EXPECT_LE(other->subviews().size(), 1u);
    for (const auto& each : std::vector(other->subviews())) {
        EXPECT_EQ(each->superview(), other);
        each->removeFromSuperview();
    }
    expectSettled();
}

TEST_P(ReentrancyTest, AnimationsClosure) {
    int completions = 0;
    UIView::animateWithDuration(
        0.5, 0.0, 0,
        [&] {
            scene.probe->setAlpha(0.0);
            scene.group->setFrame(CGRectMake(0, 0, 50, 50));
            destroy();
        },
        [&](bool) { ++completions; });
    scene.clock.advance(1.0);
    scene.loop.turn();
    EXPECT_EQ(completions, 1);
    expectSettled();
}

TEST_P(ReentrancyTest, Completion) {
    int completions = 0;
    for (int count = 0; count < 3; ++count) {
        UIView::animateWithDuration(
            0.5, 0.0, 0,
            [&] {
                scene.probe->setAlpha(0.1 * count);
                scene.control->setAlpha(0.1 * count);
            },
            [&](bool) {
                ++completions;
                destroy();
            });
    }
    scene.clock.advance(1.0);
    scene.loop.turn();
    EXPECT_EQ(completions, 3);
    expectSettled();
}

TEST_P(ReentrancyTest, Timer) {
    int fired = 0;
    const auto timer = Foundation::NSTimer::scheduledTimerWithTimeInterval(
        0.1, true, std::function<void(Foundation::NSTimer&)>([&](Foundation::NSTimer&) {
            ++fired;
            destroy();
        }));
    scene.window->sendTouch(0, UITouchPhase::Began, Scene::onProbe);
    UIView::animateWithDuration(0.5, 0.0, 0, [&] { scene.probe->setAlpha(0.0); });
    for (int turn = 0; turn < 10; ++turn) {
        scene.clock.advance(0.1);
        scene.loop.turn();
    }
    EXPECT_GE(fired, 9);
    timer->invalidate();
    expectSettled();
}

TEST_P(ReentrancyTest, TearDownOfASibling) {
    const auto doomed = makeProbe({});
    scene.group->addSubview(doomed);
    doomed->onTearDown = [&] { destroy(); };
    scene.window->sendTouch(0, UITouchPhase::Began, Scene::onProbe);
    const std::weak_ptr<UIView> weak = doomed;
    doomed->removeFromSuperview();
    expectSettled();
}

INSTANTIATE_TEST_SUITE_P(
    Every, ReentrancyTest,
    testing::Combine(testing::Values(Scene::Destruction{"RemovesTheSender", &Scene::removeSender},
                                     Scene::Destruction{"DropsTheSender", &Scene::dropSender},
                                     Scene::Destruction{"DropsTheSuperview", &Scene::dropSuperview},
                                     Scene::Destruction{"DropsTheWindow", &Scene::dropWindow},
                                     Scene::Destruction{"DropsEverything", &Scene::dropEverythingInTurn}),
                     testing::Values(Watch::ForLeaks, Watch::ForUseAfterwards)),
    [](const auto& each) {
        const bool isLeak = std::get<Watch>(each.param) == Watch::ForLeaks;
        return std::string(std::get<Scene::Destruction>(each.param).name) +
               (isLeak ? "ForGood" : "AndIsLeftAlone");
    });

TEST(ReentrancyHostTest, TouchMayDestroyTheHost) {
    for (const UITouchPhase last : {UITouchPhase::Began, UITouchPhase::Moved, UITouchPhase::Ended}) {
        KivUICore::Headless::HeadlessHost outer({10, 10});
        auto host = std::make_unique<KivUICore::Headless::HeadlessHost>(CGSizeMake(100, 100));
        const auto view = makeProbe(CGRectMake(0, 0, 100, 100));
        host->window()->addSubview(view);
        view->log->clear();
        view->onTouch = [&](const UITouch& touch) {
            if (touch.phase == last) {
                host.reset();
            }
        };
        host->touchDown({1, 1});
        if (host) {
            host->touchMove({1, 1});
        }
        if (host) {
            host->touchUp({1, 1});
        }
        EXPECT_EQ(host, nullptr);
        EXPECT_EQ(view->superview(), nullptr);
        EXPECT_EQ(std::count(view->log->begin(), view->log->end(), "cancelled 0"),
                  last == UITouchPhase::Ended ? 0 : 1);
    }
}

} // namespace
