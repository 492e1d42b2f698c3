#pragma once

#include "KivUICore/UIComponent/UIEventObserver.h"
#include "Platform/Foundation/NSObject.h"
#include "Platform/UIKit/UIView.h"

#include <memory>

namespace KivUICore {

/// Base of every control: the view that it wraps and the observer that it reports to. Both are optional, may
/// be replaced at any time and are held strongly. An observer that owns its controls therefore forms a cycle
/// with them; a bar's `clean` breaks it. A component that ends leaves its view where it is.
class UIComponent : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    virtual std::shared_ptr<UIKit::UIView> view() const;
    virtual void setView(const std::shared_ptr<UIKit::UIView>& view);

    /// Emptied, it silences the control.
    virtual std::shared_ptr<UIEventObserver> observer() const;
    virtual void setObserver(const std::shared_ptr<UIEventObserver>& observer);

    /// Neither view nor observer.
    bool init() override;

protected:
    void dealloc() override;

private:
    std::shared_ptr<UIKit::UIView> view_;
    std::shared_ptr<UIEventObserver> observer_;
};

} // namespace KivUICore
