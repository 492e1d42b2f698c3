#pragma once

#include "Platform/CoreGraphics/CGContext.h"
#include "Platform/CoreGraphics/CGDrawing.h"

#include <memory>
#include <vector>

namespace CoreGraphics {

/// A context that keeps what is drawn into it as operations, for pictures made in memory and for tests.
class CGRecordingContext final : public CGContext {
public:
    /// `size` in points is the size of the drawing to come; it clips nothing.
    explicit CGRecordingContext(const CGSize& size) : size_(size) {}

    const CGSize& size() const { return size_; }
    const std::vector<CGDrawing::Operation>& operations() const { return operations_; }

    /// What was drawn so far, with saves and groups that are still open closed at its end.
    std::shared_ptr<const CGDrawing> drawing() const;

    /// Forgets what was drawn.
    void reset() { operations_.clear(); }

    void saveState() override;
    void restoreState() override;
    void concatenate(const CGAffineTransform& transform) override;
    void clipToRect(const CGRect& rect) override;
    void clipToPath(const CGPath& path) override;
    void clearRect(const CGRect& rect) override;
    void fillRect(const CGRect& rect, const CGColor& color) override;
    void fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) override;
    void fillPath(const CGPath& path, const CGColor& color) override;
    void strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) override;
    void drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) override;
    void fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) override;
    void drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) override;
    void beginGroup(CGFloat alpha, const CGRect& bounds) override;
    void endGroup() override;

private:
    CGSize size_;
    std::vector<CGDrawing::Operation> operations_;
};

} // namespace CoreGraphics
