#include "Platform/CoreGraphics/CGRecordingContext.h"

namespace CoreGraphics {

std::shared_ptr<const CGDrawing> CGRecordingContext::drawing() const {
    return std::make_shared<const CGDrawing>(size_, operations_);
}

void CGRecordingContext::saveState() { operations_.emplace_back(CGDrawing::SaveState{}); }

void CGRecordingContext::restoreState() { operations_.emplace_back(CGDrawing::RestoreState{}); }

void CGRecordingContext::concatenate(const CGAffineTransform& transform) {
    operations_.emplace_back(CGDrawing::Concatenate{transform});
}

void CGRecordingContext::clipToRect(const CGRect& rect) {
    operations_.emplace_back(CGDrawing::ClipToRect{rect});
}

void CGRecordingContext::clipToPath(const CGPath& path) {
    operations_.emplace_back(CGDrawing::ClipToPath{path});
}

void CGRecordingContext::clearRect(const CGRect& rect) {
    operations_.emplace_back(CGDrawing::ClearRect{rect});
}

void CGRecordingContext::fillRect(const CGRect& rect, const CGColor& color) {
    operations_.emplace_back(CGDrawing::FillRect{rect, color});
}

void CGRecordingContext::fillRoundedRect(const CGRect& rect, CGFloat radius, const CGColor& color) {
    operations_.emplace_back(CGDrawing::FillRoundedRect{rect, radius, color});
}

void CGRecordingContext::fillPath(const CGPath& path, const CGColor& color) {
    operations_.emplace_back(CGDrawing::FillPath{path, color});
}

void CGRecordingContext::strokePath(const CGPath& path, const CGStroke& stroke, const CGColor& color) {
    operations_.emplace_back(CGDrawing::StrokePath{path, stroke, color});
}

void CGRecordingContext::drawImage(const std::shared_ptr<const CGImage>& image, const CGRect& rect) {
    operations_.emplace_back(CGDrawing::DrawImage{image, rect});
}

void CGRecordingContext::fillPattern(const std::shared_ptr<const CGDrawing>& cell, const CGRect& rect) {
    operations_.emplace_back(CGDrawing::FillPattern{cell, rect});
}

void CGRecordingContext::drawText(std::string_view text, const CGTextStyle& style, const CGRect& rect) {
    operations_.emplace_back(CGDrawing::DrawText{std::string(text), style, rect});
}

void CGRecordingContext::beginGroup(CGFloat alpha, const CGRect& bounds) {
    operations_.emplace_back(CGDrawing::BeginGroup{alpha, bounds});
}

void CGRecordingContext::endGroup() { operations_.emplace_back(CGDrawing::EndGroup{}); }

} // namespace CoreGraphics
