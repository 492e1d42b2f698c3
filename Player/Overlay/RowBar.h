#pragma once

#include "KivUICore/UIComponent/UIComponent.h"
#include "KivUICore/UIElement/UIElement.h"
#include "Player/Overlay/RowLayout.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace Overlay {

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
        Bar::hide();
        tellFade();
    }

    void show() override {
        Bar::show();
        tellFade();
    }

    /// The container travels as in every bar; slots that trailed behind a window's edge would look broken, so
    /// they are there at once.
    void updateBarFrameWithFrame(const CoreGraphics::CGRect& frame) override {
        Bar::updateBarFrameWithFrame(frame);
        layOut();
    }

private:
    static constexpr CoreGraphics::CGFloat margin = 4.0;

    void tellFade() {
        if (const std::function<void()> handler = onFade_) {
            handler();
        }
    }

    void layOut() {
        const std::vector<std::shared_ptr<UIKit::UIView>> slots = this->view()->subviews();
        const auto elements = this->elemets().value_or(KivUICore::KivBar::Elemets());
        const std::vector<CoreGraphics::CGRect> frames =
            layOutRow(items_, CoreGraphics::CGRectInset(this->view()->bounds(), margin, 0.0));
        const std::size_t count = std::min({slots.size(), elements.size(), frames.size()});
        for (std::size_t index = 0; index < count; ++index) {
            slots[index]->setFrame(frames[index]);
            slots[index]->setHidden(frames[index].size.width <= 0.0);
            if (const std::shared_ptr<UIKit::UIView> control = elements[index]->view()->view()) {
                control->setFrame(slots[index]->bounds());
            }
        }
    }

    std::vector<RowItem> items_;
    std::function<void()> onFade_;
};

} // namespace Overlay
