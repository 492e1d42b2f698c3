#pragma once

#include "KivCore/PlayerEventObserver.h"
#include "Platform/Foundation/Message.h"

#include <functional>
#include <memory>
#include <vector>

namespace KivCore {

/// Passes a player's events on to its observers, which it holds weakly. Those that have gone are forgotten,
/// and their memory given back, when an observer is added or removed and with every notification.
class KivEventNotifier : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    using Closure = std::function<void(const std::shared_ptr<PlayerEventObserver>&)>;

    /// After those that are there already; one that is there stays where it is.
    virtual void addObserver(const std::shared_ptr<PlayerEventObserver>& observer);
    virtual void removeObserver(const std::shared_ptr<PlayerEventObserver>& observer);

    /// Calls the closure for each observer, in the order in which they were added. Meanwhile any may be
    /// added, which is not called yet, or removed, which is not called any more.
    virtual void notifyObservers(const Closure& closure);

    /// Sends an operation to each observer that responds to it.
    template <class... Arguments>
    void notify(Foundation::SEL operation, const Arguments&... arguments) {
        notifyObservers([&](const std::shared_ptr<PlayerEventObserver>& observer) {
            if (observer->respondsToSelector(operation)) {
                observer->send(operation, arguments...);
            }
        });
    }

private:
    void forgetThoseGone();
    bool isObserving(const std::shared_ptr<PlayerEventObserver>& observer) const;

    std::vector<std::weak_ptr<PlayerEventObserver>> observers_;
};

} // namespace KivCore
