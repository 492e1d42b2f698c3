#include <csignal>
#include <pthread.h>

// The compiler's header is for C alone.
extern "C" {
#include <gcov.h>
}

namespace {

// A test of a fatal report lets a child process run into it. What that process counted is written when it
// aborts, and is its own only: it begins with a copy of its parent's numbers.
[[maybe_unused]] const bool countsChildren = [] {
    std::signal(SIGABRT, [](int) { __gcov_dump(); });
    return pthread_atfork(nullptr, nullptr, __gcov_reset) == 0;
}();

} // namespace
