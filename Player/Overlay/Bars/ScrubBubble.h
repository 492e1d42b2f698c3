#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstdint>
#include <memory>
#include <optional>

namespace KivUICore {
class Label;
} // namespace KivUICore

namespace UIKit {
class UIView;
} // namespace UIKit

namespace KivUICore::Overlay {

class TimeBubbleView;

/// The time under the pointer, above the track.
class ScrubBubble {
public:
    explicit ScrubBubble(const std::shared_ptr<UIKit::UIView>& host);
    ScrubBubble(const ScrubBubble&) = delete;
    ScrubBubble& operator=(const ScrubBubble&) = delete;
    ~ScrubBubble();

    const std::shared_ptr<TimeBubbleView>& view() const { return view_; }

    /// `time` in seconds; `tip` is where the bubble points, in the host view's coordinates.
    void show(double time, const CoreGraphics::CGPoint& tip);
    void hide();

private:
    std::shared_ptr<UIKit::UIView> host_;
    std::shared_ptr<TimeBubbleView> view_;
    std::shared_ptr<KivUICore::Label> label_;
    std::optional<std::int64_t> shown_;
};

} // namespace KivUICore::Overlay
