#include "Player/Desktop/Guard.h"

#include <exception>
#include <new>
#include <sys/mman.h>

namespace KivUICore::Player {

namespace {

constexpr const char* noMemory = "the system gives it too little memory";

// For the stacks and heaps of some thirty threads, and pictures.
bool hasRoom() {
    constexpr std::size_t least = std::size_t{512} << 20U;
    void* const room = ::mmap(nullptr, least, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    return room != MAP_FAILED && ::munmap(room, least) == 0;
}

} // namespace

Exit guarded(const std::function<Exit()>& program) {
    if (!hasRoom()) {
        return {ExitCode::Failure, noMemory};
    }
    try {
        return program();
    } catch (const std::bad_alloc&) {
        return {ExitCode::Failure, noMemory};
    } catch (const std::exception& error) {
        return {ExitCode::Failure, error.what()};
    }
}

} // namespace KivUICore::Player
