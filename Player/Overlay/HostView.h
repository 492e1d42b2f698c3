#pragma once

#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <functional>
#include <optional>

namespace KivUICore::Overlay {

/// The host view of the bars: it covers the picture and hears the touches beside them.
class HostView : public UIKit::UIView {
public:
    /// Called when a touch goes down, on the picture or on a bar between its controls.
    void setTouchHandler(std::function<void()> handler) { onTouch_ = std::move(handler); }

    /// Called when a second short touch is lifted from the picture soon after one at the
    /// same place.
    void setDoubleTapHandler(std::function<void()> handler) { onDoubleTap_ = std::move(handler); }

    /// Called when what is in the picture must be laid out: it has another size.
    void setLayoutHandler(std::function<void()> handler) { onLayout_ = std::move(handler); }

    void layoutSubviews() override;
    void touchesBegan(const UIKit::UITouch& touch) override;
    void touchesMoved(const UIKit::UITouch& /*touch*/) override {}
    void touchesEnded(const UIKit::UITouch& touch) override;
    void touchesCancelled(const UIKit::UITouch& touch) override;

private:
    std::function<void()> onTouch_;
    std::function<void()> onDoubleTap_;
    std::function<void()> onLayout_;
    std::optional<UIKit::UITouch> down_;
    std::optional<UIKit::UITouch> lastTap_;
};

} // namespace KivUICore::Overlay
