#include "Benchmarks/MessageTarget.h"

#include "Platform/Foundation/ClassBuilder.h"

namespace Benchmarks {

const Foundation::Class& MessageTarget::classObject() {
    static const Foundation::Class& object =
        Foundation::ClassBuilder<MessageTarget, NSObject>("Benchmarks.MessageTarget")
            .method<&MessageTarget::hide>("hide")
            .method<&MessageTarget::seek>("seekTo:")
            .method<&MessageTarget::follow>("follow:")
            .build();
    return object;
}

void MessageTarget::hide() { ++count_; }

void MessageTarget::seek(double position) { position_ += position; }

void MessageTarget::follow(const std::shared_ptr<MessageTarget>& other) { count_ += other->count_; }

} // namespace Benchmarks
