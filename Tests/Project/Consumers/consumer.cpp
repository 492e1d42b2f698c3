#include "KivUICore/KivUICore.h"

int main() {
    auto host = Foundation::make<UIKit::UIView>(CoreGraphics::CGRectMake(0, 0, 320, 480));
    auto bar = Foundation::make<KivUICore::BottomBar>(host);
    const bool isDocked = bar->barFrame() == CoreGraphics::CGRectMake(0, 440, 320, 40);
    return isDocked && KivUICoreVersionNumber == 1.0 ? 0 : 1;
}
