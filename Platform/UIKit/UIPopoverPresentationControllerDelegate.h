#pragma once

#include "Platform/Foundation/Protocol.h"

namespace UIKit {

/// Whom a pop-over tells what happens to it. An adopter lists what it has, of:
/// - `adaptivePresentationStyleForPresentationController:`, which gives a UIModalPresentationStyle: asked
///   first, and full screen for an answer shows no pop-over but the whole window. Any other leaves it.
/// - `prepareForPopoverPresentation:`: it is about to be shown.
/// - `popoverPresentationControllerDidDismissPopover:`: the user closed it from outside, and it is gone.
///
/// Each is given the presentation controller, and may change or tear down anything.
class UIPopoverPresentationControllerDelegate : public Foundation::Protocol {
protected:
    ~UIPopoverPresentationControllerDelegate() = default;
};

} // namespace UIKit
