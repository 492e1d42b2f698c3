#pragma once

#include "Hosts/Headless/VirtualClock.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIWindow.h"

#include <memory>

namespace KivUICore::Headless {

/// A host without a screen: time passes when it is told to, touches come from a script, and what is drawn is
/// kept as operations. It makes the run loop that is current while it lives, and a window.
class HeadlessHost {
public:
    /// `size` of the window in points.
    explicit HeadlessHost(const CoreGraphics::CGSize& size);

    VirtualClock& clock() { return clock_; }
    Foundation::NSRunLoop& runLoop() { return runLoop_; }
    const std::shared_ptr<UIKit::UIWindow>& window() const { return window_; }

    /// Lets `seconds` pass, turning the run loop at each moment at which it has work, as a host that blocks
    /// in between would. At least one turn. The clock ends at just the time that was wanted, however many
    /// steps led there; what is due within the run loop's tolerance after it is done too. Everything is laid
    /// out then, as it is in a host that draws.
    void advance(double seconds);

    /// `location` in the window's coordinates.
    void touchDown(const CoreGraphics::CGPoint& location, UIKit::UITouchIdentifier identifier = 0);
    void touchMove(const CoreGraphics::CGPoint& location, UIKit::UITouchIdentifier identifier = 0);
    void touchUp(const CoreGraphics::CGPoint& location, UIKit::UITouchIdentifier identifier = 0);
    void touchCancel(UIKit::UITouchIdentifier identifier = 0);

    /// Down and up again.
    void tap(const CoreGraphics::CGPoint& location);

    /// Draws what needs it and gives back just that.
    std::shared_ptr<const CoreGraphics::CGDrawing> draw();

private:
    double nextMoment() const;

    VirtualClock clock_;
    Foundation::NSRunLoop runLoop_;
    std::shared_ptr<UIKit::UIWindow> window_;
};

} // namespace KivUICore::Headless
