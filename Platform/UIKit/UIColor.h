#pragma once

#include "Platform/CoreGraphics/CGColor.h"
#include "Platform/Foundation/NSObject.h"

#include <memory>

namespace UIKit {

class UIImage;

/// A plain colour, or an image repeated at its own size. Never changes.
class UIColor : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    using Foundation::NSObject::init;

    /// Components from 0.0 to 1.0; kept as given.
    virtual bool init(CoreGraphics::CGFloat red, CoreGraphics::CGFloat green, CoreGraphics::CGFloat blue,
                      CoreGraphics::CGFloat alpha);
    virtual bool init(CoreGraphics::CGFloat white, CoreGraphics::CGFloat alpha);

    /// Without an image there is no colour.
    virtual bool init(const std::shared_ptr<UIImage>& patternImage);

    /// Transparent for a pattern.
    const CoreGraphics::CGColor& cgColor() const { return color_; }

    /// Nothing for a plain colour.
    const std::shared_ptr<UIImage>& patternImage() const { return patternImage_; }

private:
    CoreGraphics::CGColor color_{0.0, 0.0, 0.0, 0.0};
    std::shared_ptr<UIImage> patternImage_;
};

} // namespace UIKit
