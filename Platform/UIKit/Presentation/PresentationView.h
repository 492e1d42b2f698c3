#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {

class UIPresentationController;

/// What a presentation puts over the whole window. It takes the touches beside the content, and tells the
/// presentation of these, of the escape key, of a new size and of its end.
class PresentationView : public UIView {
public:
    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame, const std::shared_ptr<UIPresentationController>& controller);

    void setFrame(const CoreGraphics::CGRect& frame) override;
    void touchesBegan(const UITouch& touch) override;
    void touchesMoved(const UITouch& /*touch*/) override {}
    void touchesEnded(const UITouch& /*touch*/) override {}
    void touchesCancelled(const UITouch& /*touch*/) override {}
    bool keyPressed(const UIKey& key) override;

protected:
    void didMoveToWindow() override;

private:
    std::weak_ptr<UIPresentationController> controller_;
};

} // namespace UIKit
