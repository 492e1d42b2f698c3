#pragma once

#include "Platform/Foundation/NSIndexPath.h"
#include "Platform/Foundation/Protocol.h"

#include <cstdint>
#include <memory>

namespace UIKit {

class UITableView;
class UITableViewCell;

/// Where a table gets its rows from. Each operation may change or tear down anything, the table included. An
/// adopter may also list `numberOfSectionsInTableView:`, which gives an integer; without it there is one
/// section.
class UITableViewDataSource : public Foundation::Protocol {
public:
    virtual std::int64_t tableViewNumberOfRowsInSection(const std::shared_ptr<UITableView>& tableView,
                                                        std::int64_t section) = 0;

    /// The cell that shows the row: nothing is a fatal report.
    virtual std::shared_ptr<UITableViewCell>
    tableViewCellForRowAtIndexPath(const std::shared_ptr<UITableView>& tableView,
                                   const std::shared_ptr<Foundation::NSIndexPath>& indexPath) = 0;

    template <class Builder>
    static void describe(Builder& builder) {
        builder.template method<&UITableViewDataSource::tableViewNumberOfRowsInSection>(
            "tableView:numberOfRowsInSection:");
        builder.template method<&UITableViewDataSource::tableViewCellForRowAtIndexPath>(
            "tableView:cellForRowAtIndexPath:");
    }

protected:
    ~UITableViewDataSource() = default;
};

} // namespace UIKit
