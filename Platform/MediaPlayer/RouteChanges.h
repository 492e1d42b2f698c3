#pragma once

#include <functional>
#include <memory>

namespace MediaPlayer {

/// Tells that routes came or went, or who offers them.
class RouteChanges {
public:
    /// Calls `changed` each time, as long as `observer` is there.
    static void observe(const std::weak_ptr<void>& observer, std::function<void()> changed);

    /// Tells all who observe at this moment and are still there when it is their turn. Each may tear down
    /// anything.
    static void tell();
};

} // namespace MediaPlayer
