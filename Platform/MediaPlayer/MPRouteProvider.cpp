#include "Platform/MediaPlayer/MPRouteProvider.h"

#include "Platform/Foundation/FatalError.h"
#include "Platform/MediaPlayer/RouteChanges.h"
#include "Platform/UIKit/UIView.h"

#include <algorithm>

namespace MediaPlayer {

namespace {

struct Installation {
    std::weak_ptr<UIKit::UIView> root;
    std::weak_ptr<MPRouteProvider> provider;
};

std::vector<Installation>& installations() {
    static std::vector<Installation> all;
    return all;
}

std::shared_ptr<MPRouteProvider> providerAt(const UIKit::UIView& root) {
    const std::vector<Installation>& all = installations();
    const auto found = std::find_if(all.begin(), all.end(), [&root](const Installation& each) {
        return each.root.lock().get() == &root;
    });
    return found == all.end() ? nullptr : found->provider.lock();
}

} // namespace

std::shared_ptr<MPRouteProvider> MPRouteProvider::providerFor(const UIKit::UIView& view) {
    std::shared_ptr<MPRouteProvider> provider = providerAt(view);
    for (auto each = view.superview(); each && !provider; each = each->superview()) {
        provider = providerAt(*each);
    }
    return provider;
}

void MPRouteProvider::install(const std::shared_ptr<MPRouteProvider>& provider,
                              const std::shared_ptr<UIKit::UIView>& root) {
    if (!root) {
        Foundation::fatalError("A route provider is installed in a view");
    }
    std::erase_if(installations(), [&root](const Installation& each) {
        const std::shared_ptr<UIKit::UIView> present = each.root.lock();
        return !present || present == root || each.provider.expired();
    });
    if (provider) {
        installations().push_back({root, provider});
    }
    RouteChanges::tell();
}

void MPRouteProvider::routesDidChange() const { RouteChanges::tell(); }

} // namespace MediaPlayer
