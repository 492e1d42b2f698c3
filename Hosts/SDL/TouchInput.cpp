#include "Hosts/SDL/TouchInput.h"

namespace KivUICore::SDL {

using namespace CoreGraphics;
using UIKit::UITouchPhase;

namespace {

constexpr UIKit::UITouchIdentifier mouseTouch = -1;

} // namespace

void TouchInput::handle(const SDL_Event& event) {
    switch (event.type) {
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        // A finger tells of itself: what SDL makes up from it as a mouse would be a second touch.
        if (event.button.button == SDL_BUTTON_LEFT && event.button.which != SDL_TOUCH_MOUSEID) {
            mouseWent(event.type == SDL_MOUSEBUTTONDOWN ? UITouchPhase::Began : UITouchPhase::Ended,
                      event.button.x, event.button.y);
        }
        break;
    case SDL_MOUSEMOTION:
        if (isMouseDown_ && event.motion.which != SDL_TOUCH_MOUSEID) {
            mouseWent(UITouchPhase::Moved, event.motion.x, event.motion.y);
        }
        break;
    case SDL_FINGERDOWN:
        fingerWent(UITouchPhase::Began, event.tfinger);
        break;
    case SDL_FINGERMOTION:
        fingerWent(UITouchPhase::Moved, event.tfinger);
        break;
    case SDL_FINGERUP:
        fingerWent(UITouchPhase::Ended, event.tfinger);
        break;
    default:
        break;
    }
}

void TouchInput::cancel() {
    isMouseDown_ = false;
    window_->cancelTouches();
}

CGPoint TouchInput::pointAt(int x, int y) const {
    const CGSize size = window_->bounds().size;
    return {x * size.width / screenSize_.width, y * size.height / screenSize_.height};
}

void TouchInput::mouseWent(UITouchPhase phase, int x, int y) {
    isMouseDown_ = phase != UITouchPhase::Ended;
    window_->sendTouch(mouseTouch, phase, pointAt(x, y));
}

void TouchInput::fingerWent(UITouchPhase phase, const SDL_TouchFingerEvent& finger) {
    const CGSize size = window_->bounds().size;
    window_->sendTouch(
        finger.fingerId, phase,
        {static_cast<double>(finger.x) * size.width, static_cast<double>(finger.y) * size.height});
}

} // namespace KivUICore::SDL
