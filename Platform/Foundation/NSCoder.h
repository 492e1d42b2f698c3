#pragma once

#include "Platform/Foundation/NSObject.h"

namespace Foundation {

/// An archive that an object is restored from. Hosts derive from it; the modules here hand it on and read
/// nothing.
class NSCoder : public NSObject {
public:
    static const Class& classObject();
};

} // namespace Foundation
