#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/UIKit/UIModalPresentationStyle.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace Foundation {
class NSBundle;
class NSCoder;
} // namespace Foundation

namespace UIKit {

class Presentation;
class UIPopoverPresentationController;
class UIPresentationController;
class UIView;

/// Owns a view tree, its root view, and may show another controller's over it. A controller holds the one
/// that it presents until that is dismissed; when it ends itself, what it presents goes from the screen.
class UIViewController : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    /// Without a nib and a bundle.
    bool init() override;
    virtual bool init(const std::optional<std::string>& nibName,
                      const std::shared_ptr<Foundation::NSBundle>& bundle);
    virtual bool init(const std::shared_ptr<Foundation::NSCoder>& coder);

    /// The root view, made by `loadView` on first access. Nothing if that makes none, and while it runs.
    virtual std::shared_ptr<UIView> view();
    virtual void setView(const std::shared_ptr<UIView>& view);
    bool isViewLoaded() const { return view_ != nullptr; }

    /// Called when the root view is first asked for: sets it. A plain view unless overridden.
    virtual void loadView();

    /// Called after `loadView`, when that made a view.
    virtual void viewDidLoad();

    /// Full screen at first. Taken in when the controller is presented next.
    virtual UIModalPresentationStyle modalPresentationStyle() const;
    virtual void setModalPresentationStyle(UIModalPresentationStyle style);

    /// The size that a pop-over of this controller tries to have. None, or one that is not above zero, stands
    /// for 320 by 480 points. A pop-over that is shown follows.
    virtual CoreGraphics::CGSize preferredContentSize() const;
    virtual void setPreferredContentSize(const CoreGraphics::CGSize& size);

    /// What the next presentation of this controller is set up with, or its present one runs on; made on
    /// demand. Nothing unless the style is the pop-over one. Another one as soon as it is dismissed.
    virtual std::shared_ptr<UIPopoverPresentationController> popoverPresentationController();

    /// Shows `controller` over this one, whose root view must be in a window, in its own style. `completion`
    /// is called by the run loop when it is there. Writes one warning line to standard error and does nothing
    /// else where either of the two is in a presentation already, or there is no window. A presentation that
    /// is just fading out is over at once. Nothing to present is a fatal report, and so is this controller or
    /// one that it is presented over. An exception that a callback throws meanwhile passes through, and
    /// nothing is presented.
    virtual void presentViewController(const std::shared_ptr<UIViewController>& controller, bool animated,
                                       std::function<void()> completion);

    /// Takes the presented controller away or, where there is none, this one itself. Whatever that presents
    /// goes along. `completion` is called by the run loop when it is gone; if nothing is presented, on the
    /// next turn.
    virtual void dismissViewControllerAnimated(bool animated, std::function<void()> completion);

    /// Until a dismissal is over.
    std::shared_ptr<UIViewController> presentedViewController() const;
    std::shared_ptr<UIViewController> presentingViewController() const;

protected:
    void dealloc() override;

private:
    void loadViewOnce();
    bool mayPresent(const UIViewController& controller, const UIView* owner) const;
    bool isPresentedOver(const UIViewController& controller) const;
    std::shared_ptr<UIPresentationController> presentationController();

    std::shared_ptr<UIView> view_;
    bool isLoadingView_ = false;
    UIModalPresentationStyle modalPresentationStyle_ = UIModalPresentationStyle::FullScreen;
    CoreGraphics::CGSize preferredContentSize_;

    // What the next presentation of this controller is set up with.
    std::shared_ptr<UIPresentationController> presentationController_;

    // That of another controller over this one, and that of this one; they may be over.
    std::shared_ptr<Presentation> presentation_;
    std::weak_ptr<Presentation> ownPresentation_;
};

} // namespace UIKit
