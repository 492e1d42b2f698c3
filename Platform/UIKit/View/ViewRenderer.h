#pragma once

#include "Platform/CoreGraphics/CGContext.h"

namespace UIKit {

class UIView;

/// Draws a view tree as its animations show it at present. Allocates nothing.
class ViewRenderer {
public:
    explicit ViewRenderer(CoreGraphics::CGContext& context) : context_(context) {}

    /// Draws a visible view, faded if it is partly transparent, where it meets `dirty`, all in the view's own
    /// coordinates. The context's state is the caller's to restore.
    void draw(UIView& view, const CoreGraphics::CGRect& dirty);

private:
    void draw(UIView& view, const CoreGraphics::CGRect& dirty, const CoreGraphics::CGRect& dirtyContent);
    void drawContents(UIView& view, const CoreGraphics::CGRect& dirty,
                      const CoreGraphics::CGRect& dirtyContent);
    void drawSubview(UIView& view, const CoreGraphics::CGRect& dirtyInSuperview);
    void drawBackground(const UIView& view, const CoreGraphics::CGRect& bounds);

    CoreGraphics::CGContext& context_;
};

} // namespace UIKit
