#pragma once

#include "Platform/CoreGraphics/CGGeometry.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace CoreGraphics {

/// Pixels in memory, immutable: rows from the top, four bytes a pixel, red, green, blue, alpha,
/// premultiplied.
class CGImage {
public:
    /// Nothing when a side is zero, the scale is not finite and above zero, or `bytes` doesn't hold 4 · width
    /// · height bytes. `scale` is pixels a point.
    static std::shared_ptr<const CGImage> create(std::size_t width, std::size_t height,
                                                 std::vector<std::uint8_t> bytes, CGFloat scale = 1.0);

    std::size_t width() const { return width_; }
    std::size_t height() const { return height_; }
    CGFloat scale() const { return scale_; }

    /// In points.
    CGSize size() const;

    const std::vector<std::uint8_t>& bytes() const { return bytes_; }

    friend bool operator==(const CGImage&, const CGImage&) = default;

private:
    CGImage(std::size_t width, std::size_t height, std::vector<std::uint8_t> bytes, CGFloat scale);

    std::size_t width_;
    std::size_t height_;
    CGFloat scale_;
    std::vector<std::uint8_t> bytes_;
};

} // namespace CoreGraphics
