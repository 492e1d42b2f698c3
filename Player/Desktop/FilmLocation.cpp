#include "Player/Desktop/FilmLocation.h"

#include "Hosts/Cairo/ScreenText.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <glib.h>
#include <memory>
#include <system_error>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

constexpr std::string_view schemeEnd = "://";
constexpr std::string_view digits = "0123456789";

bool isSchemeCharacter(char character) {
    return g_ascii_isalnum(character) || character == '+' || character == '-' || character == '.' ||
           character == '_';
}

// Where a password holds a slash, what looks like the port isn't one.
bool hasOddPort(std::string_view authority) {
    const std::string_view server = authority.substr(authority.rfind('@') + 1);
    const std::size_t afterAddress = server.starts_with('[') ? server.find(']') : 0;
    const std::size_t colon = server.find(':', std::min(afterAddress, server.size()));
    if (colon == std::string_view::npos) {
        return false;
    }
    const std::string_view port = server.substr(colon + 1);
    return port.empty() || port.find_first_not_of(digits) != std::string_view::npos;
}

// What stands behind `://`.
std::string shownRest(std::string_view rest) {
    const std::string_view authority = rest.substr(0, rest.find_first_of("/?#"));
    const std::size_t at = hasOddPort(authority) ? rest.rfind('@') : authority.rfind('@');
    if (at != std::string_view::npos) {
        rest.remove_prefix(at + 1);
    }
    const std::size_t query = rest.find_first_of("?#");
    return query == std::string_view::npos ? std::string(rest) : std::string(rest.substr(0, query + 1)) + "…";
}

std::string shownUrl(std::string_view scheme, std::string_view rest) {
    const bool isFile = scheme == "file";
    return std::string(scheme) + std::string(schemeEnd) + (isFile ? std::string(rest) : shownRest(rest));
}

// Names keep their bytes where they are no text.
std::string unescaped(const std::string& name) {
    const std::unique_ptr<char, decltype(&g_free)> result(g_uri_unescape_string(name.c_str(), nullptr),
                                                          g_free);
    return result ? result.get() : name;
}

// Files that the system makes up have any size.
std::optional<std::string> whyNoFirstByte(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return std::strerror(errno);
    }
    char first = 0;
    const ssize_t count = ::read(descriptor, &first, sizeof first);
    const int error = errno;
    ::close(descriptor);
    if (count < 0) {
        return std::string("it cannot be read: ") + std::strerror(error);
    }
    return count == 0 ? std::optional<std::string>("the file is empty") : std::nullopt;
}

} // namespace

bool isUrl(const std::string& location) {
    const std::size_t end = location.find("://");
    return end != std::string::npos && end > 0 && location.find('/') > end;
}

std::optional<std::string> localPath(const std::string& location) {
    constexpr std::string_view fileScheme = "file://";
    if (location.starts_with(fileScheme)) {
        return unescaped(location.substr(fileScheme.size()));
    }
    return isUrl(location) ? std::nullopt : std::optional(location);
}

std::string shownLocation(const std::string& location) {
    if (!isUrl(location)) {
        return location;
    }
    const std::string_view url = location;
    const std::size_t end = url.find(schemeEnd);
    return shownUrl(url.substr(0, end), url.substr(end + schemeEnd.size()));
}

std::string withoutSecrets(std::string_view text) {
    std::string result;
    for (std::size_t end = text.find(schemeEnd); end != std::string_view::npos; end = text.find(schemeEnd)) {
        std::size_t begin = end;
        while (begin > 0 && isSchemeCharacter(text[begin - 1])) {
            --begin;
        }
        const std::string_view rest = text.substr(end + schemeEnd.size());
        const std::string_view ownRest = rest.substr(0, rest.find_first_of(" \t\r\n'\"<>"));
        result += text.substr(0, begin);
        result += shownUrl(text.substr(begin, end - begin), ownRest);
        text = rest.substr(ownRest.size());
    }
    return result + std::string(text);
}

std::string nameOf(const std::string& location) {
    if (location == standardInput) {
        return "Standard input";
    }
    if (!isUrl(location)) {
        return Cairo::oneLine(std::filesystem::path(location).filename().string());
    }
    const std::string shown = shownLocation(location);
    std::string_view name = shown;
    if (!location.starts_with("file:")) {
        name = name.substr(0, name.find_first_of("?#"));
    }
    name = name.substr(0, name.find_last_not_of('/') + 1);
    return Cairo::oneLine(unescaped(std::string(name.substr(name.rfind('/') + 1))));
}

std::optional<std::string> whyUnreadable(const std::string& path) {
    if (path == standardInput) {
        return ::isatty(STDIN_FILENO) == 1 ? std::optional<std::string>("the standard input is a terminal")
                                           : std::nullopt;
    }
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
    return std::filesystem::is_regular_file(status) ? whyNoFirstByte(path) : std::nullopt;
}

} // namespace KivUICore::Player
