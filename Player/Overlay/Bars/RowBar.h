#pragma once

#include "Player/Overlay/Bars/SlotLayout.h"

#include <functional>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

/// A docked bar in a window of any width. Its controls are placed in columns as in every bar, and then share
/// the width as a row does: times and buttons keep theirs, and the seek bar takes what is left. Says when it
/// begins to fade.
template <class Bar>
class RowBar : public Bar {
public:
    void setFadeHandler(std::function<void()> handler) { onFade_ = std::move(handler); }

    /// One for each control, in the order of placing.
    void setRow(std::vector<RowItem> items) {
        items_ = std::move(items);
        layOut();
    }

    void hide() override {
        const CoreGraphics::CGFloat before = this->view()->alpha();
        Bar::hide();
        tellFadeFrom(before);
    }

    void show() override {
        const CoreGraphics::CGFloat before = this->view()->alpha();
        Bar::show();
        tellFadeFrom(before);
    }

    /// The container travels as in every bar; slots that trailed behind a window's edge would look broken, so
    /// they are there at once.
    void updateBarFrameWithFrame(const CoreGraphics::CGRect& frame) override {
        Bar::updateBarFrameWithFrame(frame);
        layOut();
    }

    /// Call it after something in the row came or went.
    void layOut() { layOutSlots(*this, items_); }

private:
    void tellFadeFrom(CoreGraphics::CGFloat alpha) {
        const std::function<void()> handler = onFade_;
        if (handler && this->view()->alpha() != alpha) {
            handler();
        }
    }

    std::vector<RowItem> items_;
    std::function<void()> onFade_;
};

} // namespace KivUICore::Overlay
