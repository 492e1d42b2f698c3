#include "Hosts/SDL/DesktopWindow.h"

#include "Hosts/SDL/FilmSource.h"
#include "Hosts/SDL/WindowDelegate.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIKey.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace KivUICore::SDL {

namespace {

using namespace CoreGraphics;
using Foundation::make;
using testing::ElementsAre;

class NoFilm : public FilmSource {
public:
    void setWakeUp(std::function<void()> /*wakeUp*/) override {}
    bool startOpenGL(void* (* /*functionAddress*/)(const char* name)) override { return false; }
    bool startMemory() override { return true; }
    void stopDrawing() override {}
    bool hasNewFrame() override { return false; }
    void drawIntoFramebuffer(unsigned /*framebuffer*/, const Cairo::PixelSize& /*size*/) override {}
    void drawIntoMemory(const Cairo::PixelBuffer& /*buffer*/) override {}
    void frameWasShown() override {}
};

class Diary : public WindowDelegate {
public:
    void windowWasResized() override { entries.emplace_back("resized"); }
    void fullScreenDidChange() override { entries.emplace_back("full screen"); }
    void windowShouldClose() override { entries.emplace_back("close"); }
    void keyWentDown(const UIKit::UIKey& key) override {
        entries.push_back("key " + key.characters + (key.isRepeat ? " again" : ""));
    }
    void pointerMoved(const CGPoint& location) override {
        entries.push_back("pointer " + std::to_string(static_cast<int>(location.x)) + ", " +
                          std::to_string(static_cast<int>(location.y)));
    }
    void pointerLeft() override { entries.emplace_back("left"); }
    void wheelTurned(CGFloat notches) override {
        entries.push_back("wheel " + std::to_string(static_cast<int>(notches)));
    }
    void fileWasDropped(const std::string& path) override { entries.push_back("drop " + path); }

    std::vector<std::string> entries;
};

/// Takes every key and every turn of the wheel.
class GreedyView : public UIKit::UIView {
public:
    bool keyPressed(const UIKit::UIKey& /*key*/) override { return ++keys > 0; }
    bool scrollBy(const CGPoint& delta) override {
        scrolled = delta;
        return true;
    }

    int keys = 0;
    CGPoint scrolled;
};

struct StillClock : Foundation::Clock {
    double now() const override { return 0.0; }
};

/// A window of 400 by 200 points, two pixels each, on a screen that nobody sees.
class DesktopWindowTest : public testing::Test {
protected:
    DesktopWindowTest() {
        SDL_setenv("SDL_VIDEODRIVER", "offscreen", 1);
        DesktopWindow::Problem problem{};
        window = DesktopWindow::open({.title = "test",
                                      .size = {400.0, 200.0},
                                      .scale = 2.0,
                                      .drawing = DesktopWindow::Drawing::Software},
                                     film, problem);
        if (!window) {
            throw std::runtime_error("no window can be opened");
        }
        window->setDelegate(&diary);
    }

    void key(SDL_Keycode code, Uint8 repeat = 0) {
        SDL_Event event{};
        event.type = SDL_KEYDOWN;
        event.key.keysym.sym = code;
        event.key.repeat = repeat;
        window->handle(event);
    }

    void wheel(int x, int y, int notches) {
        SDL_Event event{};
        event.type = SDL_MOUSEWHEEL;
        event.wheel.y = notches;
        event.wheel.mouseX = x;
        event.wheel.mouseY = y;
        window->handle(event);
    }

    void motion(int x, int y, Uint32 which = 0) {
        SDL_Event event{};
        event.type = SDL_MOUSEMOTION;
        event.motion.x = x;
        event.motion.y = y;
        event.motion.which = which;
        window->handle(event);
    }

    void windowEvent(SDL_WindowEventID kind) {
        SDL_Event event{};
        event.type = SDL_WINDOWEVENT;
        event.window.event = static_cast<Uint8>(kind);
        window->handle(event);
    }

