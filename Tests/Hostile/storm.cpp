// A storm of events over the player in a window:
//
//     build/dev/Tests/Hostile/storm                25,000 events
//     build/dev/Tests/Hostile/storm 1500 7         fewer, of the seed 7
//
// Ends with 1 and tells the seed when the player crashed, complained, hung or grew.

#include "Tests/Hostile/Storm.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace {

/// A number from 1; 0 for what is none.
int argument(int count, char** arguments, int index, int otherwise) {
    return count > index ? std::max(0, std::atoi(arguments[index])) : otherwise;
}

} // namespace

int main(int count, char** arguments) {
    constexpr int allEvents = 25000;
    constexpr int reports = 10;
    // In megabytes; films differ by half of that in what they take to be decoded.
    constexpr double mostGrowth = 150.0;
    const int events = argument(count, arguments, 1, allEvents);
    const int seed = argument(count, arguments, 2, 1);
    if (events == 0 || seed == 0) {
        std::cerr << "usage: storm [EVENTS [SEED]], numbers from 1\n";
        return 2;
    }
    try {
        KivUICore::Player::Storm storm(static_cast<unsigned>(seed));
        double first = 0.0;
        for (int report = 1; report <= reports; ++report) {
            while (storm.events() < events * report / reports) {
                storm.rage();
            }
            const double memory = storm.memory();
            first = report == 1 ? memory : first;
            std::cout << storm.events() << " events, " << storm.drops() << " drops, " << storm.starts()
                      << " starts, " << memory << " MB" << std::endl;
            if (memory > first + mostGrowth) {
                throw std::runtime_error("it grew");
            }
        }
        storm.calmDown();
    } catch (const std::runtime_error& error) {
        std::cout << "seed " << seed << ": " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
