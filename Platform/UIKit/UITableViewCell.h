#pragma once

#include "Platform/UIKit/UIView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace UIKit {

class UIImageView;
class UILabel;

enum class UITableViewCellStyle : std::int64_t {
    /// One text, and an image at the leading edge.
    Default = 0,
};

/// One row of a table: an image and a dark text beside it, which ends in an ellipsis where it doesn't fit,
/// over a thin line. It is made for light backgrounds and draws none itself, but for a tint while it is
/// highlighted or selected.
class UITableViewCell : public UIView {
public:
    static const Foundation::Class& classObject();

    bool init(const CoreGraphics::CGRect& frame) override;
    virtual bool init(UITableViewCellStyle style, const std::optional<std::string>& reuseIdentifier);
    using UIView::init;

    /// Made on first access, as is the image view. Without an image the text begins where the image would.
    virtual std::shared_ptr<UILabel> textLabel();
    virtual std::shared_ptr<UIImageView> imageView();

    const std::optional<std::string>& reuseIdentifier() const { return reuseIdentifier_; }

    /// A press, or the keyboard, is on the row.
    virtual bool isHighlighted() const;
    virtual void setHighlighted(bool highlighted);

    /// The row was chosen. Animated, the tint comes or goes in a quarter of a second.
    virtual bool isSelected() const;
    virtual void setSelected(bool selected, bool animated);

    void layoutSubviews() override;
    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

private:
    class ImageView;

    CoreGraphics::CGFloat textStart() const;
    void updateTint();

    std::shared_ptr<UILabel> textLabel_;
    std::shared_ptr<UIImageView> imageView_;
    std::optional<std::string> reuseIdentifier_;
    bool isHighlighted_ = false;
    bool isSelected_ = false;
    double tint_ = 0.0;
};

} // namespace UIKit
