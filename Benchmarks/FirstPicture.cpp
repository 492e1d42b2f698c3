// Prints the milliseconds from a program's start until the middle of the screen is no longer black:
// KivUICore_first_picture COMMAND... The program is ended then.

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <memory>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds patience{20};
constexpr int side = 8;

struct ImageRelease {
    void operator()(XImage* image) const { XDestroyImage(image); }
};

// Each is dark in some films, so several pixels count together.
bool showsPicture(Display* display) {
    const int screen = DefaultScreen(display);
    const int x = (DisplayWidth(display, screen) - side) / 2;
    const int y = (DisplayHeight(display, screen) - side) / 2;
    const std::unique_ptr<XImage, ImageRelease> image(
        XGetImage(display, DefaultRootWindow(display), x, y, side, side, AllPlanes, ZPixmap));
    unsigned long all = 0;
    for (int row = 0; image && row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            all |= XGetPixel(image.get(), column, row);
        }
    }
    constexpr unsigned long notNearlyBlack = 0xF0F0F0;
    return (all & notNearlyBlack) != 0;
}

bool waitForPicture(Display* display, Clock::time_point end) {
    while (!showsPicture(display)) {
        if (Clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

} // namespace

int main(int count, char** arguments) {
    Display* display = XOpenDisplay(nullptr);
    if (count < 2 || !display || showsPicture(display)) {
        std::fputs("first picture: needs a command and an X screen that is black in its middle\n", stderr);
        return 2;
    }
    const Clock::time_point start = Clock::now();
    const pid_t program = fork();
    if (program == 0) {
        execvp(arguments[1], arguments + 1);
        _exit(127);
    }
    const bool isShown = waitForPicture(display, start + patience);
    const std::chrono::duration<double, std::milli> time = Clock::now() - start;
    kill(program, SIGTERM);
    waitpid(program, nullptr, 0);
    XCloseDisplay(display);
    if (!isShown) {
        std::fputs("first picture: no picture came\n", stderr);
        return 1;
    }
    std::printf("%.0f\n", time.count());
    return 0;
}
