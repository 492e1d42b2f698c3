#include "KivCore/KivPlayer.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace KivCore {

const Foundation::Class& KivPlayer::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<KivPlayer, NSObject>("KivCore.KivPlayer")
            .property<&KivPlayer::allowsAirPlay>("allowsAirPlay")
            .property<&KivPlayer::eventNotifier>("eventNotifier")
            .build();
    return object;
}

bool KivPlayer::init() {
    eventNotifier_ = Foundation::make<KivEventNotifier>();
    return NSObject::init();
}

bool KivPlayer::allowsAirPlay() const { return false; }

std::shared_ptr<KivEventNotifier> KivPlayer::eventNotifier() const { return eventNotifier_; }

} // namespace KivCore
