#pragma once

#include "Platform/UIKit/Table/TableRows.h"
#include "Platform/UIKit/UITableViewDataSource.h"
#include "Platform/UIKit/UITableViewDelegate.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace UIKit {

class ScrollIndicator;
class UITableViewCell;

enum class UITableViewStyle : std::int64_t {
    /// One row below the other, without ornaments.
    Plain = 0,
};

/// A list of rows of one height that is scrolled when it doesn't fit. It asks its data source how many rows
/// there are, and for the cells of those rows alone that are in sight, while it is in a window: its cost
/// doesn't grow with the number of rows. It draws no background and grows with its superview.
///
/// A press highlights a row and a release inside chooses it; a drag scrolls instead, and so does the wheel.
/// The table takes the touches on its cells itself; those on a view in a cell that takes touches go there.
/// The keys move a highlight, which stays in sight, and choose.
///
/// Data source and delegate are held weakly. They may do anything when they are asked or told something: what
/// they change is taken in as soon as they are done. A data source that asks for a reload each time it is
/// asked is no longer heard after three in a row. One that throws is asked again when the table next has
/// something to do.
class UITableView : public UIView {
public:
    static const Foundation::Class& classObject();

    bool init(const CoreGraphics::CGRect& frame) override;
    virtual bool init(const CoreGraphics::CGRect& frame, UITableViewStyle style);
    using UIView::init;

    virtual std::shared_ptr<UITableViewDelegate> delegate() const;
    virtual void setDelegate(const std::shared_ptr<UITableViewDelegate>& delegate);

    /// Another one is asked when the table next reloads or comes into a window.
    virtual std::shared_ptr<UITableViewDataSource> dataSource() const;
    virtual void setDataSource(const std::shared_ptr<UITableViewDataSource>& dataSource);

    /// Asks for everything anew: at once, and for cells when the table is in a window. No row is selected
    /// afterwards, and a press that is going on chooses nothing.
    virtual void reloadData();

    /// As asked for last. Nothing for a section that isn't there.
    std::int64_t numberOfSections() const { return rows_.sectionCount(); }
    std::int64_t numberOfRowsInSection(std::int64_t section) const { return rows_.rowCount(section); }

    /// The cell that shows a row; nothing when the row is out of sight.
    std::shared_ptr<UITableViewCell>
    cellForRowAtIndexPath(const std::shared_ptr<Foundation::NSIndexPath>& indexPath) const;

    /// Nothing when no row is selected.
    std::shared_ptr<Foundation::NSIndexPath> indexPathForSelectedRow() const;

    /// Does nothing for a row that isn't selected.
    virtual void deselectRowAtIndexPath(const std::shared_ptr<Foundation::NSIndexPath>& indexPath,
                                        bool animated);

    /// How far the rows are scrolled up, in points; cut to what there is.
    CoreGraphics::CGFloat contentOffset() const { return bounds().origin.y; }
    void setContentOffset(CoreGraphics::CGFloat offset);

    void setBounds(const CoreGraphics::CGRect& bounds) override;
    void layoutSubviews() override;

    std::shared_ptr<UIView> hitTest(const CoreGraphics::CGPoint& point) override;
    void touchesBegan(const UITouch& touch) override;
    void touchesMoved(const UITouch& touch) override;
    void touchesEnded(const UITouch& touch) override;
    void touchesCancelled(const UITouch& touch) override;
    bool scrollBy(const CoreGraphics::CGPoint& delta) override;

    bool canBecomeFocused() const override { return true; }

    /// Up, down, page up, page down, home and end move the highlight; return chooses it.
    bool keyPressed(const UIKey& key) override;

protected:
    void didMoveToWindow() override;

private:
    struct VisibleCell {
        std::int64_t index;
        std::shared_ptr<UITableViewCell> cell;
    };

    /// A touch that is down, with heights measured from the top of the view.
    struct Press {
        UITouchIdentifier touch = 0;
        std::optional<std::int64_t> row;
        CoreGraphics::CGFloat y = 0.0;
        bool isDrag = false;
    };

    void update();
    template <class Call>
    void ask(bool& isNeeded, Call call);
    void countRows();
    void askForRows();
    void showCells();
    bool addCell(std::int64_t index);
    void removeCellsOutside(const TableRows::Range& range);
    void layOutContent();

    CoreGraphics::CGRect rowRect(std::int64_t index) const;
    std::shared_ptr<UITableViewCell> visibleCell(std::optional<std::int64_t> index) const;
    std::shared_ptr<Foundation::NSIndexPath> indexPath(std::int64_t index) const;
    CoreGraphics::CGFloat greatestOffset() const;

    bool isPress(const UITouch& touch) const { return press_ && press_->touch == touch.identifier; }
    std::optional<Press> endPress();
    std::optional<std::int64_t> rowAt(const UITouch& touch) const;
    void highlight(std::optional<std::int64_t> row);
    std::optional<std::int64_t> rowForKey(const UIKey& key) const;
    void scrollIntoSight(std::int64_t index);
    void choose(std::int64_t index);

    std::weak_ptr<UITableViewDelegate> delegate_;
    std::weak_ptr<UITableViewDataSource> dataSource_;

    TableRows rows_;
    std::vector<VisibleCell> cells_;
    std::shared_ptr<ScrollIndicator> indicator_;
    std::optional<std::int64_t> highlightedRow_;
    std::optional<std::int64_t> selectedRow_;
    std::optional<Press> press_;

    // What is to be done, perhaps because a callback asked for it while something was being done.
    bool needsRows_ = true;
    bool needsCells_ = true;
    bool isUpdating_ = false;
};

} // namespace UIKit
