#pragma once

#include "Hosts/Headless/VirtualClock.h"
#include "Platform/Foundation/ClassBuilder.h"
#include "Platform/Foundation/NSRunLoop.h"
#include "Platform/UIKit/UIColor.h"
#include "Platform/UIKit/UIKey.h"
#include "Platform/UIKit/UITouch.h"
#include "Platform/UIKit/UIView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What happened, in order; outlives whatever wrote it.
using Log = std::vector<std::string>;

/// A view that writes down what it hears, and does with it what a test likes.
class ProbeView : public UIKit::UIView {
public:
    std::shared_ptr<Log> log = std::make_shared<Log>();
    std::string name;
    std::function<void(const UIKit::UITouch&)> onTouch;
    std::function<void()> onWindow;
    std::function<void(const CoreGraphics::CGRect&)> onDraw;
    std::function<void()> onTearDown;
    std::function<bool(const CoreGraphics::CGPoint&)> onScroll;
    std::function<bool(const UIKit::UIKey&)> onKey;

    bool scrollBy(const CoreGraphics::CGPoint& delta) override {
        log->push_back(name + "scrolled " + std::to_string(static_cast<int>(delta.y)));
        const auto call = onScroll;
        return call && call(delta);
    }
    bool keyPressed(const UIKit::UIKey& key) override {
        log->push_back(name + "key " + key.characters);
        const auto call = onKey;
        return call && call(key);
    }

    void touchesBegan(const UIKit::UITouch& touch) override { hear("began", touch); }
    void touchesMoved(const UIKit::UITouch& touch) override { hear("moved", touch); }
    void touchesEnded(const UIKit::UITouch& touch) override { hear("ended", touch); }
    void touchesCancelled(const UIKit::UITouch& touch) override { hear("cancelled", touch); }

    void drawRect(CoreGraphics::CGContext& /*context*/, const CoreGraphics::CGRect& rect) override {
        if (onDraw) {
            onDraw(rect);
        }
    }

protected:
    void didMoveToWindow() override {
        log->push_back(name + (window() ? "in" : "out"));
        if (const auto call = onWindow) {
            call();
        }
    }

    void dealloc() override {
        if (onTearDown) {
            onTearDown();
        }
        UIView::dealloc();
    }

private:
    void hear(const std::string& step, const UIKit::UITouch& touch) {
        log->push_back(name + step + " " + std::to_string(touch.identifier));
        if (const auto call = onTouch) {
            call(touch);
        }
    }
};

/// An object to send `tell` or `tell:` to.
class Listener : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject() {
        static const Foundation::Class& object = Foundation::ClassBuilder<Listener, NSObject>("Test.Listener")
                                                     .method<&Listener::tell>("tell")
                                                     .method<&Listener::tellSender>("tell:")
                                                     .build();
        return object;
    }

    std::function<void()> onTell;
    std::shared_ptr<Foundation::NSObject> sender;

    virtual void tell() {
        if (const auto call = onTell) {
            call();
        }
    }

    virtual void tellSender(const std::shared_ptr<Foundation::NSObject>& from) {
        sender = from;
        tell();
    }
};

inline std::shared_ptr<Listener> makeListener(std::function<void()> onTell) {
    auto listener = Foundation::make<Listener>();
    listener->onTell = std::move(onTell);
    return listener;
}

inline std::shared_ptr<ProbeView> makeProbe(const CoreGraphics::CGRect& frame, const std::string& name = "") {
    auto view = Foundation::make<ProbeView>(frame);
    view->name = name;
    return view;
}

/// An opaque red one.
inline std::shared_ptr<UIKit::UIView> makeView(const CoreGraphics::CGRect& frame) {
    auto view = Foundation::make<UIKit::UIView>(frame);
    view->setBackgroundColor(Foundation::make<UIKit::UIColor>(1.0, 0.0, 0.0, 1.0));
    return view;
}
