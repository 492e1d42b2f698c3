#pragma once

#include "Platform/UIKit/UIView.h"

#include <memory>
#include <string>

namespace Foundation {
class NSTimer;
} // namespace Foundation

namespace KivUICore::Overlay {

class PlateView;

/// A line for the viewer, passing or kept, at the top of the area that the view is given as its frame. The
/// view itself is transparent and takes no touches.
class NoticeView : public UIKit::UIView {
public:
    using UIKit::UIView::init;
    bool init(const CoreGraphics::CGRect& frame) override;

    /// Shows `text` at once, in the place of what was there, and lets it fade away once it can have been
    /// read: after two seconds, or later if it is long. An empty text takes the notice away.
    void show(const std::string& text);

    /// Shows `text` whenever no passing text is there, until it is given another or an empty one.
    void keep(const std::string& text);

    /// False once all has faded away.
    bool isShowing() const;

    void layoutSubviews() override;

    /// The text's plate, for those who want to know where it is.
    const std::shared_ptr<PlateView>& plate() const { return plate_; }

protected:
    void dealloc() override;

private:
    void showNow(const std::string& text);
    void endPassing();
    void stopWaiting();
    void fadeAway();

    std::shared_ptr<PlateView> plate_;
    std::shared_ptr<Foundation::NSTimer> timer_;
    std::string kept_;
    bool isPassing_ = false;
};

} // namespace KivUICore::Overlay
