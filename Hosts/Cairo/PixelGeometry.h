#pragma once

#include <cstddef>

namespace KivUICore::Cairo {

struct PixelSize {
    int width = 0;
    int height = 0;

    bool isEmpty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

struct PixelRect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Somebody else's memory for a picture: rows from the top, 32 bits a pixel as Cairo has them. On most
/// machines that is the order blue, green, red and, where the picture is not opaque, alpha.
struct PixelBuffer {
    unsigned char* pixels = nullptr;
    PixelSize size;

    /// Bytes from one row to the next.
    std::size_t stride = 0;
};

} // namespace KivUICore::Cairo
