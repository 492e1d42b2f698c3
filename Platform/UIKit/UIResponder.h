#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/Foundation/NSObject.h"

#include <memory>

namespace UIKit {

struct UIKey;
struct UITouch;

/// Somebody whom a window's input may reach. It is offered to one after the other: to a view, those around
/// it, the window, and whoever owns that.
class UIResponder : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    /// Whose turn it is after this one; nothing by default. No way along these may lead in a circle.
    virtual std::shared_ptr<UIResponder> nextResponder() const;

    /// The steps of a touch that went down on a view from which this one is reached, or on this view. Handed
    /// on to the next responder unless overridden. May tear down anything.
    virtual void touchesBegan(const UITouch& touch);
    virtual void touchesMoved(const UITouch& touch);
    virtual void touchesEnded(const UITouch& touch);
    virtual void touchesCancelled(const UITouch& touch);

    /// The wheel moved over a view, and nobody before took the movement: scrolls what is shown, and says
    /// whether it took it, which it does at the end of its way too. `delta`, in points, is the way of the
    /// content: below zero it goes up, and what lies further down shows. May tear down anything.
    virtual bool scrollBy(const CoreGraphics::CGPoint& delta);

    /// A key that nobody before took, as UIWindow::sendKey tells; says whether this one did. May tear down
    /// anything.
    virtual bool keyPressed(const UIKey& key);
};

} // namespace UIKit
