#pragma once

#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIView.h"
#include "Tests/KivUICore/Watchers.h"

#include <memory>
#include <sstream>
#include <string>

namespace KivUICoreTests {

inline std::string describe(const CoreGraphics::CGRect& rect) {
    std::ostringstream text;
    text << '(' << rect.origin.x << ", " << rect.origin.y << ", " << rect.size.width << ", "
         << rect.size.height << ')';
    return text.str();
}

/// A view's background as words.
inline std::string background(const UIKit::UIView& view) {
    const std::shared_ptr<UIKit::UIColor> color = view.backgroundColor();
    if (!color) {
        return "no background";
    }
    if (color->patternImage()) {
        return "a pattern";
    }
    const CoreGraphics::CGColor& values = color->cgColor();
    std::ostringstream text;
    text << "rgba " << values.red << ' ' << values.green << ' ' << values.blue << ' ' << values.alpha;
    return text.str();
}

/// A host view that writes down what a bar asks of it, and what the container view looks like then.
class HostView : public UIKit::UIView {
public:
    using UIView::init;
    bool init(const CoreGraphics::CGRect& frame, Story& story) {
        story_ = &story;
        return UIView::init(frame);
    }

    CoreGraphics::CGRect frame() const override {
        note("frame");
        return UIView::frame();
    }
    void addSubview(const std::shared_ptr<UIView>& view) override {
        note("addSubview: " + describe(*view));
        UIView::addSubview(view);
    }
    void bringSubviewToFront(const std::shared_ptr<UIView>& view) override {
        note("bringSubviewToFront: " + describe(*view));
        UIView::bringSubviewToFront(view);
    }
    void setFrame(const CoreGraphics::CGRect& frame) override {
        note("setFrame:");
        UIView::setFrame(frame);
    }
    void setBackgroundColor(const std::shared_ptr<UIKit::UIColor>& color) override {
        note("setBackgroundColor:");
        UIView::setBackgroundColor(color);
    }
    void setAutoresizingMask(UIKit::UIViewAutoresizing mask) override {
        note("setAutoresizingMask:");
        UIView::setAutoresizingMask(mask);
    }

private:
    std::string describe(const UIView& view) const {
        return KivUICoreTests::describe(view.frame()) + ", " + background(view) +
               (view.superview().get() == this ? ", inside" : "");
    }

    void note(const std::string& operation) const {
        if (story_) {
            story_->push_back(operation);
        }
    }

    Story* story_ = nullptr;
};

/// An image of the given size in one colour.
inline std::shared_ptr<UIKit::UIImage> imageOf(const CoreGraphics::CGSize& size,
                                               const CoreGraphics::CGColor& color = {1.0, 0.0, 0.0, 1.0}) {
    CoreGraphics::CGRecordingContext context(size);
    context.fillRect({{}, size}, color);
    return Foundation::make<UIKit::UIImage>(context.drawing());
}

} // namespace KivUICoreTests
