#include "Platform/Foundation/NSObject.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace Foundation {

const Class& NSObject::classObject() {
    static const Class& object = ClassBuilder<NSObject>("Foundation.NSObject").initializer<>("init").build();
    return object;
}

bool NSObject::init() { return true; }

bool NSObject::isKindOfClass(const Class& other) const { return isa().isSubclassOf(other); }

bool NSObject::respondsToSelector(SEL selector) const { return isa().method(selector) != nullptr; }

} // namespace Foundation
