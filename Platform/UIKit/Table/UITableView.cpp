#include "Platform/UIKit/UITableView.h"

#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/FatalError.h"
#include "Platform/Foundation/ScopeExit.h"
#include "Platform/UIKit/Table/ScrollIndicator.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UITableViewCell.h"
#include "Platform/UIKit/UIWindow.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace UIKit {

using namespace CoreGraphics;
using Foundation::NSIndexPath;
using Foundation::SEL;

namespace {

constexpr CGFloat dragThreshold = 10.0;
constexpr int mostReloadsInARow = 3;

} // namespace

const Foundation::Class& UITableView::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<UITableView, UIView>("UIKit.UITableView")
            .initializer<const CGRect&, UITableViewStyle>("initWithFrame:style:")
            .property<&UITableView::delegate, &UITableView::setDelegate>("delegate")
            .property<&UITableView::dataSource, &UITableView::setDataSource>("dataSource")
            .method<&UITableView::reloadData>("reloadData")
            .property<&UITableView::numberOfSections>("numberOfSections")
            .method<&UITableView::numberOfRowsInSection>("numberOfRowsInSection:")
            .method<&UITableView::cellForRowAtIndexPath>("cellForRowAtIndexPath:")
            .property<&UITableView::indexPathForSelectedRow>("indexPathForSelectedRow")
            .method<&UITableView::deselectRowAtIndexPath>("deselectRowAtIndexPath:animated:")
            .build();
    return object;
}

bool UITableView::init(const CGRect& frame) { return init(frame, UITableViewStyle::Plain); }

bool UITableView::init(const CGRect& frame, UITableViewStyle /*style*/) {
    setClipsToBounds(true);
    setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    return UIView::init(frame);
}

std::shared_ptr<UITableViewDelegate> UITableView::delegate() const { return delegate_.lock(); }

void UITableView::setDelegate(const std::shared_ptr<UITableViewDelegate>& delegate) { delegate_ = delegate; }

std::shared_ptr<UITableViewDataSource> UITableView::dataSource() const { return dataSource_.lock(); }

void UITableView::setDataSource(const std::shared_ptr<UITableViewDataSource>& dataSource) {
    dataSource_ = dataSource;
    needsRows_ = true;
}

// Rows and cells

void UITableView::reloadData() {
    needsRows_ = true;
    update();
}

