#include "Player/Overlay/Menus/MenuPresenter.h"

#include "KivUICore/UIComponent/Button.h"
#include "KivUICore/UIComponent/PopOverButton.h"
#include "KivUICore/UIComponent/PopOverMenu.h"
#include "KivUICore/UIComponent/SeekBar.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/NSTimer.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UITableView.h"
#include "Platform/UIKit/UIViewController.h"
#include "Player/Overlay/Looks/Icons.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace KivUICore::Overlay {

using namespace CoreGraphics;
using Foundation::make;
using KivUICore::PopOverButton;
using KivUICore::PopOverMenu;

namespace {

constexpr CGFloat rowHeight = 44.0;

PopOverMenu::Buttons buttonsFor(const std::vector<MenuEntry>& entries) {
    PopOverMenu::Buttons buttons;
    for (const MenuEntry& entry : entries) {
        const auto button = make<PopOverButton>(entry.isCurrent ? tickIcon() : emptyIcon(), entry.text);
        if (entry.opens) {
            button->setImage(nullptr);
        }
        buttons.push_back(button);
    }
    return buttons;
}

CGSize sizeFor(const std::vector<MenuEntry>& entries) {
    constexpr CGFloat imageAndMargins = 80.0;
    constexpr CGFloat narrowest = 180.0;
    constexpr CGFloat widest = 420.0;
    const std::shared_ptr<UIKit::UILabel> label = make<UIKit::UILabel>(CGRect());
    CGFloat width = 0.0;
    for (const MenuEntry& entry : entries) {
        label->setText(entry.text);
        width = std::max(width, label->sizeThatFits({}).width);
    }
    return {std::clamp(width + imageAndMargins, narrowest, widest),
            static_cast<CGFloat>(entries.size()) * rowHeight};
}

bool isSame(const MenuEntry& a, const MenuEntry& b) { return a.text == b.text && a.isCurrent == b.isCurrent; }

} // namespace

const Foundation::Class& MenuPresenter::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<MenuPresenter, NSObject>("Overlay.MenuPresenter")
            .adopts<KivUICore::UIEventObserver>()
            .build();
    return object;
}

bool MenuPresenter::init(const std::shared_ptr<UIKit::UIViewController>& controller, const FilmMenus& menus,
                         std::function<void()> onOpenChange) {
    controller_ = controller;
    menus_ = &menus;
    onOpenChange_ = std::move(onOpenChange);
    return NSObject::init();
}

void MenuPresenter::open(MenuKind kind, const std::shared_ptr<UIKit::UIView>& anchor) {
    if (isOpen_ || menus_->entries(kind).empty()) {
        return;
    }
    kind_ = kind;
    anchor_ = anchor;
    setOpen(true);
    present();
}

void MenuPresenter::present() {
    entries_ = menus_->entries(kind_);
    if (entries_.empty()) {
        setOpen(false);
        return;
    }
    menu_ = make<PopOverMenu>(CGRect{{}, sizeFor(entries_)}, buttonsFor(entries_), self(this));
    menu_->showPopOver(anchor_, controller_, nullptr);
    if (menu_ && !menu_->presentingViewController()) {
        letGo();
        setOpen(false);
    }
    scrollToCurrent();
}

// Half-way up the menu, as far as there are entries on both sides.
void MenuPresenter::scrollToCurrent() {
    const auto current = std::find_if(entries_.begin(), entries_.end(),
                                      [](const MenuEntry& entry) { return entry.isCurrent; });
    if (!menu_ || current == entries_.end()) {
        return;
    }
    const CGFloat middle = (static_cast<CGFloat>(current - entries_.begin()) + 0.5) * rowHeight;
    const std::vector<std::shared_ptr<UIKit::UIView>> subviews = menu_->view()->subviews();
    for (const std::shared_ptr<UIKit::UIView>& subview : subviews) {
        if (const auto table = Foundation::as<UIKit::UITableView>(subview)) {
            table->setContentOffset(middle - CGRectGetHeight(table->bounds()) / 2.0);
        }
    }
}

void MenuPresenter::menusDidChange() {
    if (!menu_) {
        return;
    }
    std::vector<MenuEntry> entries = menus_->entries(kind_);
    if (entries.empty()) {
        close();
        return;
    }
    if (!std::equal(entries.begin(), entries.end(), entries_.begin(), entries_.end(), isSame)) {
        menu_->setButtons(buttonsFor(entries));
        menu_->setPreferredContentSize(sizeFor(entries));
    }
    entries_ = std::move(entries);
}

void MenuPresenter::close() {
    if (const std::shared_ptr<PopOverMenu> menu = menu_) {
        letGo();
        menu->dismissViewControllerAnimated(false, nullptr);
    }
    if (next_) {
        next_->invalidate();
        next_ = nullptr;
    }
    setOpen(false);
}

void MenuPresenter::onPopOverButtonPress(std::int64_t row) {
    const std::shared_ptr<MenuPresenter> alive = self(this);
    const MenuEntry chosen = entries_.at(static_cast<std::size_t>(row));
    letGo();
    if (chosen.opens) {
        kind_ = *chosen.opens;
        // The menu closes only after it told of the choice.
        next_ = Foundation::NSTimer::scheduledTimerWithTimeInterval(0.0, false,
                                                                    [this](Foundation::NSTimer& /*timer*/) {
                                                                        next_ = nullptr;
                                                                        present();
                                                                    });
    } else {
        setOpen(false);
        chosen.choose();
    }
}

void MenuPresenter::onPopOverDismiss() {
    const std::shared_ptr<MenuPresenter> alive = self(this);
    letGo();
    setOpen(false);
}

// The menu holds its observer.
void MenuPresenter::letGo() {
    if (const std::shared_ptr<PopOverMenu> menu = std::exchange(menu_, nullptr)) {
        menu->setObserver(nullptr);
    }
}

void MenuPresenter::setOpen(bool open) {
    if (std::exchange(isOpen_, open) != open) {
        onOpenChange_();
    }
}

} // namespace KivUICore::Overlay
