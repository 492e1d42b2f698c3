#pragma once

#include "Hosts/Cairo/CairoHandles.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <vector>

namespace KivUICore::Player {

/// Pixels with the components red, green, blue and alpha, premultiplied.
class Picture {
public:
    using Pixel = std::array<int, 4>;

    Picture() = default;
    Picture(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height)) {}

    /// Empty if the file is no picture.
    static Picture fromPng(const std::filesystem::path& path) {
        const Cairo::CairoSurface surface(cairo_image_surface_create_from_png(path.c_str()));
        if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS) {
            return {};
        }
        const bool isOpaque = cairo_image_surface_get_format(surface.get()) == CAIRO_FORMAT_RGB24;
        Picture picture(cairo_image_surface_get_width(surface.get()),
                        cairo_image_surface_get_height(surface.get()));
        for (int y = 0; y < picture.height_; ++y) {
            for (int x = 0; x < picture.width_; ++x) {
                std::uint32_t value = 0;
                std::memcpy(&value,
                            cairo_image_surface_get_data(surface.get()) +
                                y * cairo_image_surface_get_stride(surface.get()) + x * 4,
                            sizeof value);
                picture.set(x, y, isOpaque ? value | 0xFF000000U : value);
            }
        }
        return picture;
    }

    int width() const { return width_; }
    int height() const { return height_; }

    Pixel at(int x, int y) const { return pixels_.at(index(x, y)); }

    /// `value` as alpha, red, green and blue from its highest byte down.
    void set(int x, int y, std::uint32_t value) {
        pixels_.at(index(x, y)) = {static_cast<int>(value >> 16 & 255), static_cast<int>(value >> 8 & 255),
                                   static_cast<int>(value & 255), static_cast<int>(value >> 24)};
    }

    /// The mean difference of a colour component to another picture of the same size.
    double differenceTo(const Picture& other) const {
        double sum = 0.0;
        for (std::size_t pixel = 0; pixel < pixels_.size(); ++pixel) {
            for (std::size_t part = 0; part < 3; ++part) {
                sum += std::abs(pixels_[pixel][part] - other.pixels_.at(pixel)[part]);
            }
        }
        return sum / (static_cast<double>(pixels_.size()) * 3.0);
    }

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    std::size_t index(int x, int y) const { return static_cast<std::size_t>(y * width_ + x); }

    int width_ = 0;
    int height_ = 0;
    std::vector<Pixel> pixels_;
};

} // namespace KivUICore::Player
