#pragma once

#include "Hosts/Cairo/CairoHandles.h"
#include "Hosts/Cairo/CairoResources.h"
#include "Platform/CoreGraphics/CGContext.h"

#include <optional>
#include <vector>

namespace KivUICore::Cairo {

/// Draws on a Cairo surface of premultiplied pixels (CAIRO_FORMAT_ARGB32). Made once for a surface and used
/// for all its frames.
class CairoContext final : public CoreGraphics::CGContext {
public:
    /// A point covers `scale` pixels each way, above zero. `resources` outlives the context.
    CairoContext(cairo_surface_t* surface, double scale, CairoResources& resources);

    /// Draws in the space in which `context` is now, and leaves that as it was.
    CairoContext(cairo_t* context, CairoResources& resources);
    ~CairoContext() override;

    void saveState() override;
    void restoreState() override;
    void concatenate(const CoreGraphics::CGAffineTransform& transform) override;
    void clipToRect(const CoreGraphics::CGRect& rect) override;
    void clipToPath(const CoreGraphics::CGPath& path) override;
    void clearRect(const CoreGraphics::CGRect& rect) override;
    void fillRect(const CoreGraphics::CGRect& rect, const CoreGraphics::CGColor& color) override;
    void fillRoundedRect(const CoreGraphics::CGRect& rect, CoreGraphics::CGFloat radius,
                         const CoreGraphics::CGColor& color) override;
    void fillPath(const CoreGraphics::CGPath& path, const CoreGraphics::CGColor& color) override;
    void strokePath(const CoreGraphics::CGPath& path, const CoreGraphics::CGStroke& stroke,
                    const CoreGraphics::CGColor& color) override;
    void drawImage(const std::shared_ptr<const CoreGraphics::CGImage>& image,
                   const CoreGraphics::CGRect& rect) override;
    void fillPattern(const std::shared_ptr<const CoreGraphics::CGDrawing>& cell,
                     const CoreGraphics::CGRect& rect) override;
    void drawText(std::string_view text, const CoreGraphics::CGTextStyle& style,
                  const CoreGraphics::CGRect& rect) override;
    void beginGroup(CoreGraphics::CGFloat alpha, const CoreGraphics::CGRect& bounds) override;
    void endGroup() override;

private:
    bool isVisible(const CoreGraphics::CGRect& rect) const;
    bool addRect(const CoreGraphics::CGRect& rect);
    void addPath(const CoreGraphics::CGPath& path);
    void setColor(const CoreGraphics::CGColor& color);
    void leaveLevel();
    void clipToWholePixels(const CoreGraphics::CGRect& rect);

    CairoHandle context_;
    CairoResources& resources_;

    // Saves and groups that are open, and the one in which the space was folded flat: nothing shows inside
    // it.
    int level_ = 0;
    std::optional<int> flatLevel_;
    std::vector<double> groupAlphas_;
};

} // namespace KivUICore::Cairo
