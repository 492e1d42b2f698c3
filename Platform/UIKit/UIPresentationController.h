#pragma once

#include "Platform/Foundation/NSObject.h"
#include "Platform/UIKit/Presentation/PresentationStyle.h"

#include <memory>

namespace UIKit {

class UIViewController;

/// Sets up how a view controller is presented, and shows it: this one over the whole window. The presented
/// controller owns it until that is presented, and the presentation until it is over.
class UIPresentationController : public Foundation::NSObject, public PresentationStyle {
public:
    static const Foundation::Class& classObject();

    bool init() override { return false; }
    virtual bool init(const std::shared_ptr<UIViewController>& presentedViewController);

    /// Nothing once it has gone.
    std::shared_ptr<UIViewController> presentedViewController() const { return presented_.lock(); }

    /// Nothing unless it is in a presentation.
    std::shared_ptr<UIViewController> presentingViewController() const;

protected:
    void prepare(const std::shared_ptr<Presentation>& presentation) override;
    std::shared_ptr<UIView> content() const override;
    std::shared_ptr<UIView> owner() const override;
    void layOutContent(UIView& container, const std::shared_ptr<UIView>& content) override;
    std::shared_ptr<UIView> fadedView(const std::shared_ptr<UIView>& container) const override;
    bool closesFromOutside() const override { return false; }
    void didDismissFromOutside() override {}

    /// Where what the content is shown beside has changed. Does nothing unless it is shown.
    void layOut() const;

private:
    std::weak_ptr<UIViewController> presented_;
    std::weak_ptr<Presentation> presentation_;
};

} // namespace UIKit
