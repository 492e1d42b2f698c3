#include "Benchmarks/Overlay.h"

#include <string>

namespace Benchmarks {

using namespace KivUICore;
using Foundation::make;

namespace {

std::shared_ptr<Button> button(const std::string& title) {
    const auto view = make<UIKit::UIButton>();
    view->setTitle(title, UIKit::UIControlStateNormal);
    return make<Button>(view, std::function<void()>());
}

std::shared_ptr<Label> label(const std::string& text) {
    const auto view = make<UIKit::UILabel>();
    view->setText(text);
    return make<Label>(view, nullptr);
}

} // namespace

Overlay::Overlay(const std::shared_ptr<UIKit::UIView>& superview,
                 const std::shared_ptr<KivCore::KivPlayer>& player)
    : topBar_(make<TopBar>(superview)), bottomBar_(make<BottomBar>(superview)), elapsedTime_(label("00:00")) {
    const auto slider = make<UIKit::UISlider>();
    slider->setMaximumValue(100.0F);
    slider->setValue(40.0F);

    topBar_->addElementToView(button("Back"), 2);
    topBar_->addElementToView(label("A film"), 6);
    bottomBar_->addElementToView(button("Play"), 2);
    bottomBar_->addElementToView(elapsedTime_, 1);
    bottomBar_->addElementToView(make<SeekBar>(slider, nullptr, player), 6);
    bottomBar_->addElementToView(label("01:40"), 1);
    bottomBar_->addElementToView(button("Full"), 2);
}

} // namespace Benchmarks
