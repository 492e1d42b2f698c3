#include "Player/Overlay/TitleControls.h"

#include "KivUICore/UIComponent/Button.h"
#include "Platform/UIKit/UIButton.h"
#include "Platform/UIKit/UIFont.h"
#include "Platform/UIKit/UILabel.h"
#include "Player/Overlay/Icons.h"

namespace Overlay {

using namespace CoreGraphics;
using Foundation::make;

TitleControls::TitleControls(const std::shared_ptr<UIKit::UIView>& host, const std::function<void()>& goBack)
    : back_(make<KivUICore::Button>(make<UIKit::UIButton>(CGRect()), goBack)),
      title_(make<UIKit::UILabel>(CGRect())), bar_(make<RowBar<KivUICore::TopBar>>(host)) {
    constexpr CGFloat button = 44.0;
    constexpr CGFloat fontSize = 15.0;
    back_->setImage(backIcon(), UIKit::UIControlStateNormal);
    title_->setFont(UIKit::UIFont::systemFontOfSize(fontSize, UIKit::UIFontWeightMedium));
    const auto title = make<KivUICore::UIComponent>();
    title->setView(title_);
    bar_->addElementToView(back_, 2);
    bar_->addElementToView(title, 10);
    bar_->setRow({{button, RowItem::Width::Fixed, 0}, {0.0, RowItem::Width::Flexible, 0}});
}

TitleControls::~TitleControls() {
    bar_->setFadeHandler(nullptr);
    bar_->clean();
}

void TitleControls::show(const std::string& title) {
    if (title_->text() != title) {
        title_->setText(title);
    }
}

} // namespace Overlay
