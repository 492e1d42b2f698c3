#pragma once

#include "KivUICore/UIComponent/UIEventObserver.h"
#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/UIKit/UIPopoverPresentationControllerDelegate.h"
#include "Platform/UIKit/UITableViewDataSource.h"
#include "Platform/UIKit/UITableViewDelegate.h"
#include "Platform/UIKit/UIViewController.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <vector>

namespace UIKit {
class UIColor;
class UIPopoverPresentationController;
class UITableView;
class UIView;
} // namespace UIKit

namespace KivUICore {

class PopOverButton;

/// A list of entries in a pop-over. It tells its observer that it is about to be presented, which entry was
/// chosen, by its row, upon which it closes by itself, or that it was closed from outside. It may be shown
/// again and again, and writes a line to standard output when it is presented and when it is closed from
/// outside.
///
/// It holds its observer, its table and its entries strongly. All of it may be changed, and the menu be torn
/// down, whenever it tells something.
class PopOverMenu : public Foundation::Adopting<UIKit::UIViewController, UIKit::UITableViewDelegate,
                                                UIKit::UITableViewDataSource,
                                                UIKit::UIPopoverPresentationControllerDelegate> {
public:
    static const Foundation::Class& classObject();

    using Buttons = std::vector<std::shared_ptr<PopOverButton>>;

    /// Emptied, it silences the menu.
    virtual std::shared_ptr<UIEventObserver> observer() const;
    virtual void setObserver(const std::shared_ptr<UIEventObserver>& observer);

private:
    virtual std::shared_ptr<UIKit::UITableView> tableView() const;
    virtual void setTableView(const std::shared_ptr<UIKit::UITableView>& tableView);

public:
    /// The entries, one row each; nothing for none. The reference is good until they change. A store reloads
    /// the table.
    virtual const std::optional<Buttons>& buttons() const;
    virtual void setButtons(std::optional<Buttons> buttons);

    /// The same with the entries one by one: `setButtons({play, stop})`.
    void setButtons(std::initializer_list<std::shared_ptr<PopOverButton>> buttons) {
        setButtons(std::optional<Buttons>(buttons));
    }

    /// Has `change` alter the entries as they are, in one store whatever it does.
    void changeButtons(const std::function<void(std::optional<Buttons>& buttons)>& change);

    /// A menu of the size of `frame`, in which the table lies where `frame` says.
    virtual bool init(const CoreGraphics::CGRect& frame, Buttons buttons,
                      const std::shared_ptr<UIEventObserver>& observer);

    /// A menu without table, entries and observer.
    bool init(const std::shared_ptr<Foundation::NSCoder>& coder) override;

    /// Not supported: stops the program with a report. The plain initializer ends here too.
    bool init(const std::optional<std::string>& nibName,
              const std::shared_ptr<Foundation::NSBundle>& bundle) override;
    using UIKit::UIViewController::init;

    /// Points the pop-over at `view`, above or below it, and presents the menu over `overViewController`;
    /// without one nothing is presented. No colour stands for the platform's own background. Without an
    /// anchor, a fatal report.
    virtual void showPopOver(const std::shared_ptr<UIKit::UIView>& view,
                             const std::shared_ptr<UIKit::UIViewController>& overViewController,
                             const std::shared_ptr<UIKit::UIColor>& color);

    /// Called by the table.
    virtual std::int64_t numberOfSectionsInTableView(const std::shared_ptr<UIKit::UITableView>& tableView);
    std::int64_t tableViewNumberOfRowsInSection(const std::shared_ptr<UIKit::UITableView>& tableView,
                                                std::int64_t section) override;

    /// A new cell each time. A row that isn't there stops the program.
    std::shared_ptr<UIKit::UITableViewCell>
    tableViewCellForRowAtIndexPath(const std::shared_ptr<UIKit::UITableView>& tableView,
                                   const std::shared_ptr<Foundation::NSIndexPath>& indexPath) override;
    virtual void tableViewDidSelectRowAtIndexPath(const std::shared_ptr<UIKit::UITableView>& tableView,
                                                  const std::shared_ptr<Foundation::NSIndexPath>& indexPath);

    /// Called by the presentation.
    virtual void
    prepareForPopoverPresentation(const std::shared_ptr<UIKit::UIPopoverPresentationController>& controller);
    virtual void popoverPresentationControllerDidDismissPopover(
        const std::shared_ptr<UIKit::UIPopoverPresentationController>& controller);
    virtual UIKit::UIModalPresentationStyle adaptivePresentationStyleForPresentationController(
        const std::shared_ptr<UIKit::UIPresentationController>& controller);

protected:
    void dealloc() override;

private:
    std::shared_ptr<PopOverButton> buttonAt(std::int64_t row) const;

    std::shared_ptr<UIEventObserver> observer_;
    std::shared_ptr<UIKit::UITableView> tableView_;
    std::optional<Buttons> buttons_;
};

} // namespace KivUICore
