#pragma once

#include "Hosts/Cairo/GenerationCache.h"
#include "Platform/CoreGraphics/CGGeometry.h"
#include "Platform/CoreGraphics/CGText.h"

#include <array>
#include <cstddef>
#include <memory>
#include <pango/pangocairo.h>
#include <string>
#include <string_view>

namespace KivUICore::Cairo {

/// Texts set by Pango, kept so that one which is drawn again unchanged is not shaped again.
class TextLayoutCache {
public:
    TextLayoutCache();

    /// The text broken and cut to fit `size` in points, ready to be shown on `context` as that stands. What
    /// it takes is bounded, whatever the text. The colour of `style` plays no part. `style.font.size` and
    /// `size` are above zero. Valid until the next call.
    PangoLayout* layout(cairo_t* context, std::string_view text, const CoreGraphics::CGTextStyle& style,
                        const CoreGraphics::CGSize& size);

private:
    /// The linear part of a transform: what decides on the shapes of glyphs.
    using Scaling = std::array<double, 4>;

    /// What a layout depends on. `Text` is a string in the cache, and a view when looked up.
    template <class Text>
    struct Request {
        Text text;
        CoreGraphics::CGFont font;
        CoreGraphics::CGTextAlignment alignment;
        int maximumLines;
        CoreGraphics::CGSize size;
        Scaling scaling;
    };
    struct Hash {
        using is_transparent = void;
        template <class Text>
        std::size_t operator()(const Request<Text>& request) const;
    };
    struct Equal {
        using is_transparent = void;
        template <class Left, class Right>
        bool operator()(const Request<Left>& left, const Request<Right>& right) const;
    };
    struct Release {
        void operator()(void* object) const { g_object_unref(object); }
    };
    using Layout = std::unique_ptr<PangoLayout, Release>;

    Layout makeLayout(cairo_t* context, const Request<std::string_view>& request) const;

    std::unique_ptr<PangoFontMap, Release> fonts_;
    GenerationCache<Request<std::string>, Layout, Hash, Equal> layouts_;
};

} // namespace KivUICore::Cairo
