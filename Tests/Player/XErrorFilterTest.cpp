#include "Hosts/SDL/XErrorFilter.h"

#include "Tests/Player/VirtualScreen.h"

#include <gtest/gtest.h>
#include <memory>

// Its macros None and Bool are names in the headers above.
#include <X11/Xlib.h>

namespace KivUICore::Player {

namespace {

int errors = 0;

int countError(Display* /*display*/, XErrorEvent* /*error*/) { return ++errors; }
int ignoreOnTop(Display* /*display*/, XErrorEvent* /*error*/) { return 0; }

class XErrorFilterTest : public testing::Test {
protected:
    XErrorFilterTest() {
        errors = 0;
        before = XSetErrorHandler(countError);
    }
    ~XErrorFilterTest() override { XSetErrorHandler(before); }

    /// A request that names a window which isn't there.
    void ask(Window window) const {
        XWindowAttributes attributes{};
        EXPECT_EQ(XGetWindowAttributes(display.get(), window, &attributes), 0);
    }

    static constexpr Window own = 0x1234567;
    static constexpr Window other = 0x1234568;

    VirtualScreen screen;
    std::unique_ptr<Display, decltype(&XCloseDisplay)> display{XOpenDisplay(screen.name().c_str()),
                                                               XCloseDisplay};
    XErrorHandler before = nullptr;
};

TEST_F(XErrorFilterTest, PassesOverErrorsOfItsWindowsAloneWhileItIsThere) {
    {
        SDL::XErrorFilter filter;
        filter.add(own);
        ask(own);
        EXPECT_EQ(errors, 0);
        ask(other);
        EXPECT_EQ(errors, 1);
    }
    ask(own);
    EXPECT_EQ(errors, 2);
    EXPECT_EQ(XSetErrorHandler(countError), &countError) << "the handler is put back";
}

TEST_F(XErrorFilterTest, TwoAtATimeKnowEachTheirWindows) {
    SDL::XErrorFilter first;
    first.add(own);
    {
        SDL::XErrorFilter second;
        second.add(other);
        ask(own);
        ask(other);
        EXPECT_EQ(errors, 0);
    }
    ask(own);
    EXPECT_EQ(errors, 0);
    ask(other);
    EXPECT_EQ(errors, 1);
}

TEST_F(XErrorFilterTest, HandlerThatCameOnTopStaysThere) {
    auto filter = std::make_unique<SDL::XErrorFilter>();
    const XErrorHandler filtering = XSetErrorHandler(ignoreOnTop);
    filter.reset();
    EXPECT_EQ(XSetErrorHandler(filtering), &ignoreOnTop);
    ask(own);
    EXPECT_EQ(errors, 1) << "what is left in the chain hands on";
    // The next one takes its place in the chain, and out of it.
    filter = std::make_unique<SDL::XErrorFilter>();
    filter->add(own);
    ask(own);
    EXPECT_EQ(errors, 1);
    filter.reset();
    EXPECT_EQ(XSetErrorHandler(countError), &countError);
}

} // namespace

} // namespace KivUICore::Player
