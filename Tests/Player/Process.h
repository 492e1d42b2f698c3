#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/types.h>
#include <utility>
#include <vector>

namespace KivUICore::Player {

/// A folder of the test's own, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// What to change in the environment that a program starts with: a value, or nothing to take a variable out.
using Environment = std::vector<std::pair<std::string, std::optional<std::string>>>;

/// A program that runs beside the test, its output kept. Killed if it still runs when the test is over.
class Process {
public:
    static constexpr std::chrono::seconds patience{50};

    explicit Process(const std::vector<std::string>& command, const Environment& environment = {});
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;
    ~Process();

    bool isRunning();
    void signal(int number) const;

    /// Its exit code once it has ended: 128 and the number of the signal that killed it; nothing if it runs
    /// longer.
    std::optional<int> wait(std::chrono::milliseconds bound = patience);

    std::string output() const;
    std::string errors() const;

    /// Processor time that it has used, in seconds.
    double processorTime() const;

    /// Memory that it occupies, in megabytes; none once it has ended.
    double memory() const;

private:
    TemporaryFolder folder_;
    pid_t identifier_ = -1;
    std::optional<int> exitCode_;
};

/// Asks `condition` again and again until it holds. False if it doesn't for longer than `bound`.
template <class Condition>
bool eventually(Condition condition, std::chrono::milliseconds bound = Process::patience);

void pauseBriefly();

template <class Condition>
bool eventually(Condition condition, std::chrono::milliseconds bound) {
    const auto end = std::chrono::steady_clock::now() + bound;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        pauseBriefly();
    }
    return true;
}

} // namespace KivUICore::Player
