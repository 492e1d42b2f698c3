#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/UIModalPresentationStyle.h"
#include "Platform/UIKit/UIPopoverArrowDirection.h"
#include "Platform/UIKit/UIPopoverPresentationControllerDelegate.h"
#include "Platform/UIKit/UIPresentationController.h"

#include <memory>
#include <optional>

namespace UIKit {

class PopoverView;
class UIColor;

/// Shows a view controller in a pop-over with an arrow, above or below a rectangle of a view, and within the
/// window whatever its size: it is made smaller rather than cut off. A touch outside, or the escape key,
/// closes it; such a touch reaches nothing else.
class UIPopoverPresentationController : public UIPresentationController {
public:
    static const Foundation::Class& classObject();

    using UIPresentationController::init;

    /// Held weakly, and read anew for each thing that it is told.
    virtual std::shared_ptr<UIPopoverPresentationControllerDelegate> delegate() const;
    virtual void setDelegate(const std::shared_ptr<UIPopoverPresentationControllerDelegate>& delegate);

    /// Any at first. Up opens below the source, down above it; with both, or neither, the roomier side
    /// counts.
    virtual UIPopoverArrowDirection permittedArrowDirections() const;
    virtual void setPermittedArrowDirections(UIPopoverArrowDirection directions);

    /// What the pop-over is shown for, and the part of it in its own coordinates. Held weakly. Without one in
    /// the same window it shows in the window's middle, without an arrow.
    virtual std::shared_ptr<UIView> sourceView() const;
    virtual void setSourceView(const std::shared_ptr<UIView>& view);
    virtual CoreGraphics::CGRect sourceRect() const;
    virtual void setSourceRect(const CoreGraphics::CGRect& rect);

    /// Of the plate and its arrow; nothing stands for light grey, nearly opaque.
    virtual std::shared_ptr<UIColor> backgroundColor() const;
    virtual void setBackgroundColor(const std::shared_ptr<UIColor>& color);

    /// How the arrow points now; unknown while there is none.
    UIPopoverArrowDirection arrowDirection() const { return arrowDirection_; }

protected:
    void prepare(const std::shared_ptr<Presentation>& presentation) override;
    void layOutContent(UIView& container, const std::shared_ptr<UIView>& content) override;
    std::shared_ptr<UIView> fadedView(const std::shared_ptr<UIView>& container) const override;
    bool closesFromOutside() const override { return !isFullScreen_; }
    void didDismissFromOutside() override;

private:
    bool askForFullScreen();
    std::optional<CoreGraphics::CGRect> anchorIn(const UIView& container) const;
    CoreGraphics::CGSize contentSize() const;

    std::weak_ptr<UIPopoverPresentationControllerDelegate> delegate_;
    UIPopoverArrowDirection permittedArrowDirections_ = UIPopoverArrowDirectionAny;
    UIPopoverArrowDirection arrowDirection_ = UIPopoverArrowDirectionUnknown;
    std::weak_ptr<UIView> sourceView_;
    CoreGraphics::CGRect sourceRect_;
    std::shared_ptr<UIColor> backgroundColor_;
    std::shared_ptr<PopoverView> popover_;
    bool isFullScreen_ = false;
};

} // namespace UIKit
