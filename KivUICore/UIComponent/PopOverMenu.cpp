#include "KivUICore/UIComponent/PopOverMenu.h"

#include "KivUICore/UIComponent/PopOverButton.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIImage.h"
#include "Platform/UIKit/UIImageView.h"
#include "Platform/UIKit/UILabel.h"
#include "Platform/UIKit/UIPopoverPresentationController.h"
#include "Platform/UIKit/UITableView.h"
#include "Platform/UIKit/UITableViewCell.h"

#include <cstdio>
#include <string>
#include <utility>

namespace KivUICore {

using namespace CoreGraphics;
using Foundation::NSIndexPath;
using Foundation::SEL;
using UIKit::UITableView;
using UIKit::UITableViewCell;
using UIKit::UIView;

namespace {

constexpr CGFloat backgroundWhite = 0.9;
constexpr CGFloat backgroundAlpha = 0.5;

// What a menu can't be made without.
template <class View>
std::shared_ptr<View> required(const std::shared_ptr<View>& view) {
    if (!view) {
        Foundation::stopSilently();
    }
    return view;
}

// In one piece, and past whatever the program has set a stream to.
void writeLine(const std::string& text) {
    const std::string line = text + '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
}

} // namespace

const Foundation::Class& PopOverMenu::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<PopOverMenu, UIViewController>("KivUICore.PopOverMenu")
            .property<&PopOverMenu::observer, &PopOverMenu::setObserver>("observer")
            .property<&PopOverMenu::buttons,
                      Foundation::overload<void(std::optional<Buttons>)>(&PopOverMenu::setButtons)>("buttons")
            .initializer<const CGRect&, Buttons, const std::shared_ptr<UIEventObserver>&>(
                "initWithFrame:buttons:observer:")
            .method<&PopOverMenu::showPopOver>("showPopOver:overViewController:color:")
            .method<&PopOverMenu::numberOfSectionsInTableView>("numberOfSectionsInTableView:")
            .adopts<UIKit::UITableViewDataSource>()
            .method<&PopOverMenu::tableViewDidSelectRowAtIndexPath>("tableView:didSelectRowAtIndexPath:")
            .method<&PopOverMenu::prepareForPopoverPresentation>("prepareForPopoverPresentation:")
            .method<&PopOverMenu::popoverPresentationControllerDidDismissPopover>(
                "popoverPresentationControllerDidDismissPopover:")
            .method<&PopOverMenu::adaptivePresentationStyleForPresentationController>(
                "adaptivePresentationStyleForPresentationController:")
            .build();
    return object;
}

// Made and restored

bool PopOverMenu::init(const CGRect& frame, Buttons buttons,
                       const std::shared_ptr<UIEventObserver>& observer) {
    observer_ = nullptr;
    tableView_ = nullptr;
    buttons_.reset();
    if (!UIViewController::init(std::nullopt, nullptr)) {
        return false;
    }
    required(view())->setFrame(frame);
    tableView_ = Foundation::make<UITableView>(frame, UIKit::UITableViewStyle::Plain);
    const std::shared_ptr<PopOverMenu> menu = self(this);
    if (tableView_) {
        tableView_->setDelegate(menu);
        tableView_->setDataSource(menu);
    }
    observer_ = observer;
    buttons_ = std::move(buttons);
    setModalPresentationStyle(UIKit::UIModalPresentationStyle::Popover);
    setPreferredContentSize({CGRectGetWidth(frame), CGRectGetHeight(frame)});
    const auto background = Foundation::make<UIKit::UIColor>(backgroundWhite, backgroundAlpha);
    required(view())->setBackgroundColor(background);
    if (tableView_) {
        tableView_->reloadData();
    }
    required(view())->addSubview(required(tableView_));
    return true;
}

bool PopOverMenu::init(const std::shared_ptr<Foundation::NSCoder>& coder) {
    observer_ = nullptr;
    tableView_ = nullptr;
    buttons_.reset();
    return UIViewController::init(coder);
}

bool PopOverMenu::init(const std::optional<std::string>& /*nibName*/,
                       const std::shared_ptr<Foundation::NSBundle>& /*bundle*/) {
    Foundation::unimplementedInitializer("init(nibName:bundle:)", "KivUICore.PopOverMenu");
}

void PopOverMenu::dealloc() {
    UIViewController::dealloc();
    observer_.reset();
    tableView_.reset();
    std::optional<Buttons>().swap(buttons_);
}

std::shared_ptr<UIEventObserver> PopOverMenu::observer() const { return observer_; }

void PopOverMenu::setObserver(const std::shared_ptr<UIEventObserver>& observer) {
    std::shared_ptr(observer).swap(observer_);
}

std::shared_ptr<UITableView> PopOverMenu::tableView() const { return tableView_; }

void PopOverMenu::setTableView(const std::shared_ptr<UITableView>& tableView) {
    std::shared_ptr(tableView).swap(tableView_);
}

// Entries

const std::optional<PopOverMenu::Buttons>& PopOverMenu::buttons() const { return buttons_; }

void PopOverMenu::setButtons(std::optional<Buttons> buttons) {
    buttons_.swap(buttons);
    if (const std::shared_ptr<UITableView> table = tableView()) {
        table->reloadData();
    }
}

