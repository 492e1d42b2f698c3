#include "Platform/CoreGraphics/CGImage.h"

#include <cmath>
#include <utility>

namespace CoreGraphics {

std::shared_ptr<const CGImage> CGImage::create(std::size_t width, std::size_t height,
                                               std::vector<std::uint8_t> bytes, CGFloat scale) {
    if (width == 0 || height == 0 || !std::isfinite(scale) || !(scale > 0.0))
        return nullptr;
    // Divided, because the product of two sides can overflow.
    const std::size_t pixels = bytes.size() / 4;
    if (bytes.size() % 4 != 0 || pixels % width != 0 || pixels / width != height)
        return nullptr;
    return std::shared_ptr<const CGImage>(new CGImage(width, height, std::move(bytes), scale));
}

CGImage::CGImage(std::size_t width, std::size_t height, std::vector<std::uint8_t> bytes, CGFloat scale)
    : width_(width), height_(height), scale_(scale), bytes_(std::move(bytes)) {}

CGSize CGImage::size() const {
    return {static_cast<CGFloat>(width_) / scale_, static_cast<CGFloat>(height_) / scale_};
}

} // namespace CoreGraphics
