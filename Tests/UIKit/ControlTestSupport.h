#pragma once

#include "Hosts/Headless/HeadlessHost.h"
#include "Platform/CoreGraphics/CGDrawing.h"
#include "Platform/CoreGraphics/CGRecordingContext.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/UIKit/UIControl.h"
#include "Platform/UIKit/UIImage.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Writes down which events a control sent, and does with each what a test likes.
class EventRecorder : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object =
            Foundation::ClassBuilder<EventRecorder, NSObject>("Test.EventRecorder")
                .method<&EventRecorder::onDown>("onDown")
                .method<&EventRecorder::onUpInside>("onUpInside")
                .method<&EventRecorder::onUpOutside>("onUpOutside")
                .method<&EventRecorder::onCancel>("onCancel")
                .method<&EventRecorder::onValue>("onValue:")
                .build();
        return object;
    }

    std::vector<std::string> events;
    std::function<void(const std::string&)> onEvent;

    void watch(UIKit::UIControl& control) {
        control.addTarget(self(this), "onDown", UIKit::UIControlEventTouchDown);
        control.addTarget(self(this), "onUpInside", UIKit::UIControlEventTouchUpInside);
        control.addTarget(self(this), "onUpOutside", UIKit::UIControlEventTouchUpOutside);
        control.addTarget(self(this), "onCancel", UIKit::UIControlEventTouchCancel);
        control.addTarget(self(this), "onValue:", UIKit::UIControlEventValueChanged);
    }

private:
    void onDown() { record("down"); }
    void onUpInside() { record("up inside"); }
    void onUpOutside() { record("up outside"); }
    void onCancel() { record("cancel"); }
    void onValue(const std::shared_ptr<UIKit::UIControl>& /*sender*/) { record("value"); }

    void record(const std::string& event) {
        events.push_back(event);
        if (const auto call = onEvent) {
            call(event);
        }
    }
};

/// What a view draws of itself, in its own coordinates, as operations of one kind.
template <class Operation>
std::vector<Operation> drawnBy(UIKit::UIView& view) {
    CoreGraphics::CGRecordingContext context(view.bounds().size);
    view.drawRect(context, view.bounds());
    std::vector<Operation> found;
    for (const CoreGraphics::CGDrawing::Operation& each : context.operations()) {
        if (const auto* operation = std::get_if<Operation>(&each)) {
            found.push_back(*operation);
        }
    }
    return found;
}

/// A drawing of one rectangle that fills it.
inline std::shared_ptr<UIKit::UIImage> makeImage(const CoreGraphics::CGSize& size,
                                                 const CoreGraphics::CGColor& color = {}) {
    CoreGraphics::CGRecordingContext context(size);
    context.fillRect({{}, size}, color);
    return Foundation::make<UIKit::UIImage>(context.drawing());
}
