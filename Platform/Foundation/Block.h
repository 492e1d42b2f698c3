#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace Foundation {

template <class Signature>
class Block;

/// A closure as message dispatch passes it: shared, possibly empty, so that all copies run one closure with
/// one state. It is made of a closure and gives one back that runs it; a block made of that is the same block
/// again. An empty closure makes an empty block, and the other way round.
template <class Result, class... Arguments>
class Block<Result(Arguments...)> {
public:
    using Closure = std::function<Result(Arguments...)>;

    Block() = default;
    Block(std::nullptr_t) {}
    Block(Closure closure) {
        if (const Shared* shared = closure.template target<Shared>()) {
            closure_ = shared->closure;
        } else if (closure) {
            closure_ = std::make_shared<const Closure>(std::move(closure));
        }
    }

    explicit operator bool() const { return closure_ != nullptr; }

    /// Must not be called on an empty block.
    Result operator()(Arguments... arguments) const {
        return (*closure_)(std::forward<Arguments>(arguments)...);
    }

    /// A closure that runs the block.
    Closure closure() const {
        if (!closure_) {
            return nullptr;
        }
        return Shared{closure_};
    }

private:
    struct Shared {
        std::shared_ptr<const Closure> closure;

        Result operator()(Arguments... arguments) const {
            return (*closure)(std::forward<Arguments>(arguments)...);
        }
    };

    std::shared_ptr<const Closure> closure_;
};

} // namespace Foundation
