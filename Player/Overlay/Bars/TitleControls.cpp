#include "Player/Overlay/Bars/TitleControls.h"

#include "KivUICore/UIComponent/Button.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Looks/Icons.h"

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using Foundation::make;

TitleControls::TitleControls(const std::shared_ptr<UIKit::UIView>& host, const std::function<void()>& goBack,
                             const std::function<void()>& openMenu)
    : back_(make<KivUICore::Button>(make<UIKit::UIButton>(CGRect()), goBack)),
      title_(make<UIKit::UILabel>(CGRect())),
      menu_(make<KivUICore::Button>(make<UIKit::UIButton>(CGRect()), openMenu)),
      bar_(make<RowBar<KivUICore::TopBar>>(host)) {
    constexpr CGFloat button = 44.0;
    constexpr CGFloat shortestTitle = 40.0;
    constexpr CGFloat fontSize = 15.0;
    back_->setImage(backIcon(), UIKit::UIControlStateNormal);
    menu_->setImage(menuIcon(), UIKit::UIControlStateNormal);
    title_->setFont(UIKit::UIFont::systemFontOfSize(fontSize, UIKit::UIFontWeightMedium));
    const auto title = make<KivUICore::UIComponent>();
    title->setView(title_);
    bar_->addElementToView(back_, 2);
    bar_->addElementToView(title, 8);
    bar_->addElementToView(menu_, 2);
    // Escape goes back too.
    bar_->setRow({{button, RowItem::Width::Fixed, 1},
                  {0.0, RowItem::Width::Flexible, 0, shortestTitle},
                  {button, RowItem::Width::Fixed, 0}});
}

TitleControls::~TitleControls() {
    bar_->setFadeHandler(nullptr);
    bar_->clean();
}

std::shared_ptr<UIKit::UIView> TitleControls::menuButton() const { return menu_->view(); }

void TitleControls::show(const std::string& title) {
    if (title_->text() != title) {
        title_->setText(title);
    }
}

} // namespace KivUICore::Overlay
