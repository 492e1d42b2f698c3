#pragma once

#include "Platform/CoreGraphics/CGText.h"
#include "Platform/Foundation/NSObject.h"

#include <memory>

namespace UIKit {

using UIFontWeight = CoreGraphics::CGFontWeight;

inline constexpr UIFontWeight UIFontWeightRegular = UIFontWeight::Regular;
inline constexpr UIFontWeight UIFontWeightMedium = UIFontWeight::Medium;
inline constexpr UIFontWeight UIFontWeightBold = UIFontWeight::Bold;

/// The system's face at a size and weight. Never changes. A size that is not above zero, or not finite,
/// stands for the system's own of 17 points.
class UIFont : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    using Foundation::NSObject::init;
    virtual bool init(const CoreGraphics::CGFont& font);

    static std::shared_ptr<UIFont> systemFontOfSize(CoreGraphics::CGFloat size);
    static std::shared_ptr<UIFont> systemFontOfSize(CoreGraphics::CGFloat size, UIFontWeight weight);
    static std::shared_ptr<UIFont> boldSystemFontOfSize(CoreGraphics::CGFloat size);

    /// With figures of equal width, so that a time doesn't dance as it counts.
    static std::shared_ptr<UIFont> monospacedDigitSystemFontOfSize(CoreGraphics::CGFloat size,
                                                                   UIFontWeight weight);

    /// The same face at another size.
    virtual std::shared_ptr<UIFont> fontWithSize(CoreGraphics::CGFloat size) const;

    const CoreGraphics::CGFont& cgFont() const { return font_; }

    /// In points.
    CoreGraphics::CGFloat pointSize() const { return font_.size; }

    /// What one line of text needs, in points.
    CoreGraphics::CGFloat lineHeight() const;

private:
    CoreGraphics::CGFont font_;
};

} // namespace UIKit
