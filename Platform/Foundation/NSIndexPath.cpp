#include "Platform/Foundation/NSIndexPath.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace Foundation {

const Class& NSIndexPath::classObject() {
    static const Class& object = ClassBuilder<NSIndexPath, NSObject>("Foundation.NSIndexPath")
                                     .property<&NSIndexPath::row>("row")
                                     .property<&NSIndexPath::section>("section")
                                     .build();
    return object;
}

bool NSIndexPath::init(std::int64_t row, std::int64_t section) {
    row_ = row;
    section_ = section;
    return NSObject::init();
}

} // namespace Foundation
