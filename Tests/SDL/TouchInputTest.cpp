#include "Hosts/SDL/TouchInput.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/NSRunLoop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace KivUICore::SDL {

namespace {

using namespace CoreGraphics;
using Foundation::make;
using UIKit::UITouch;
using UIKit::UITouchPhase;

struct Step {
    UITouchPhase phase;
    CGPoint location;

    friend bool operator==(const Step&, const Step&) = default;
};

void PrintTo(const Step& step, std::ostream* stream) {
    *stream << "phase " << static_cast<int>(step.phase) << " at " << step.location.x << ", "
            << step.location.y;
}

class TouchedView : public UIKit::UIView {
public:
    std::vector<Step> steps;
    std::vector<UIKit::UITouchIdentifier> identifiers;

    void touchesBegan(const UITouch& touch) override { note(touch); }
    void touchesMoved(const UITouch& touch) override { note(touch); }
    void touchesEnded(const UITouch& touch) override { note(touch); }
    void touchesCancelled(const UITouch& touch) override { note(touch); }

private:
    void note(const UITouch& touch) {
        steps.push_back({touch.phase, touch.location});
        identifiers.push_back(touch.identifier);
    }
};

struct StillClock : Foundation::Clock {
    double now() const override { return 0.0; }
};

/// A window of 400 by 200 points on a screen of twice as many units each way.
class TouchInputTest : public testing::Test {
protected:
    TouchInputTest() {
        window->addSubview(view);
        input.setScreenSize({800.0, 400.0});
    }

    void mouse(Uint32 type, int x, int y, Uint8 button = SDL_BUTTON_LEFT, Uint32 which = 0) {
        SDL_Event event{};
        event.type = type;
        event.button.button = button;
        event.button.which = which;
        event.button.x = x;
        event.button.y = y;
        input.handle(event);
    }

    void mouseMoves(int x, int y, Uint32 which = 0) {
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.which = which;
        event.motion.x = x;
        event.motion.y = y;
        input.handle(event);
    }

    void finger(Uint32 type, SDL_FingerID identifier, float x, float y) {
        SDL_Event event{};
        event.type = type;
        event.tfinger.fingerId = identifier;
        event.tfinger.x = x;
        event.tfinger.y = y;
        input.handle(event);
    }

    StillClock clock;
    Foundation::NSRunLoop runLoop{clock};
    std::shared_ptr<UIKit::UIWindow> window = make<UIKit::UIWindow>(CGRectMake(0.0, 0.0, 400.0, 200.0));
    std::shared_ptr<TouchedView> view = make<TouchedView>(CGRectMake(0.0, 0.0, 400.0, 200.0));
    TouchInput input{window};
};

TEST_F(TouchInputTest, MouseButtonIsATouchInPoints) {
    mouse(SDL_MOUSEBUTTONDOWN, 100, 60);
    mouseMoves(200, 80);
    mouse(SDL_MOUSEBUTTONUP, 202, 80);
    EXPECT_THAT(view->steps, testing::ElementsAre(Step{UITouchPhase::Began, {50.0, 30.0}},
                                                  Step{UITouchPhase::Moved, {100.0, 40.0}},
                                                  Step{UITouchPhase::Ended, {101.0, 40.0}}));
}

TEST_F(TouchInputTest, MouseWithoutItsMainButtonTouchesNothing) {
    mouseMoves(10, 10);
    mouse(SDL_MOUSEBUTTONDOWN, 10, 10, SDL_BUTTON_RIGHT);
    mouseMoves(20, 10);
    mouse(SDL_MOUSEBUTTONUP, 20, 10, SDL_BUTTON_RIGHT);
    EXPECT_TRUE(view->steps.empty());
}

TEST_F(TouchInputTest, FingersAreTouchesSideBySide) {
    finger(SDL_FINGERDOWN, 7, 0.25F, 0.5F);
    finger(SDL_FINGERDOWN, 8, 0.5F, 0.5F);
    finger(SDL_FINGERMOTION, 7, 0.75F, 0.5F);
    finger(SDL_FINGERUP, 8, 0.5F, 0.5F);
    finger(SDL_FINGERUP, 7, 0.75F, 0.5F);
    EXPECT_THAT(view->steps, testing::ElementsAre(Step{UITouchPhase::Began, {100.0, 100.0}},
                                                  Step{UITouchPhase::Began, {200.0, 100.0}},
                                                  Step{UITouchPhase::Moved, {300.0, 100.0}},
                                                  Step{UITouchPhase::Ended, {200.0, 100.0}},
                                                  Step{UITouchPhase::Ended, {300.0, 100.0}}));
    EXPECT_THAT(view->identifiers, testing::ElementsAre(7, 8, 7, 8, 7));
}

TEST_F(TouchInputTest, MouseThatIsMadeUpFromAFingerIsIgnored) {
    mouse(SDL_MOUSEBUTTONDOWN, 10, 10, SDL_BUTTON_LEFT, SDL_TOUCH_MOUSEID);
    mouseMoves(20, 10, SDL_TOUCH_MOUSEID);
    mouse(SDL_MOUSEBUTTONUP, 20, 10, SDL_BUTTON_LEFT, SDL_TOUCH_MOUSEID);
    EXPECT_TRUE(view->steps.empty());
}

TEST_F(TouchInputTest, CancelEndsAllTouchesAndLaterStepsAreIgnored) {
    mouse(SDL_MOUSEBUTTONDOWN, 100, 60);
    finger(SDL_FINGERDOWN, 7, 0.25F, 0.5F);
    input.cancel();
    mouseMoves(200, 80);
    mouse(SDL_MOUSEBUTTONUP, 200, 80);
    finger(SDL_FINGERUP, 7, 0.25F, 0.5F);
    ASSERT_EQ(view->steps.size(), 4U);
    EXPECT_EQ(view->steps[2].phase, UITouchPhase::Cancelled);
    EXPECT_EQ(view->steps[3].phase, UITouchPhase::Cancelled);
}

TEST_F(TouchInputTest, LocationsFollowTheWindowsSize) {
    window->setFrame(CGRectMake(0.0, 0.0, 800.0, 200.0));
    mouse(SDL_MOUSEBUTTONDOWN, 100, 60);
    ASSERT_EQ(view->steps.size(), 1U);
    EXPECT_EQ(view->steps[0].location, (CGPoint{100.0, 30.0}));
}

} // namespace

} // namespace KivUICore::SDL
