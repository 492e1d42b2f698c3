#pragma once

#include <cstdint>
#include <memory>

namespace KivUICore {

class UIComponent;

/// A control placed in a bar, and the columns that it was given. Never changes, and is out of dispatch's
/// reach.
class UIElement {
public:
    /// Without a control as its `view`, a fatal report. `size` in columns is kept as given, 0 and below too.
    UIElement(std::shared_ptr<UIComponent> view, std::int64_t size);
    UIElement(const UIElement&) = delete;
    UIElement& operator=(const UIElement&) = delete;

    std::int64_t size() const { return size_; }
    const std::shared_ptr<UIComponent>& view() const { return view_; }

private:
    std::int64_t size_;
    std::shared_ptr<UIComponent> view_;
};

} // namespace KivUICore
