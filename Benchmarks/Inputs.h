#pragma once

#include <array>
#include <cstdint>
#include <vector>

// What this project and its peers are given alike.
namespace Benchmarks {

inline constexpr double screenWidth = 1280.0;
inline constexpr double screenHeight = 720.0;

/// The handles of sliders stand in the middle, and each move takes them to the other of these.
inline constexpr std::array handlePositions{700.0, 800.0};

/// Delays in milliseconds, libuv's unit. A timer that is re-armed goes to the middle of them.
inline constexpr std::uint64_t longestDelay = 20000;
inline constexpr std::uint64_t middleDelay = longestDelay / 2;

/// As many delays, spread by chance and the same each time.
std::vector<std::uint64_t> delays(std::int64_t count);

/// Another second each time, with hours every other.
float nextTime(float time);

/// True every other time.
class Alternation {
public:
    bool next() { return isSecond_ = !isSecond_; }

private:
    bool isSecond_ = false;
};

} // namespace Benchmarks
