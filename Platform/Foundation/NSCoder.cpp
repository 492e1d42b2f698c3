#include "Platform/Foundation/NSCoder.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace Foundation {

const Class& NSCoder::classObject() {
    static const Class& object = ClassBuilder<NSCoder, NSObject>("Foundation.NSCoder").build();
    return object;
}

} // namespace Foundation
