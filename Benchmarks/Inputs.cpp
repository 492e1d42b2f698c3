#include "Benchmarks/Inputs.h"

#include <cstddef>
#include <random>

namespace Benchmarks {

std::vector<std::uint64_t> delays(std::int64_t count) {
    std::mt19937 generator(1);
    std::uniform_int_distribution<std::uint64_t> distribution(1, longestDelay);
    std::vector<std::uint64_t> result(static_cast<std::size_t>(count));
    for (std::uint64_t& each : result) {
        each = distribution(generator);
    }
    return result;
}

float nextTime(float time) { return time < 7200.0F ? time + 1.0F : 0.0F; }

} // namespace Benchmarks
