#include "Tests/Overlay/Looks/DrawingText.h"

#include <array>
#include <cmath>
#include <initializer_list>
#include <sstream>
#include <variant>

namespace KivUICore::Overlay {

namespace {

using namespace CoreGraphics;

std::string numbers(std::initializer_list<CGFloat> values) {
    constexpr CGFloat parts = 1000.0;
    std::ostringstream text;
    for (const CGFloat value : values) {
        // Nothing is added to make a zero of what was a little less.
        text << ' ' << std::round(value * parts) / parts + 0.0;
    }
    return text.str();
}

std::string describe(const CGColor& color) {
    return "color" + numbers({color.red, color.green, color.blue, color.alpha});
}

std::string describe(const CGPath& path) {
    constexpr std::array<const char*, 4> names{" M", " L", " C", " Z"};
    std::string text;
    for (const auto& [verb, points] : path.elements()) {
        const std::size_t used = verb == CGPath::Verb::Curve ? 3 : verb == CGPath::Verb::Close ? 0 : 1;
        text += names.at(static_cast<std::size_t>(verb));
        for (std::size_t point = 0; point < used; ++point) {
            text += numbers({points.at(point).x, points.at(point).y});
        }
    }
    return text;
}

/// A line for each kind of operation.
struct Describer {
    std::string operator()(const CGDrawing::Concatenate& each) const {
        const auto& [a, b, c, d, tx, ty] = each.transform;
        return "transform" + numbers({a, b, c, d, tx, ty});
    }
    std::string operator()(const CGDrawing::FillRoundedRect& each) const {
        const auto& [origin, size] = each.rect;
        return "rounded" + numbers({origin.x, origin.y, size.width, size.height, each.radius}) + ' ' +
               describe(each.color);
    }
    std::string operator()(const CGDrawing::FillPath& each) const {
        return "fill" + describe(each.path) + ' ' + describe(each.color);
    }
    std::string operator()(const CGDrawing::StrokePath& each) const {
        return "stroke" + describe(each.path) + ' ' + describe(each.color);
    }
    template <class Other>
    std::string operator()(const Other& /*each*/) const {
        return "?";
    }
};

} // namespace

std::string describe(const CGDrawing& drawing) {
    std::string text;
    for (const CGDrawing::Operation& operation : drawing.operations()) {
        text += "  " + std::visit(Describer{}, operation) + '\n';
    }
    return text;
}

} // namespace KivUICore::Overlay