void UITableView::update() {
    // Who is being asked at the moment goes on from here when it has its answer.
    if (isUpdating_) {
        return;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    isUpdating_ = true;
    const Foundation::ScopeExit end([this] { isUpdating_ = false; });
    for (int round = 0; round < mostReloadsInARow && (needsRows_ || (needsCells_ && window())); ++round) {
        if (needsRows_) {
            ask(needsRows_, [this] { countRows(); });
        }
        if (!needsRows_ && window()) {
            ask(needsCells_, [this] { showCells(); });
        }
    }
}

// Asks again the next time for what a data source that throws has not answered.
template <class Call>
void UITableView::ask(bool& isNeeded, Call call) {
    isNeeded = false;
    bool isAnswered = false;
    const Foundation::ScopeExit end([&] { isNeeded = isNeeded || !isAnswered; });
    call();
    isAnswered = true;
}

void UITableView::countRows() {
    selectedRow_.reset();
    if (press_) {
        press_->row.reset();
        highlight(std::nullopt);
    }
    removeCellsOutside({});
    askForRows();
    needsCells_ = true;
    setContentOffset(contentOffset());
}

void UITableView::askForRows() {
    static const SEL sectionCount("numberOfSectionsInTableView:");
    static const SEL rowCount("tableView:numberOfRowsInSection:");
    TableRows rows;
    // A data source that throws has the rows that it told of before: no other may be chosen.
    const Foundation::ScopeExit end([&] {
        rows_ = std::move(rows);
        if (highlightedRow_ && *highlightedRow_ >= rows_.count()) {
            highlightedRow_.reset();
        }
    });
    if (const std::shared_ptr<UITableViewDataSource> source = dataSource()) {
        const std::shared_ptr<UITableView> table = self(this);
        const std::int64_t sections =
            source->respondsToSelector(sectionCount) ? source->send<std::int64_t>(sectionCount, table) : 1;
        for (std::int64_t section = 0; section < sections && !needsRows_; ++section) {
            rows.addSection(source->send<std::int64_t>(rowCount, table, section));
        }
    }
}

void UITableView::showCells() {
    layOutContent();
    const CGRect visible = CGRectStandardize(bounds());
    const TableRows::Range range = rows_.range(CGRectGetMinY(visible), CGRectGetMaxY(visible));
    removeCellsOutside(range);
    for (std::int64_t index = range.first; index < range.end && !needsRows_ && !needsCells_; ++index) {
        if (!visibleCell(index) && !addCell(index)) {
            return;
        }
    }
}

// False when there is none to be had, or the answer came with a change that puts it out of date.
bool UITableView::addCell(std::int64_t index) {
    static const SEL cellForRow("tableView:cellForRowAtIndexPath:");
    const std::shared_ptr<UITableViewDataSource> source = dataSource();
    if (!source) {
        return false;
    }
    const auto cell =
        source->send<std::shared_ptr<UITableViewCell>>(cellForRow, self(this), indexPath(index));
    if (!cell) {
        Foundation::fatalError("The data source of a table gave no cell for a row");
    }
    if (needsRows_ || needsCells_) {
        return false;
    }
    cells_.push_back({index, cell});
    cell->setFrame(rowRect(index));
    cell->setHighlighted(highlightedRow_ == index);
    cell->setSelected(selectedRow_ == index, false);
    insertSubview(cell, 0);
    return !needsRows_ && !needsCells_;
}

void UITableView::removeCellsOutside(const TableRows::Range& range) {
    std::vector<VisibleCell> removed;
    std::erase_if(cells_, [&](const VisibleCell& each) {
        const bool isOutside = !range.contains(each.index);
        if (isOutside) {
            removed.push_back(each);
        }
        return isOutside;
    });
    for (const VisibleCell& each : removed) {
        if (each.cell->superview().get() == this) {
            each.cell->removeFromSuperview();
        }
    }
}

void UITableView::layOutContent() {
    for (const VisibleCell& each : std::vector<VisibleCell>(cells_)) {
        each.cell->setFrame(rowRect(each.index));
    }
    if (!indicator_ && greatestOffset() > 0.0) {
        indicator_ = Foundation::make<ScrollIndicator>();
        addSubview(indicator_);
    }
    if (indicator_) {
        indicator_->show(bounds(), rows_.height());
    }
}

CGRect UITableView::rowRect(std::int64_t index) const {
    const CGRect visible = bounds();
    return CGRectMake(visible.origin.x, TableRows::top(index), visible.size.width, TableRows::rowHeight);
}

std::shared_ptr<UITableViewCell> UITableView::visibleCell(std::optional<std::int64_t> index) const {
    const auto found = std::find_if(cells_.begin(), cells_.end(),
                                    [index](const VisibleCell& each) { return each.index == index; });
    return found == cells_.end() ? nullptr : found->cell;
}

std::shared_ptr<NSIndexPath> UITableView::indexPath(std::int64_t index) const {
    const TableRows::Position position = rows_.position(index);
    return Foundation::make<NSIndexPath>(position.row, position.section);
}

std::shared_ptr<UITableViewCell>
UITableView::cellForRowAtIndexPath(const std::shared_ptr<NSIndexPath>& indexPath) const {
    return indexPath ? visibleCell(rows_.index({indexPath->section(), indexPath->row()})) : nullptr;
}

void UITableView::didMoveToWindow() {
    highlight(std::nullopt);
    if (window()) {
        needsCells_ = true;
        update();
    }
}

// Scrolling

CGFloat UITableView::greatestOffset() const {
    return std::max(0.0, rows_.height() - CGRectGetHeight(bounds()));
}

void UITableView::setContentOffset(CGFloat offset) {
    const CGRect present = bounds();
    const CGFloat y = std::clamp(std::isnan(offset) ? 0.0 : offset, 0.0, greatestOffset());
    if (y != present.origin.y) {
        setBounds({{present.origin.x, y}, present.size});
    }
}

void UITableView::setBounds(const CGRect& bounds) {
    const std::shared_ptr<UITableView> alive = self(this);
    const bool isScrolled = bounds.origin != this->bounds().origin;
    UIView::setBounds(bounds);
    if (isScrolled) {
        needsCells_ = true;
        update();
    }
}

void UITableView::layoutSubviews() {
    const std::shared_ptr<UITableView> alive = self(this);
    needsCells_ = true;
    setContentOffset(contentOffset());
    update();
}

bool UITableView::scrollBy(const CGPoint& delta) {
    if (greatestOffset() <= 0.0 || !std::isfinite(delta.y)) {
        return false;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    if (press_ && !press_->isDrag) {
        press_->row.reset();
        highlight(std::nullopt);
    }
    setContentOffset(contentOffset() - delta.y);
    return true;
}

// Touches

// A touch on a row is the table's own: it goes on when the row's cell is scrolled out of sight or replaced.
std::shared_ptr<UIView> UITableView::hitTest(const CGPoint& point) {
    const std::shared_ptr<UITableView> alive = self(this);
    std::shared_ptr<UIView> hit = UIView::hitTest(point);
    return Foundation::as<UITableViewCell>(hit) ? alive : hit;
}

std::optional<std::int64_t> UITableView::rowAt(const UITouch& touch) const {
    const CGPoint point = touch.locationInView(*this);
    return pointInside(point) ? rows_.indexAt(point.y) : std::nullopt;
}

void UITableView::touchesBegan(const UITouch& touch) {
    if (!press_) {
        press_ =
            Press{touch.identifier, rowAt(touch), touch.locationInView(*this).y - contentOffset(), false};
        highlight(press_->row);
    }
}

void UITableView::touchesMoved(const UITouch& touch) {
    if (!isPress(touch)) {
        return;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    const CGFloat y = touch.locationInView(*this).y - contentOffset();
    if (press_->isDrag) {
        const CGFloat way = y - std::exchange(press_->y, y);
        setContentOffset(contentOffset() - way);
    } else if (std::abs(y - press_->y) > dragThreshold) {
        press_->isDrag = true;
        press_->y = y;
        highlight(std::nullopt);
    } else {
        highlight(rowAt(touch) == press_->row ? press_->row : std::nullopt);
    }
}

void UITableView::touchesEnded(const UITouch& touch) {
    if (!isPress(touch)) {
        return;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    const std::optional<Press> press = endPress();
    if (press && !press->isDrag && press->row && rowAt(touch) == press->row) {
        choose(*press->row);
    }
}

// The press as it is when the cells have been told, who may have brought other rows.
std::optional<UITableView::Press> UITableView::endPress() {
    const Foundation::ScopeExit end([this] { press_.reset(); });
    highlight(std::nullopt);
    return press_;
}

void UITableView::touchesCancelled(const UITouch& touch) {
    if (isPress(touch)) {
        press_.reset();
        highlight(std::nullopt);
    }
}

void UITableView::highlight(std::optional<std::int64_t> row) {
    if (row == highlightedRow_) {
        return;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    const std::shared_ptr<UITableViewCell> before = visibleCell(highlightedRow_);
    highlightedRow_ = row;
    if (before) {
        before->setHighlighted(false);
    }
    if (const std::shared_ptr<UITableViewCell> cell = visibleCell(highlightedRow_)) {
        cell->setHighlighted(true);
    }
}

// Keys

std::optional<std::int64_t> UITableView::rowForKey(const UIKey& key) const {
    const CGRect visible = bounds();
    const TableRows::Range range = rows_.range(CGRectGetMinY(visible), CGRectGetMaxY(visible));
    const std::int64_t last = rows_.count() - 1;
    const std::int64_t page = std::max<std::int64_t>(range.end - range.first - 1, 1);
    switch (key.keyCode) {
    case UIKeyboardHIDUsage::DownArrow:
        return highlightedRow_ ? std::min(*highlightedRow_ + 1, last) : range.first;
    case UIKeyboardHIDUsage::UpArrow:
        return highlightedRow_ ? std::max<std::int64_t>(*highlightedRow_ - 1, 0) : range.end - 1;
    case UIKeyboardHIDUsage::PageDown:
        return std::min(highlightedRow_.value_or(range.first) + page, last);
    case UIKeyboardHIDUsage::PageUp:
        return std::max<std::int64_t>(highlightedRow_.value_or(range.end - 1) - page, 0);
    case UIKeyboardHIDUsage::Home:
        return 0;
    case UIKeyboardHIDUsage::End:
        return last;
    default:
        return std::nullopt;
    }
}

bool UITableView::keyPressed(const UIKey& key) {
    if (rows_.count() == 0 || press_) {
        return false;
    }
    const std::shared_ptr<UITableView> alive = self(this);
    if (key.keyCode == UIKeyboardHIDUsage::ReturnOrEnter && highlightedRow_) {
        choose(*highlightedRow_);
        return true;
    }
    const std::optional<std::int64_t> row = rowForKey(key);
    if (row) {
        const std::int64_t reached = std::clamp<std::int64_t>(*row, 0, rows_.count() - 1);
        highlight(reached);
        scrollIntoSight(reached);
    }
    return row.has_value();
}

void UITableView::scrollIntoSight(std::int64_t index) {
    const CGFloat top = TableRows::top(index);
    const CGFloat lowest = top + TableRows::rowHeight - CGRectGetHeight(bounds());
    setContentOffset(std::min(std::max(contentOffset(), lowest), top));
}

// Choice

void UITableView::choose(std::int64_t index) {
    static const SEL didSelect("tableView:didSelectRowAtIndexPath:");
    const std::shared_ptr<UITableView> alive = self(this);
    const std::shared_ptr<UITableViewCell> before = visibleCell(selectedRow_);
    selectedRow_ = index;
    if (before) {
        before->setSelected(false, false);
    }
    if (const std::shared_ptr<UITableViewCell> cell = visibleCell(index)) {
        cell->setSelected(true, false);
    }
    const std::shared_ptr<UITableViewDelegate> told = delegate();
    if (selectedRow_ == index && told && told->respondsToSelector(didSelect)) {
        told->send(didSelect, alive, indexPath(index));
    }
}

std::shared_ptr<NSIndexPath> UITableView::indexPathForSelectedRow() const {
    return selectedRow_ ? indexPath(*selectedRow_) : nullptr;
}

void UITableView::deselectRowAtIndexPath(const std::shared_ptr<NSIndexPath>& indexPath, bool animated) {
    if (!indexPath || !selectedRow_ ||
        rows_.index({indexPath->section(), indexPath->row()}) != selectedRow_) {
        return;
    }
    const std::shared_ptr<UITableViewCell> cell = visibleCell(selectedRow_);
    selectedRow_.reset();
    if (cell) {
        cell->setSelected(false, animated);
    }
}

} // namespace UIKit
