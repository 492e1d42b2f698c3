#include "Player/Desktop/FilmLocation.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace Player {

bool isUrl(const std::string& location) {
    const std::size_t end = location.find("://");
    return end != std::string::npos && end > 0 && location.find('/') > end;
}

std::string nameOf(const std::string& location) {
    return isUrl(location) ? location : std::filesystem::path(location).filename().string();
}

std::optional<std::string> whyUnreadable(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return "no such file";
    }
    if (error) {
        return error.message();
    }
    if (std::filesystem::is_directory(status)) {
        return "it is a directory";
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return std::strerror(errno);
    }
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(path, error) == 0) {
        return "the file is empty";
    }
    return std::nullopt;
}

} // namespace Player
