#pragma once

#include "Platform/CoreGraphics/CGRecordingContext.h"

namespace UIKit {

/// The image contexts that are open, each on top of the one that was opened before it.
class ImageContexts {
public:
    static void open(const CoreGraphics::CGSize& size);

    /// The one opened last; nothing when none is open. Valid until it is closed.
    static CoreGraphics::CGRecordingContext* current();

    /// Closes the one opened last. Does nothing when none is open.
    static void close();
};

} // namespace UIKit
