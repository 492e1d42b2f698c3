#include "Platform/CoreGraphics/ContentLayout.h"

#include <algorithm>

namespace CoreGraphics {

CGSize sizeFittedInto(const CGSize& size, const CGSize& space) {
    if (!(size.width > 0.0 && size.height > 0.0 && space.width > 0.0 && space.height > 0.0)) {
        return {};
    }
    const CGFloat scale = std::min({1.0, space.width / size.width, space.height / size.height});
    return {size.width * scale, size.height * scale};
}

} // namespace CoreGraphics
