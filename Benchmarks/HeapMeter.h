#pragma once

#include <cstddef>

namespace Benchmarks {

/// Counts what the calling thread does on the heap while the meter lives, in whichever library and through
/// whichever function. Meters don't nest.
class HeapMeter {
public:
    HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;
    ~HeapMeter();

    /// Blocks that were asked for, those given back already included.
    std::size_t allocations() const { return allocations_; }

    /// Bytes and blocks in use now above those at the beginning. Bytes are what a block can hold.
    std::ptrdiff_t bytes() const { return bytes_; }
    std::ptrdiff_t blocks() const { return blocks_; }

    void allocated(const void* block);
    void freed(const void* block);

private:
    std::size_t allocations_ = 0;
    std::ptrdiff_t bytes_ = 0;
    std::ptrdiff_t blocks_ = 0;
};

} // namespace Benchmarks
