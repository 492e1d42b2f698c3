#include "Platform/Foundation/NSBundle.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace Foundation {

const Class& NSBundle::classObject() {
    static const Class& object = ClassBuilder<NSBundle, NSObject>("Foundation.NSBundle").build();
    return object;
}

} // namespace Foundation
