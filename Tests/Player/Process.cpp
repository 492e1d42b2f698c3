#include "Tests/Player/Process.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <map>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

std::string contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> changedEnvironment(const Environment& changes) {
    std::map<std::string, std::string> variables;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        const std::size_t equals = text.find('=');
        variables[text.substr(0, equals)] = text.substr(std::min(equals + 1, text.size()));
    }
    for (const auto& [name, value] : changes) {
        if (value) {
            variables[name] = *value;
        } else {
            variables.erase(name);
        }
    }
    std::vector<std::string> result;
    for (const auto& [name, value] : variables) {
        result.push_back(name + "=" + value);
    }
    return result;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts) {
        result.push_back(text.data());
    }
    result.push_back(nullptr);
    return result;
}

/// How a child starts: with output into files, and with the signals as a shell would hand them over.
class SpawnSettings {
public:
    explicit SpawnSettings(const std::filesystem::path& folder) {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        open(STDOUT_FILENO, folder / "output");
        open(STDERR_FILENO, folder / "errors");
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigaddset(&signals, SIGINT);
        sigaddset(&signals, SIGTERM);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }

    const posix_spawn_file_actions_t* files() const { return &files_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    void open(int descriptor, const std::filesystem::path& path) {
        posix_spawn_file_actions_addopen(&files_, descriptor, path.c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                         0600);
    }

    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

} // namespace

TemporaryFolder::TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "kivplayer-test-XXXXXX").string();
    if (!mkdtemp(name.data())) {
        throw std::runtime_error("cannot make a folder for the test");
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

Process::Process(const std::vector<std::string>& command, const Environment& environment) {
    std::vector<std::string> arguments = command;
    std::vector<std::string> variables = changedEnvironment(environment);
    const SpawnSettings settings(folder_.path());
    if (posix_spawnp(&identifier_, command.front().c_str(), settings.files(), settings.attributes(),
                     pointers(arguments).data(), pointers(variables).data()) != 0) {
        throw std::runtime_error("cannot start " + command.front());
    }
}

Process::~Process() {
    if (isRunning()) {
        signal(SIGKILL);
        wait();
    }
}

bool Process::isRunning() { return !wait(std::chrono::milliseconds(0)); }

void Process::signal(int number) const { kill(identifier_, number); }

std::optional<int> Process::wait(std::chrono::milliseconds bound) {
    eventually(
        [this] {
            int status = 0;
            if (!exitCode_ && waitpid(identifier_, &status, WNOHANG) == identifier_) {
                exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            }
            return exitCode_.has_value();
        },
        bound);
    return exitCode_;
}

std::string Process::output() const { return contents(folder_.path() / "output"); }

std::string Process::errors() const { return contents(folder_.path() / "errors"); }

double Process::processorTime() const {
    // The program's name, the second field, may hold anything but ends at the last parenthesis.
    const std::string text = contents("/proc/" + std::to_string(identifier_) + "/stat");
    std::istringstream fields(text.substr(text.rfind(')') + 1));
    constexpr int fieldsBefore = 11;
    std::string skipped;
    for (int field = 0; field < fieldsBefore; ++field) {
        fields >> skipped;
    }
    double user = 0.0;
    double system = 0.0;
    fields >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

double Process::memory() const {
    constexpr double megabyte = 1024.0 * 1024.0;
    std::istringstream fields(contents("/proc/" + std::to_string(identifier_) + "/statm"));
    double size = 0.0;
    double resident = 0.0;
    fields >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE)) / megabyte;
}

void pauseBriefly() { std::this_thread::sleep_for(std::chrono::milliseconds(20)); }

} // namespace KivUICore::Player
