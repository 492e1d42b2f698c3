#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <iostream>

int main() {
    KivUICore::Headless::HeadlessHost host({640, 360});
    auto bar = Foundation::make<KivUICore::BottomBar>(host.window());
    auto view = Foundation::make<UIKit::UIButton>();
    auto button = Foundation::make<KivUICore::Button>(view, [] { std::cout << "Play!\n"; });
    button->setText("Play", UIKit::UIControlStateNormal);
    bar->addElementToView(button, 2);
    host.tap({50, 340});
}
