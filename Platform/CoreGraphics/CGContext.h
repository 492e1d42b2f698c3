#pragma once

#include "Platform/CoreGraphics/CGAffineTransform.h"
#include "Platform/CoreGraphics/CGColor.h"
#include "Platform/CoreGraphics/CGText.h"

#include <memory>
#include <string_view>

namespace CoreGraphics {

class CGDrawing;
class CGImage;
class CGPath;

enum class CGLineCap { Butt, Round };
enum class CGLineJoin { Miter, Round };

struct CGStroke {
    CGFloat width = 1.0;
    CGLineCap cap = CGLineCap::Butt;
    CGLineJoin join = CGLineJoin::Miter;

    friend bool operator==(const CGStroke&, const CGStroke&) = default;
};

/// What a host implements to put a view tree on a screen. All coordinates are points in the current space, y
/// downwards; the host's scale turns them into pixels. A rectangle or size that is empty or not a number
/// draws nothing, and neither does an image or a pattern cell that is missing. A context keeps no reference
/// to a path, text or image beyond the call, except to images and drawings that it caches by sharing them.
class CGContext {
public:
    CGContext() = default;
    CGContext(const CGContext&) = delete;
    CGContext& operator=(const CGContext&) = delete;
    virtual ~CGContext() = default;

    /// The state is the transform and the clip. Saves nest, and each is restored.
    virtual void saveState() = 0;
    virtual void restoreState() = 0;

    /// Applies `transform` before the current one: what follows is drawn in the new space.
    virtual void concatenate(const CGAffineTransform& transform) = 0;

    virtual void clipToRect(const CGRect& rect) = 0;
    virtual void clipToPath(const CGPath& path) = 0;

    /// Makes every pixel of the rectangle transparent, whatever was there.
    virtual void clearRect(const CGRect& rect) = 0;

    virtual void fillRect(const CGRect& rect, const CGColor& color) = 0;

    /// `radius` is cut to half the shorter side; a square with half its side is a circle.
    virtual void fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) = 0;
    virtual void fillPath(const CGPath& path, const CGColor& color) = 0;
    virtual void strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) = 0;

    /// Scales the whole image into the rectangle.
    virtual void drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) = 0;

    /// Fills the rectangle with the drawing repeated at its own size, the first copy's corner at (0, 0).
    virtual void fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) = 0;

    /// `text` is UTF-8.
    virtual void drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) = 0;

    /// What is drawn until the matching end is composed first and then laid down as one, at `alpha`. `bounds`
    /// is all that will be drawn, in the current space. Groups nest.
    virtual void beginGroup(CGFloat alpha, const CGRect& bounds) = 0;
    virtual void endGroup() = 0;
};

} // namespace CoreGraphics
