#include "Platform/CoreGraphics/CGDrawing.h"

#include <utility>

namespace CoreGraphics {

namespace {

enum class Scope { State, Group };

/// Drops what ends nothing, and ends what is left open.
class Balancer {
public:
    std::vector<CGDrawing::Operation> balance(std::vector<CGDrawing::Operation> operations) {
        std::erase_if(operations,
                      [this](const CGDrawing::Operation& operation) { return !keeps(operation); });
        closeOpenScopes(operations);
        return operations;
    }

private:
    bool keeps(const CGDrawing::Operation& operation) {
        if (std::holds_alternative<CGDrawing::SaveState>(operation))
            open_.push_back(Scope::State);
        else if (std::holds_alternative<CGDrawing::BeginGroup>(operation))
            open_.push_back(Scope::Group);
        else if (std::holds_alternative<CGDrawing::RestoreState>(operation))
            return closes(Scope::State);
        else if (std::holds_alternative<CGDrawing::EndGroup>(operation))
            return closes(Scope::Group);
        return true;
    }

    bool closes(Scope scope) {
        if (open_.empty() || open_.back() != scope)
            return false;
        open_.pop_back();
        return true;
    }

    void closeOpenScopes(std::vector<CGDrawing::Operation>& operations) {
        for (; !open_.empty(); open_.pop_back()) {
            if (open_.back() == Scope::State)
                operations.emplace_back(CGDrawing::RestoreState{});
            else
                operations.emplace_back(CGDrawing::EndGroup{});
        }
    }

    std::vector<Scope> open_;
};

struct Replay {
    CGContext& context;

    void operator()(const CGDrawing::SaveState&) const { context.saveState(); }
    void operator()(const CGDrawing::RestoreState&) const { context.restoreState(); }
    void operator()(const CGDrawing::Concatenate& operation) const {
        context.concatenate(operation.transform);
    }
    void operator()(const CGDrawing::ClipToRect& operation) const { context.clipToRect(operation.rect); }
    void operator()(const CGDrawing::ClipToPath& operation) const { context.clipToPath(operation.path); }
    void operator()(const CGDrawing::ClearRect& operation) const { context.clearRect(operation.rect); }
    void operator()(const CGDrawing::FillRect& operation) const {
        context.fillRect(operation.rect, operation.color);
    }
    void operator()(const CGDrawing::FillRoundedRect& operation) const {
        context.fillRoundedRect(operation.rect, operation.radius, operation.color);
    }
    void operator()(const CGDrawing::FillPath& operation) const {
        context.fillPath(operation.path, operation.color);
    }
    void operator()(const CGDrawing::StrokePath& operation) const {
        context.strokePath(operation.path, operation.stroke, operation.color);
    }
    void operator()(const CGDrawing::DrawImage& operation) const {
        context.drawImage(operation.image, operation.rect);
    }
    void operator()(const CGDrawing::FillPattern& operation) const {
        context.fillPattern(operation.cell, operation.rect);
    }
    void operator()(const CGDrawing::DrawText& operation) const {
        context.drawText(operation.text, operation.style, operation.rect);
    }
    void operator()(const CGDrawing::BeginGroup& operation) const {
        context.beginGroup(operation.alpha, operation.bounds);
    }
    void operator()(const CGDrawing::EndGroup&) const { context.endGroup(); }
};

} // namespace

CGDrawing::CGDrawing(const CGSize& size, std::vector<Operation> operations)
    : size_(size), operations_(Balancer().balance(std::move(operations))) {}

void CGDrawing::replay(CGContext& context) const {
    for (const Operation& operation : operations_)
        std::visit(Replay{context}, operation);
}

void CGDrawing::draw(CGContext& context, const CGRect& rect) const {
    if (!(size_.width > 0.0) || !(size_.height > 0.0) || CGRectIsEmpty(rect))
        return;
    const CGRect target = CGRectStandardize(rect);
    CGAffineTransform fit =
        CGAffineTransformMakeScale(target.size.width / size_.width, target.size.height / size_.height);
    fit.tx = target.origin.x;
    fit.ty = target.origin.y;
    // An infinite size or rectangle leaves a scale that no context can draw with.
    if (!CGAffineTransformInvert(fit))
        return;

    context.saveState();
    context.clipToRect(target);
    context.concatenate(fit);
    replay(context);
    context.restoreState();
}

} // namespace CoreGraphics
