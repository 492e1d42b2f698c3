#pragma once

#include "Tests/Player/Picture.h"
#include "Tests/Player/Process.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

// The library's own header names macros None and Bool.
struct _XDisplay; // NOLINT(bugprone-reserved-identifier)

namespace KivUICore::Player {

/// An X server of the test's own, with no window manager unless one is asked for, and what a person can see
/// and do there.
class VirtualScreen {
public:
    static constexpr int width = 1400;
    static constexpr int height = 900;

    VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;
    ~VirtualScreen();

    /// The value for DISPLAY.
    const std::string& name() const { return name_; }

    /// Puts windows into frames, and gives them all of the screen when they ask for it.
    void startWindowManager();

    /// The program's window that can be seen, as X numbers it; 0 while there is none.
    unsigned long findWindow() const;

    /// What the desktop tells all programs, as lines of X resources.
    void setResources(const std::string& lines) const;

    /// What a program's window shows; nothing while there is none.
    std::optional<Picture> window() const;

    void resizeWindow(int newWidth, int newHeight) const;
    void closeWindow() const;

    /// `key` as in <X11/keysym.h>.
    void pressKey(unsigned long key) const;

    /// The pointer, in pixels of the window, and its main button.
    void movePointer(int x, int y) const;
    void pressButton() const;
    void releaseButton() const;
    void click(int x, int y) const;
    void doubleClick(int x, int y) const;

    /// Drops something on the window: files, as lines of `file://…`, or what `type` says. False if it doesn't
    /// take them.
    bool drop(const std::string& text, const char* type = "text/uri-list") const;

    /// As a program does that takes away what isn't its own: the window alone, or all that its program has on
    /// the screen.
    void destroyWindow() const;
    void killWindow() const;

    /// Has the window manager make the window as large as the screen.
    void giveFullScreen() const;

    /// By notches, up if positive.
    void turnWheel(int notches) const;

    /// Commands of xdotool, any number of them in a row.
    void runTool(std::vector<std::string> words) const;

    /// The name in the window's frame, were there one.
    std::string windowTitle() const;

private:
    struct Release {
        void operator()(_XDisplay* display) const;
    };

    unsigned long findWindowIn(unsigned long parent) const;
    bool isProgram(unsigned long window) const;
    unsigned long atom(const char* name) const;
    bool handOver(const std::string& uris) const;
    bool isFinished(unsigned long source) const;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> manager_;
    std::string name_;
    std::unique_ptr<_XDisplay, Release> display_;
};

} // namespace KivUICore::Player
