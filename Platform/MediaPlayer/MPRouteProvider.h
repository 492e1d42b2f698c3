#pragma once

#include <memory>
#include <string>
#include <vector>

namespace UIKit {
class UIView;
} // namespace UIKit

namespace MediaPlayer {

class MPVolumeView;

/// A place where sound and picture can go.
struct MPRoute {
    /// What a person calls it.
    std::string name;

    /// Unlike any other's, and the same for as long as the route is there.
    std::string identifier;

    bool isSelected = false;

    friend bool operator==(const MPRoute&, const MPRoute&) = default;
};

/// What a host implements to offer routes, makes as a shared object, installs in a view and keeps alive. Each
/// window, or each part of one, can have its own.
class MPRouteProvider : public std::enable_shared_from_this<MPRouteProvider> {
public:
    MPRouteProvider() = default;
    MPRouteProvider(const MPRouteProvider&) = delete;
    MPRouteProvider& operator=(const MPRouteProvider&) = delete;
    virtual ~MPRouteProvider() = default;

    /// The provider of the nearest view around `view`, or of `view` itself, that has one which is still
    /// alive.
    static std::shared_ptr<MPRouteProvider> providerFor(const UIKit::UIView& view);

    /// From now on the route buttons in `root`, at any depth, ask this provider in place of the one that
    /// `root` had. Both are held weakly; installing nothing takes the provider of `root` away.
    static void install(const std::shared_ptr<MPRouteProvider>& provider,
                        const std::shared_ptr<UIKit::UIView>& root);

    /// In the order in which to offer them.
    virtual std::vector<MPRoute> routes() const = 0;

    /// Goes over to that route. Does nothing when there is none of that identifier any more.
    virtual void selectRoute(const std::string& identifier) = 0;

    /// The user touched the button in `view` and wants to choose. The provider asks in its own way and calls
    /// `selectRoute` itself. It may tear down anything, the view included.
    virtual void chooseRouteFromView(const std::shared_ptr<MPVolumeView>& view) = 0;

protected:
    /// Call it when routes came or went: the route buttons show or hide at once.
    void routesDidChange() const;
};

} // namespace MediaPlayer
