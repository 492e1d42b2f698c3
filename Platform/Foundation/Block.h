#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>

namespace Foundation {

template <class Signature>
class Block;

/// A closure as message dispatch passes it: shared, possibly empty. It is made by copying a closure and gives
/// one back; an empty closure makes an empty block, and the other way round.
template <class Result, class... Arguments>
class Block<Result(Arguments...)> {
public:
    using Closure = std::function<Result(Arguments...)>;

    Block() = default;
    Block(std::nullptr_t) {}
    Block(Closure closure)
        : closure_(closure ? std::make_shared<const Closure>(std::move(closure)) : nullptr) {}

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
        return [closure = closure_](Arguments... arguments) -> Result {
            return (*closure)(std::forward<Arguments>(arguments)...);
        };
    }

private:
    std::shared_ptr<const Closure> closure_;
};

} // namespace Foundation
