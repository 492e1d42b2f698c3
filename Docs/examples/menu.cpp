#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <iostream>

using Foundation::make;

namespace {

/// Hears of what is chosen in a menu.
class SpeedObserver : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver> {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<SpeedObserver, NSObject>("Example.SpeedObserver")
                .adopts<KivUICore::UIEventObserver>()
                .build();
        return object;
    }

    void onPopOverButtonPress(std::int64_t row) override { std::cout << "Row " << row << " was chosen.\n"; }
    void popOverShouldPresent() override { std::cout << "The menu opens.\n"; }
    void onPopOverDismiss() override { std::cout << "The menu was closed from outside.\n"; }

    void onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) override {}
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
};

/// A dot for the entry that is in force.
std::shared_ptr<UIKit::UIImage> dot() {
    UIKit::UIGraphicsBeginImageContext({24, 24});
    UIKit::UIGraphicsGetCurrentContext()->fillRoundedRect({{8, 8}, {8, 8}}, 4, {0, 0, 0, 1});
    auto image = UIKit::UIGraphicsGetImageFromCurrentImageContext();
    UIKit::UIGraphicsEndImageContext();
    return image;
}

} // namespace

int main() {
    KivUICore::Headless::HeadlessHost host({640, 360});
    auto controller = make<UIKit::UIViewController>();
    controller->setView(make<UIKit::UIView>(host.window()->bounds()));
    host.window()->addSubview(controller->view());

    KivUICore::PopOverMenu::Buttons entries;
    for (const char* speed : {"0.5", "1", "2"}) {
        entries.push_back(make<KivUICore::PopOverButton>(nullptr, speed));
    }
    entries[1]->setImage(dot());
    auto menu = make<KivUICore::PopOverMenu>(CoreGraphics::CGRectMake(0, 0, 160, 132), entries,
                                             make<SpeedObserver>());

    auto view = make<UIKit::UIButton>();
    auto button = make<KivUICore::Button>(view, [&] { menu->showPopOver(view, controller, nullptr); });
    button->setText("Speed", UIKit::UIControlStateNormal);
    auto bar = make<KivUICore::TopBar>(controller->view());
    bar->addElementToView(button, 2);

    std::cout << "Choosing the last of the three rows:\n";
    host.tap({50, 20});
    host.advance(1);
    const auto row = menu->view()->convertRectToView({{0, 88}, {160, 44}}, *host.window());
    host.tap({row.origin.x + 80, row.origin.y + 22});
    host.advance(1);

    std::cout << "Touching beside the menu:\n";
    host.tap({50, 20});
    host.advance(1);
    host.tap({600, 300});
    host.advance(1);
}
