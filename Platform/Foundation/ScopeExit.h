#pragma once

#include <utility>

namespace Foundation {

/// Runs a closure at the end of a scope, whichever way that is left: it puts right what a callback that
/// throws would otherwise leave behind. The closure itself throws nothing.
template <class Closure>
class ScopeExit {
public:
    explicit ScopeExit(Closure closure) : closure_(std::move(closure)) {}
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;
    ~ScopeExit() { closure_(); }

private:
    Closure closure_;
};

} // namespace Foundation
