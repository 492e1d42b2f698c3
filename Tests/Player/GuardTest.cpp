#include "Player/Desktop/Guard.h"

#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <sys/resource.h>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

TEST(Guard, ProgramThatEndsByItselfSaysHow) {
    const Exit exit = guarded([] { return Exit{ExitCode::Usage, "as it says"}; });
    EXPECT_EQ(exit.code, ExitCode::Usage);
    EXPECT_EQ(exit.text, "as it says");
}

TEST(Guard, MemoryThatIsRefusedIsToldInASentence) {
    const Exit exit = guarded([]() -> Exit { throw std::bad_alloc(); });
    EXPECT_EQ(exit.code, ExitCode::Failure);
    EXPECT_EQ(exit.text, "the system gives it too little memory");
}

/// Lets the process have little more than it has.
class MemoryLimit {
public:
    MemoryLimit() {
        getrlimit(RLIMIT_AS, &before_);
        rlimit limit = before_;
        constexpr rlim_t rest = 64U << 20U;
        limit.rlim_cur = pagesInUse() * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + rest;
        setrlimit(RLIMIT_AS, &limit);
    }
    MemoryLimit(const MemoryLimit&) = delete;
    MemoryLimit& operator=(const MemoryLimit&) = delete;
    ~MemoryLimit() { setrlimit(RLIMIT_AS, &before_); }

private:
    static rlim_t pagesInUse() {
        rlim_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        return pages;
    }

    rlimit before_{};
};

TEST(Guard, ProgramWithTooLittleRoomDoesNotBegin) {
    bool hasBegun = false;
    const auto program = [&hasBegun] {
        hasBegun = true;
        return Exit{};
    };
    {
        const MemoryLimit limit;
        const Exit exit = guarded(program);
        EXPECT_EQ(exit.code, ExitCode::Failure);
        EXPECT_EQ(exit.text, "the system gives it too little memory");
    }
    EXPECT_FALSE(hasBegun);
    EXPECT_EQ(guarded(program).code, ExitCode::Success);
    EXPECT_TRUE(hasBegun);
}

TEST(Guard, OtherThingsThatTheSystemRefusesAreToldInItsWords) {
    const Exit exit = guarded([]() -> Exit { throw std::runtime_error("no thread can be started"); });
    EXPECT_EQ(exit.code, ExitCode::Failure);
    EXPECT_EQ(exit.text, "no thread can be started");
}

} // namespace

} // namespace KivUICore::Player
