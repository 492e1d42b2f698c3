#pragma once

#include "Platform/Foundation/NSObject.h"

#include <cstdint>
#include <memory>

namespace Benchmarks {

/// Receives messages and does as little as possible. Its functions are defined out of sight of those who call
/// them, so that no compiler can tell what a call does.
class MessageTarget : public Foundation::NSObject {
public:
    static const Foundation::Class& classObject();

    virtual void hide();
    virtual void seek(double position);
    virtual void follow(const std::shared_ptr<MessageTarget>& other);

    std::int64_t count() const { return count_; }
    double position() const { return position_; }

private:
    std::int64_t count_ = 0;
    double position_ = 0.0;
};

} // namespace Benchmarks
