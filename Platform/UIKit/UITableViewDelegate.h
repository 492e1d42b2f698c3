#pragma once

#include "Platform/Foundation/Protocol.h"

namespace UIKit {

/// Whom a table tells of choices. An adopter lists what it has of:
/// - `tableView:didSelectRowAtIndexPath:`: a row was chosen. May change or tear down anything.
class UITableViewDelegate : public Foundation::Protocol {
protected:
    ~UITableViewDelegate() = default;
};

} // namespace UIKit
