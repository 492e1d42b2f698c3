#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <string>

namespace UIKit {
struct UIKey;
} // namespace UIKit

namespace KivUICore::SDL {

/// Hears what happens to a desktop window and what its views leave to others. None of it may destroy the
/// window. Locations are in points of its views.
class WindowDelegate {
public:
    virtual ~WindowDelegate() = default;

    /// The views took another size.
    virtual void windowWasResized() {}

    /// The window went to full screen or came back, whoever asked for that.
    virtual void fullScreenDidChange() {}

    /// A person wants the window closed.
    virtual void windowShouldClose() {}

    /// Another program has destroyed the window: it shows nothing any more.
    virtual void windowWasDestroyed() {}

    /// The display is out of reach, and the X library is about to end the program with a line on the error
    /// output, by `exit`. Here it may be ended in another way; the window can't be asked for anything.
    virtual void connectionWasCut() {}

    /// A key went down or repeats, and no view took it.
    virtual void keyWentDown(const UIKit::UIKey& /*key*/) {}

    /// The pointer is there, whether its button is held or not.
    virtual void pointerMoved(const CoreGraphics::CGPoint& /*location*/) {}
    virtual void pointerLeft() {}

    /// The wheel was turned, away from the person if positive, and no view took it.
    virtual void wheelTurned(CoreGraphics::CGFloat /*notches*/) {}

    /// Something to be opened was dropped on the window, a file's path or an address: the first, if there
    /// were several.
    virtual void fileWasDropped(const std::string& /*location*/) {}
};

} // namespace KivUICore::SDL
