#include "Hosts/SDL/EventLoop.h"

#include "Hosts/SDL/DesktopWindow.h"
#include "Hosts/SDL/FilmSource.h"
#include "Platform/Foundation/NSRunLoop.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace KivUICore::SDL {

EventLoop::EventLoop(Foundation::NSRunLoop& runLoop, DesktopWindow& window, FilmSource& film,
                     std::function<void()> onWakeUp)
    : runLoop_(runLoop), window_(window), film_(film), onWakeUp_(std::move(onWakeUp)),
      wakeUpEvent_(SDL_RegisterEvents(1)) {
    film_.setWakeUp([this] { wakeUp(); });
}

EventLoop::~EventLoop() {
    film_.setWakeUp([] {});
}

void EventLoop::run() {
    while (!isStopped_) {
        waitForEvents();
        if (isStopped_) {
            return;
        }
        handOverWakeUp();
        window_.settle();
        runLoop_.turn();
        displayIfDue();
    }
}

// Called often: one event in the queue is enough.
void EventLoop::wakeUp() {
    if (!isWakeUpPending_.exchange(true)) {
        SDL_Event event{};
        event.type = wakeUpEvent_;
        SDL_PushEvent(&event);
    }
}

void EventLoop::waitForEvents() {
    constexpr double longestWait = 1e6;
    const double seconds = timeUntilNextWork();
    // Rounded up, or the loop would spin through the last fraction of a millisecond.
    const int milliseconds = seconds > longestWait ? -1 : static_cast<int>(std::ceil(seconds * 1000.0));
    SDL_Event event;
    for (int found = SDL_WaitEventTimeout(&event, milliseconds); found != 0 && !isStopped_;
         found = SDL_PollEvent(&event)) {
        handle(event);
    }
}

void EventLoop::handle(const SDL_Event& event) {
    if (event.type == wakeUpEvent_) {
        isAwake_ = true;
    } else {
        window_.handle(event);
    }
}

// Not among the events: who has more to do each time would keep them from ending.
void EventLoop::handOverWakeUp() {
    if (std::exchange(isAwake_, false)) {
        isWakeUpPending_ = false;
        onWakeUp_();
    }
}

double EventLoop::timeUntilNextWork() {
    const double seconds = runLoop_.timeUntilNextWork().value_or(std::numeric_limits<double>::infinity());
    return std::min(seconds, timeUntilNextPicture());
}

double EventLoop::timeUntilNextPicture() {
    if (!hasShownFilm_ && film_.hasNewFrame()) {
        return 0.0;
    }
    return window_.needsDisplay() || film_.hasNewFrame() ? std::max(0.0, nextPicture_ - runLoop_.now())
                                                         : std::numeric_limits<double>::infinity();
}

void EventLoop::displayIfDue() {
    if (timeUntilNextPicture() > 0.0) {
        return;
    }
    hasShownFilm_ = hasShownFilm_ || film_.hasNewFrame();
    // A little early rather than a frame late.
    constexpr double haste = 0.9;
    nextPicture_ = runLoop_.now() + haste / window_.refreshRate();
    window_.display();
}

} // namespace KivUICore::SDL
