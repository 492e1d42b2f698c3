#pragma once

#include <memory>
#include <string>
#include <vector>

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

/// What a host implements to offer routes, makes as a shared object, installs and keeps alive.
class MPRouteProvider : public std::enable_shared_from_this<MPRouteProvider> {
public:
    MPRouteProvider() = default;
    MPRouteProvider(const MPRouteProvider&) = delete;
    MPRouteProvider& operator=(const MPRouteProvider&) = delete;
    virtual ~MPRouteProvider() = default;

    /// The one that was installed last, if it is still alive.
    static std::shared_ptr<MPRouteProvider> installed();

    /// From now on every route button asks this provider. It is held weakly; installing nothing leaves them
    /// without routes.
    static void install(const std::shared_ptr<MPRouteProvider>& provider);

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
