#pragma once

#include "Platform/UIKit/Controls/ValueForState.h"
#include "Platform/UIKit/UIControl.h"

#include <memory>
#include <optional>

namespace UIKit {

class UIColor;
class UIImage;

/// A thumb on a track that stands for a value in a range. The thumb is taken hold of and dragged; a touch
/// beside it does nothing. Each change of the value by a drag sends the value changed event; setting it from
/// outside sends none. It all stays within the bounds.
class UISlider : public UIControl {
public:
    static const Foundation::Class& classObject();

    /// Always within the range. Setting it cuts it to the range; one that is not a number changes nothing.
    /// While the thumb is held both may be set: the drag goes on from where the finger is.
    virtual float value() const;
    virtual void setValue(float value);

    /// The same, and lets the thumb travel there in a quarter of a second if `animated`. A way of less than
    /// half a point, and one that nobody sees, is a jump: a film at play wakes nothing between its own steps.
    virtual void setValue(float value, bool animated);

    /// From 0.0 to 1.0 at first. A limit beyond the other one takes that along, so that the range is never
    /// upside down, and the value stays in it. A limit that is not finite changes nothing.
    virtual float minimumValue() const;
    virtual void setMinimumValue(float value);
    virtual float maximumValue() const;
    virtual void setMaximumValue(float value);

    /// Whether changes are sent while the thumb is dragged, as at first, or once at the end.
    virtual bool isContinuous() const;
    virtual void setContinuous(bool continuous);

    /// No image for a state stands for the normal one's, and where there is none either the slider draws its
    /// own. The thumb's shows at its own size, or smaller in a slider that is lower. Those of the track are
    /// scaled to the whole length, each cut off at the thumb.
    virtual void setThumbImage(const std::shared_ptr<UIImage>& image, UIControlState state);
    virtual void setMinimumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState state);
    virtual void setMaximumTrackImage(const std::shared_ptr<UIImage>& image, UIControlState state);
    virtual std::shared_ptr<UIImage> thumbImageForState(UIControlState state) const;
    virtual std::shared_ptr<UIImage> minimumTrackImageForState(UIControlState state) const;
    virtual std::shared_ptr<UIImage> maximumTrackImageForState(UIControlState state) const;

    /// Colours of the parts that the slider draws itself; nothing stands for its own.
    virtual std::shared_ptr<UIColor> thumbTintColor() const;
    virtual void setThumbTintColor(const std::shared_ptr<UIColor>& color);
    virtual std::shared_ptr<UIColor> minimumTrackTintColor() const;
    virtual void setMinimumTrackTintColor(const std::shared_ptr<UIColor>& color);
    virtual std::shared_ptr<UIColor> maximumTrackTintColor() const;
    virtual void setMaximumTrackTintColor(const std::shared_ptr<UIColor>& color);

    /// Where the track lies in bounds of that size.
    virtual CoreGraphics::CGRect trackRectForBounds(const CoreGraphics::CGRect& bounds) const;

    /// Where the thumb lies for a value. Its middle must move evenly from one end of the range to the other:
    /// a drag reads the value back from there.
    virtual CoreGraphics::CGRect thumbRectForBounds(const CoreGraphics::CGRect& bounds,
                                                    const CoreGraphics::CGRect& trackRect, float value) const;

    /// Accepts a touch on the thumb, or within 44 by 44 points around its middle.
    bool beginTrackingWithTouch(const UITouch& touch) override;
    bool continueTrackingWithTouch(const UITouch& touch) override;
    void endTrackingWithTouch(const UITouch& touch) override;
    void cancelTracking() override;

    /// The thumb can be touched beyond the bounds.
    bool pointInside(const CoreGraphics::CGPoint& point) const override;
    CoreGraphics::CGSize sizeThatFits(const CoreGraphics::CGSize& size) const override;
    void drawRect(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect) override;

protected:
    /// The value for which the thumb's middle would be at `x`, or that of the nearer end. Nothing where the
    /// thumb has no way to move.
    std::optional<float> valueForThumbCenter(CoreGraphics::CGFloat x) const;

private:
    float presentedSliderValue() const;
    double fractionOf(float value) const;
    CoreGraphics::CGRect thumbRect(const CoreGraphics::CGRect& bounds, float value) const;
    CoreGraphics::CGRect thumbTarget() const;
    bool isFarEnoughToTravel(float value) const;

    void travelTo(float value);
    void changeValue(float value);
    void setRange(float minimum, float maximum);
    void sendPendingChange();

    void drawTrack(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& track,
                   CoreGraphics::CGFloat start, CoreGraphics::CGFloat end, CoreGraphics::CGColor color) const;
    void drawThumb(CoreGraphics::CGContext& context, const CoreGraphics::CGRect& rect,
                   const CoreGraphics::CGRect& bounds) const;

    float value_ = 0.0F;
    float minimumValue_ = 0.0F;
    float maximumValue_ = 1.0F;
    bool isContinuous_ = true;

    ValueForState<std::shared_ptr<UIImage>> thumbImages_;
    ValueForState<std::shared_ptr<UIImage>> minimumTrackImages_;
    ValueForState<std::shared_ptr<UIImage>> maximumTrackImages_;
    std::shared_ptr<UIColor> thumbTintColor_;
    std::shared_ptr<UIColor> minimumTrackTintColor_;
    std::shared_ptr<UIColor> maximumTrackTintColor_;

    // Of the drag that is going on: from the thumb's middle to the finger, and where the finger was last.
    CoreGraphics::CGFloat fingerOffset_ = 0.0;
    CoreGraphics::CGFloat fingerX_ = 0.0;
    bool hasPendingChange_ = false;
};

} // namespace UIKit