    StillClock clock;
    Foundation::NSRunLoop runLoop{clock};
    NoFilm film;
    Diary diary;
    std::unique_ptr<DesktopWindow> window;
};

TEST_F(DesktopWindowTest, TellsWhatHappens) {
    key(SDLK_m);
    key(SDLK_m, 1);
    motion(100, 60);
    windowEvent(SDL_WINDOWEVENT_LEAVE);
    wheel(100, 60, -2);
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    window->handle(quit);
    EXPECT_THAT(diary.entries,
                ElementsAre("key m", "key m again", "pointer 50, 30", "left", "wheel -2", "close"));
}

TEST_F(DesktopWindowTest, KeysGoToTheViewInFrontOfAllOthersFirst) {
    const auto view = make<GreedyView>(CGRectMake(0.0, 0.0, 100.0, 100.0));
    window->views()->addModalView(view, window->views());
    key(SDLK_m);
    EXPECT_EQ(view->keys, 1);
    EXPECT_TRUE(diary.entries.empty());
    view->removeFromSuperview();
    key(SDLK_m);
    EXPECT_THAT(diary.entries, ElementsAre("key m"));
}

TEST_F(DesktopWindowTest, WheelGoesToTheViewUnderThePointerFirst) {
    const auto view = make<GreedyView>(CGRectMake(0.0, 0.0, 100.0, 100.0));
    window->views()->addSubview(view);
    wheel(100, 60, -1);
    EXPECT_EQ(view->scrolled, (CGPoint{0.0, -40.0}));
    EXPECT_TRUE(diary.entries.empty());
    wheel(300, 60, -1);
    EXPECT_THAT(diary.entries, ElementsAre("wheel -1"));
}

TEST_F(DesktopWindowTest, FingerIsNoPointer) {
    motion(100, 60, SDL_TOUCH_MOUSEID);
    EXPECT_TRUE(diary.entries.empty());
}

TEST_F(DesktopWindowTest, DroppedFileIsTold) {
    for (const char* path : {"/a.mkv", "/b.mkv"}) {
        SDL_Event event{};
        event.type = SDL_DROPFILE;
        event.drop.file = SDL_strdup(path);
        window->handle(event);
    }
    EXPECT_THAT(diary.entries, ElementsAre("drop /a.mkv"));
}

TEST_F(DesktopWindowTest, FullScreenIsToldOnceItIsThereAndAgainWhenItIsOver) {
    EXPECT_FALSE(window->isFullScreen());
    window->setFullScreen(true);
    EXPECT_TRUE(window->isFullScreen());
    EXPECT_TRUE(diary.entries.empty()) << "never from inside the call";
    window->settle();
    EXPECT_THAT(diary.entries, ElementsAre("full screen", "resized"));
    diary.entries.clear();
    window->settle();
    EXPECT_TRUE(diary.entries.empty());
    window->setFullScreen(false);
    window->settle();
    EXPECT_FALSE(window->isFullScreen());
    EXPECT_THAT(diary.entries, ElementsAre("full screen", "resized"));
    EXPECT_EQ(window->views()->bounds().size, (CGSize{400.0, 200.0}));
}

TEST_F(DesktopWindowTest, PointerIsHiddenAndShown) {
    window->setPointerHidden(true);
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
    window->setPointerHidden(false);
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_ENABLE);
}

TEST_F(DesktopWindowTest, LeavesToTheProgramAroundWhatThatUsesOfSDL) {
    ASSERT_EQ(SDL_InitSubSystem(SDL_INIT_TIMER | SDL_INIT_VIDEO), 0);
    window.reset();
    EXPECT_EQ(SDL_WasInit(SDL_INIT_TIMER | SDL_INIT_VIDEO), SDL_INIT_TIMER | SDL_INIT_VIDEO);
    SDL_QuitSubSystem(SDL_INIT_TIMER | SDL_INIT_VIDEO);
    EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
}

TEST(DesktopWindow, KeepsTheHintsOfTheProgramAround) {
    SDL_setenv("SDL_VIDEODRIVER", "offscreen", 1);
    SDL_SetHint(SDL_HINT_TOUCH_MOUSE_EVENTS, "1");
    NoFilm film;
    StillClock clock;
    Foundation::NSRunLoop runLoop{clock};
    DesktopWindow::Problem problem{};
    EXPECT_NE(DesktopWindow::open({.title = "test",
                                   .size = {400.0, 200.0},
                                   .scale = {},
                                   .drawing = DesktopWindow::Drawing::Software},
                                  film, problem),
              nullptr);
    EXPECT_STREQ(SDL_GetHint(SDL_HINT_TOUCH_MOUSE_EVENTS), "1");
    SDL_ResetHint(SDL_HINT_TOUCH_MOUSE_EVENTS);
}

TEST_F(DesktopWindowTest, WindowWithoutADelegateHearsAllTheSame) {
    window->setDelegate(nullptr);
    key(SDLK_m);
    windowEvent(SDL_WINDOWEVENT_LEAVE);
    EXPECT_TRUE(diary.entries.empty());
}

} // namespace

} // namespace KivUICore::SDL
