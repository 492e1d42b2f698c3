#pragma once

#include <SDL.h>
#include <atomic>
#include <functional>

namespace Foundation {
class NSRunLoop;
} // namespace Foundation

namespace KivUICore::SDL {

class DesktopWindow;
class FilmSource;

/// Runs a window: sleeps until there is an event, a frame of the film, or work for the run loop, and shows
/// what came of it, in one picture for all and no faster than the screen; the film's very first frame, which
/// somebody waits for, at once. The film wakes it while it exists.
class EventLoop {
public:
    /// All outlive the loop. `onWakeUp` is called in the loop after the film or `wakeUp` woke it, once a
    /// turn.
    EventLoop(Foundation::NSRunLoop& runLoop, DesktopWindow& window, FilmSource& film,
              std::function<void()> onWakeUp);
    EventLoop(const EventLoop&) = delete;
    EventLoop& operator=(const EventLoop&) = delete;
    ~EventLoop();

    /// Returns after `stop` was called.
    void run();
    void stop() { isStopped_ = true; }

    /// Makes the loop call `onWakeUp` soon. May be called on any thread.
    void wakeUp();

private:
    void waitForEvents();
    void handle(const SDL_Event& event);
    void handOverWakeUp();
    void displayIfDue();
    double timeUntilNextWork();
    double timeUntilNextPicture();

    Foundation::NSRunLoop& runLoop_;
    DesktopWindow& window_;
    FilmSource& film_;
    std::function<void()> onWakeUp_;
    Uint32 wakeUpEvent_;
    std::atomic<bool> isWakeUpPending_ = false;
    bool isAwake_ = false;
    bool isStopped_ = false;
    double nextPicture_ = 0.0;
    bool hasShownFilm_ = false;
};

} // namespace KivUICore::SDL
