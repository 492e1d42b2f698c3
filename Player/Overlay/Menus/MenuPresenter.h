#pragma once

#include "KivUICore/UIComponent/UIEventObserver.h"
#include "Platform/Foundation/NSObject.h"
#include "Player/Overlay/Menus/FilmMenus.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace Foundation {
class NSTimer;
} // namespace Foundation

namespace KivUICore {
class PopOverMenu;
} // namespace KivUICore

namespace UIKit {
class UIView;
class UIViewController;
} // namespace UIKit

namespace KivUICore::Overlay {

/// Shows the film's menus as pop-overs, one at a time, and leads from one to the next.
class MenuPresenter : public Foundation::Adopting<Foundation::NSObject, KivUICore::UIEventObserver> {
public:
    static const Foundation::Class& classObject();

    /// Presents over `controller`. `menus` outlives the presenter; `onOpenChange` is called when a menu opens
    /// and when the last one closed.
    using NSObject::init;
    bool init(const std::shared_ptr<UIKit::UIViewController>& controller, const FilmMenus& menus,
              std::function<void()> onOpenChange);

    bool isOpen() const { return isOpen_; }

    /// Points the menu at `anchor`. Does nothing where one is open already, or there is nothing to choose.
    void open(MenuKind kind, const std::shared_ptr<UIKit::UIView>& anchor);

    /// Takes an open menu away without choosing.
    void close();

    /// Call it after each change of what menus offer: an open one follows, and closes when nothing is left.
    void menusDidChange();

    void onButtonPress(const std::shared_ptr<KivUICore::Button>& /*button*/) override {}
    void onSeekBegan(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onSeekFinished(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onValueChanged(const std::shared_ptr<KivUICore::SeekBar>& /*seekBar*/) override {}
    void onPopOverButtonPress(std::int64_t row) override;
    void popOverShouldPresent() override {}
    void onPopOverDismiss() override;

private:
    void present();
    void scrollToCurrent();
    void letGo();
    void setOpen(bool open);

    std::shared_ptr<UIKit::UIViewController> controller_;
    const FilmMenus* menus_ = nullptr;
    std::function<void()> onOpenChange_;

    // Of the menu that is open.
    std::shared_ptr<KivUICore::PopOverMenu> menu_;
    std::vector<MenuEntry> entries_;
    MenuKind kind_ = MenuKind::Main;
    std::shared_ptr<UIKit::UIView> anchor_;
    bool isOpen_ = false;

    // Until a menu makes way for the one that it leads to.
    std::shared_ptr<Foundation::NSTimer> next_;
};

} // namespace KivUICore::Overlay
