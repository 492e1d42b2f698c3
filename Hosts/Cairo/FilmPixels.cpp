#include "Hosts/Cairo/FilmPixels.h"

#include <algorithm>
#include <cstddef>
#include <new>

namespace KivUICore::Cairo {

namespace {

constexpr std::size_t alignment = 64;

std::size_t alignedStride(int width) {
    const std::size_t bytes = static_cast<std::size_t>(width) * 4;
    return (bytes + alignment - 1) / alignment * alignment;
}

} // namespace

FilmPixels::FilmPixels(const PixelSize& size) : size_(size), stride_(alignedStride(size.width)) {
    const std::size_t bytes = stride_ * static_cast<std::size_t>(size.height);
    memory_.reset(static_cast<unsigned char*>(std::aligned_alloc(alignment, bytes)));
    if (!memory_) {
        throw std::bad_alloc();
    }
    std::fill_n(memory_.get(), bytes, static_cast<unsigned char>(0));
    surface_.reset(cairo_image_surface_create_for_data(memory_.get(), CAIRO_FORMAT_RGB24, size.width,
                                                       size.height, static_cast<int>(stride_)));
}

PixelBuffer FilmPixels::buffer() const { return {memory_.get(), size_, stride_}; }

} // namespace KivUICore::Cairo