void PopOverMenu::changeButtons(const std::function<void(std::optional<Buttons>&)>& change) {
    const std::shared_ptr<PopOverMenu> alive = self(this);
    std::optional<Buttons> changed = buttons();
    change(changed);
    setButtons(std::move(changed));
}

// Shown

void PopOverMenu::showPopOver(const std::shared_ptr<UIView>& view,
                              const std::shared_ptr<UIViewController>& overViewController,
                              const std::shared_ptr<UIKit::UIColor>& color) {
    require(view, "anchor", "showPopOver:overViewController:color:");
    // The caller may let go of what it handed in as soon as something is called.
    const std::shared_ptr<PopOverMenu> menu = self(this);
    const std::shared_ptr<UIView> anchor = view;
    const std::shared_ptr<UIViewController> presenter = overViewController;
    const std::shared_ptr<UIKit::UIColor> background = color;
    if (const auto popover = popoverPresentationController()) {
        popover->setDelegate(menu);
        popover->setPermittedArrowDirections(UIKit::UIPopoverArrowDirectionUp |
                                             UIKit::UIPopoverArrowDirectionDown);
        popover->setSourceView(anchor);
        popover->setSourceRect({{}, anchor->frame().size});
        popover->setBackgroundColor(background);
    }
    if (presenter) {
        presenter->presentViewController(menu, true, nullptr);
    }
}

// The table

std::int64_t PopOverMenu::numberOfSectionsInTableView(const std::shared_ptr<UITableView>& /*tableView*/) {
    return 1;
}

std::int64_t PopOverMenu::tableViewNumberOfRowsInSection(const std::shared_ptr<UITableView>& /*tableView*/,
                                                         std::int64_t /*section*/) {
    const std::optional<Buttons>& entries = buttons();
    return entries ? static_cast<std::int64_t>(entries->size()) : 0;
}

std::shared_ptr<UITableViewCell>
PopOverMenu::tableViewCellForRowAtIndexPath(const std::shared_ptr<UITableView>& /*tableView*/,
                                            const std::shared_ptr<NSIndexPath>& indexPath) {
    require(indexPath, "index path", "tableView:cellForRowAtIndexPath:");
    auto cell = Foundation::make<UITableViewCell>(UIKit::UITableViewCellStyle::Default, "cell");
    const std::shared_ptr<PopOverButton> button = buttonAt(indexPath->row());
    if (const std::shared_ptr<UIKit::UILabel> label = cell->textLabel()) {
        label->setText(button ? button->text() : std::nullopt);
    }
    if (const std::shared_ptr<UIKit::UIImageView> picture = cell->imageView()) {
        picture->setImage(button ? button->image() : nullptr);
    }
    return cell;
}

std::shared_ptr<PopOverButton> PopOverMenu::buttonAt(std::int64_t row) const {
    const std::optional<Buttons>& entries = buttons();
    if (!entries) {
        return nullptr;
    }
    if (row < 0 || row >= static_cast<std::int64_t>(entries->size())) {
        Foundation::stopSilently();
    }
    return (*entries)[static_cast<std::size_t>(row)];
}

void PopOverMenu::tableViewDidSelectRowAtIndexPath(const std::shared_ptr<UITableView>& tableView,
                                                   const std::shared_ptr<NSIndexPath>& indexPath) {
    static const SEL chosen("onPopOverButtonPress:");
    require(tableView, "table", "tableView:didSelectRowAtIndexPath:");
    require(indexPath, "index path", "tableView:didSelectRowAtIndexPath:");
    const std::shared_ptr<PopOverMenu> alive = self(this);
    const std::shared_ptr<UITableView> table = tableView;
    const std::shared_ptr<NSIndexPath> chosenPath = indexPath;
    const std::int64_t row = chosenPath->row();
    if (const std::shared_ptr<UIEventObserver> told = observer()) {
        told->send(chosen, row);
    }
    dismissViewControllerAnimated(true, nullptr);
    table->deselectRowAtIndexPath(chosenPath, true);
}

// The presentation

void PopOverMenu::prepareForPopoverPresentation(
    const std::shared_ptr<UIKit::UIPopoverPresentationController>& /*controller*/) {
    static const SEL shouldPresent("popOverShouldPresent");
    writeLine("pop over prepare for presentation");
    if (const std::shared_ptr<UIEventObserver> told = observer()) {
        told->send(shouldPresent);
    }
}

void PopOverMenu::popoverPresentationControllerDidDismissPopover(
    const std::shared_ptr<UIKit::UIPopoverPresentationController>& /*controller*/) {
    static const SEL didDismiss("onPopOverDismiss");
    writeLine("pop did dismiss");
    if (const std::shared_ptr<UIEventObserver> told = observer()) {
        told->send(didDismiss);
    }
}

UIKit::UIModalPresentationStyle PopOverMenu::adaptivePresentationStyleForPresentationController(
    const std::shared_ptr<UIKit::UIPresentationController>& /*controller*/) {
    return UIKit::UIModalPresentationStyle::None;
}

} // namespace KivUICore
