#pragma once

#include "Platform/Foundation/NSObject.h"

namespace Foundation {

/// Where an application keeps its resources. Hosts derive from it; the modules here hand it on and read
/// nothing.
class NSBundle : public NSObject {
public:
    static const Class& classObject();
};

} // namespace Foundation
