#include "Hosts/Headless/HeadlessHost.h"
#include "KivUICore/KivUICore.h"

#include <iostream>

using Foundation::make;

int main() {
    // A host brings the window. This one has no screen: its clock and its touches are scripted.
    KivUICore::Headless::HeadlessHost host({640, 360});

    auto top = make<KivUICore::TopBar>(host.window());
    auto bottom = make<KivUICore::BottomBar>(host.window());

    const auto frame = bottom->barFrame().value();
    std::cout << "The bottom bar begins at " << frame.origin.y << " and is " << frame.size.height
              << " high.\n"
              << "Drawing both takes " << host.draw()->operations().size()
              << " operations; drawing them again, " << host.draw()->operations().size() << ".\n";
}
