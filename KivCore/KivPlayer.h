#pragma once

#include "KivCore/KivEventNotifier.h"
#include "Platform/Foundation/NSObject.h"

#include <memory>

namespace KivCore {

/// A player as controls see it. Real players derive from it and tell their observers through the notifier.
class KivPlayer : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    bool init() override;

    /// Whether a button to choose another output is wanted; it isn't unless a subclass says so.
    virtual bool allowsAirPlay() const;

    /// Where the player's observers are told from; a subclass may have none.
    virtual std::shared_ptr<KivEventNotifier> eventNotifier() const;

private:
    std::shared_ptr<KivEventNotifier> eventNotifier_;
};

} // namespace KivCore
