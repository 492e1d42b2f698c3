#pragma once

#include "KivUICore/TopBar/TopBar.h"
#include "Player/Overlay/Bars/RowBar.h"

#include <functional>
#include <memory>
#include <string>

namespace KivUICore {
class Button;
} // namespace KivUICore

namespace UIKit {
class UILabel;
} // namespace UIKit

namespace KivUICore::Overlay {

/// The top bar and what is in it: a way back, the film's title, and the button of the menu.
class TitleControls {
public:
    TitleControls(const std::shared_ptr<UIKit::UIView>& host, const std::function<void()>& goBack,
                  const std::function<void()>& openMenu);
    TitleControls(const TitleControls&) = delete;
    TitleControls& operator=(const TitleControls&) = delete;
    ~TitleControls();

    const std::shared_ptr<RowBar<KivUICore::TopBar>>& bar() const { return bar_; }

    /// What the menu points at.
    std::shared_ptr<UIKit::UIView> menuButton() const;

    void show(const std::string& title);

private:
    std::shared_ptr<KivUICore::Button> back_;
    std::shared_ptr<UIKit::UILabel> title_;
    std::shared_ptr<KivUICore::Button> menu_;
    std::shared_ptr<RowBar<KivUICore::TopBar>> bar_;
};

} // namespace KivUICore::Overlay
