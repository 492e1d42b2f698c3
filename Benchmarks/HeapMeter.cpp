#include "Benchmarks/HeapMeter.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>
#include <unistd.h>

// The C library's own allocator, which the functions below stand in front of. A program may replace malloc
// and its relatives as long as it replaces all of them; shared libraries then use the replacements too.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace Benchmarks {

namespace {

thread_local HeapMeter* meter = nullptr;

void* noted(void* block) {
    if (meter && block) {
        meter->allocated(block);
    }
    return block;
}

void noteFreed(const void* block) {
    if (meter && block) {
        meter->freed(block);
    }
}

} // namespace

HeapMeter::HeapMeter() { meter = this; }

HeapMeter::~HeapMeter() { meter = nullptr; }

void HeapMeter::allocated(const void* block) {
    ++allocations_;
    ++blocks_;
    bytes_ += static_cast<std::ptrdiff_t>(malloc_usable_size(const_cast<void*>(block)));
}

void HeapMeter::freed(const void* block) {
    --blocks_;
    bytes_ -= static_cast<std::ptrdiff_t>(malloc_usable_size(const_cast<void*>(block)));
}

} // namespace Benchmarks

using Benchmarks::noted;
using Benchmarks::noteFreed;

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

void* malloc(std::size_t size) { return noted(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) { return noted(__libc_calloc(count, size)); }

void* realloc(void* block, std::size_t size) {
    noteFreed(block);
    return noted(__libc_realloc(block, size));
}

void free(void* block) {
    noteFreed(block);
    __libc_free(block);
}

void* memalign(std::size_t alignment, std::size_t size) { return noted(__libc_memalign(alignment, size)); }

void* aligned_alloc(std::size_t alignment, std::size_t size) {
    return noted(__libc_memalign(alignment, size));
}

int posix_memalign(void** result, std::size_t alignment, std::size_t size) {
    void* const block = __libc_memalign(alignment, size);
    if (!block) {
        return ENOMEM;
    }
    *result = noted(block);
    return 0;
}

void* valloc(std::size_t size) {
    return noted(__libc_memalign(static_cast<std::size_t>(sysconf(_SC_PAGESIZE)), size));
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
