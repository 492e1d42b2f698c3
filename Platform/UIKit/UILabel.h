#pragma once

#include "Platform/CoreGraphics/CGText.h"
#include "Platform/UIKit/UIView.h"

#include <memory>
#include <optional>
#include <string>

namespace UIKit {

class UIColor;
class UIFont;

/// A text in one style, centred vertically, with an ellipsis where it doesn't fit. It takes no touches unless
/// they are enabled. Setting what is there already draws nothing.
class UILabel : public UIView {
public:
    static const Foundation::Class& classObject();

    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// UTF-8. An absent text stays absent and an empty one empty; neither shows anything.
    virtual const std::optional<std::string>& text() const;
    virtual void setText(const std::optional<std::string>& text);

    /// Nothing stands for the system's own font.
    virtual std::shared_ptr<UIFont> font() const;
    virtual void setFont(const std::shared_ptr<UIFont>& font);

    /// White at first, and nothing stands for white. A pattern shows no text.
    virtual std::shared_ptr<UIColor> textColor() const;
    virtual void setTextColor(const std::shared_ptr<UIColor>& color);

    /// Leading at first.
    virtual CoreGraphics::CGTextAlignment textAlignment() const;
    virtual void setTextAlignment(CoreGraphics::CGTextAlignment alignment);

    /// 1 at first; 0 (or less) for as many as fit.
    virtual int numberOfLines() const;
    virtual void setNumberOfLines(int lines);

    /// An estimate, rather wide: text is measured by the host alone, when it draws. Never above `size` where
    /// that is above zero.
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;

    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    std::optional<std::string> text_;
    std::shared_ptr<UIFont> font_;
    std::shared_ptr<UIColor> textColor_;
    CoreGraphics::CGTextStyle style_;
};

} // namespace UIKit
