#include "KivCore/KivEventNotifier.h"

#include "Platform/Foundation/ClassBuilder.h"

#include <algorithm>

namespace KivCore {

const Foundation::Class& KivEventNotifier::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<KivEventNotifier, NSObject>("KivCore.KivEventNotifier")
            .method<&KivEventNotifier::addObserver>("addObserver:")
            .method<&KivEventNotifier::removeObserver>("removeObserver:")
            .method<&KivEventNotifier::notifyObservers>("notifyObservers:")
            .build();
    return object;
}

void KivEventNotifier::addObserver(const std::shared_ptr<PlayerEventObserver>& observer) {
    forgetThoseGone();
    if (observer && !isObserving(observer)) {
        observers_.push_back(observer);
    }
}

void KivEventNotifier::removeObserver(const std::shared_ptr<PlayerEventObserver>& observer) {
    std::erase_if(observers_, [&observer](const std::weak_ptr<PlayerEventObserver>& each) {
        const std::shared_ptr<PlayerEventObserver> present = each.lock();
        return !present || present == observer;
    });
}

void KivEventNotifier::notifyObservers(const Closure& closure) {
    const std::shared_ptr<NSObject> alive = weak_from_this().lock();
    forgetThoseGone();
    const std::vector<std::weak_ptr<PlayerEventObserver>> snapshot = observers_;
    for (const std::weak_ptr<PlayerEventObserver>& each : snapshot) {
        const std::shared_ptr<PlayerEventObserver> observer = each.lock();
        if (observer && isObserving(observer)) {
            closure(observer);
        }
    }
}

// The memory of an object stays taken while anything refers to it, weakly too.
void KivEventNotifier::forgetThoseGone() {
    std::erase_if(observers_, [](const std::weak_ptr<PlayerEventObserver>& each) { return each.expired(); });
}

bool KivEventNotifier::isObserving(const std::shared_ptr<PlayerEventObserver>& observer) const {
    return std::any_of(
        observers_.begin(), observers_.end(),
        [&observer](const std::weak_ptr<PlayerEventObserver>& each) { return each.lock() == observer; });
}

} // namespace KivCore
