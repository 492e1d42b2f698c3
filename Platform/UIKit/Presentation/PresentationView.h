#pragma once

#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <memory>

namespace UIKit {

/// What a presentation puts over the whole window. It takes the touches beside the content, and tells its
/// owner of these, of the escape key, of a new size and of its end.
class PresentationView : public UIView {
public:
    class Owner {
    public:
        virtual ~Owner() = default;

        /// A touch or the escape key outside the content. True if that closes it.
        virtual bool closeFromOutside() = 0;

        virtual void containerDidResize() = 0;

        /// The view is in no window any more.
        virtual void containerDidLeaveWindow() = 0;
    };

    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame, const std::shared_ptr<Owner>& owner);

    void layoutSubviews() override;
    void touchesBegan(const UITouch& touch) override;
    void touchesMoved(const UITouch& /*touch*/) override {}
    void touchesEnded(const UITouch& /*touch*/) override {}
    void touchesCancelled(const UITouch& /*touch*/) override {}
    bool keyPressed(const UIKey& key) override;

protected:
    void didMoveToWindow() override;

private:
    std::weak_ptr<Owner> owner_;
};

} // namespace UIKit
