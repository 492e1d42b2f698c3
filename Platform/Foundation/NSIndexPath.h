#pragma once

#include "Platform/Foundation/NSObject.h"

#include <cstdint>

namespace Foundation {

/// A row of a section, both counted from 0.
class NSIndexPath : public NSObject {
public:
    static const Class& classObject();

    using NSObject::init;
    bool init(std::int64_t row, std::int64_t section);

    std::int64_t row() const { return row_; }
    std::int64_t section() const { return section_; }

private:
    std::int64_t row_ = 0;
    std::int64_t section_ = 0;
};

} // namespace Foundation
