#pragma once

#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/CGImage.h"
#include "Platform/Foundation/NSObject.h"

#include <memory>

namespace UIKit {

/// A picture: pixels, or a recorded drawing that is crisp at every scale. Never changes.
class UIImage : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    /// Without pixels, or without a drawing, there is no image.
    bool init() override { return false; }
    virtual bool init(const std::shared_ptr<const CoreGraphics::CGImage>& pixels);
    virtual bool init(const std::shared_ptr<const CoreGraphics::CGDrawing>& drawing);

    /// In points.
    const CoreGraphics::CGSize& size() const { return drawing_->size(); }

    /// The image as a drawing; one of pixels draws these.
    const std::shared_ptr<const CoreGraphics::CGDrawing>& drawing() const { return drawing_; }

    /// Draws into the current image context, scaled to fill the rectangle; without a context does nothing.
    virtual void drawInRect(const CoreGraphics::CGRect& rect) const;

private:
    std::shared_ptr<const CoreGraphics::CGDrawing> drawing_;
};

} // namespace UIKit
