#include "Player/Desktop/PictureFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

cairo_status_t append(void* bytes, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return ::fsync(descriptor) == 0;
}

} // namespace

PictureFile::~PictureFile() {
    if (!beside_.empty()) {
        ::unlink(beside_.c_str());
    }
}

// Encoded first: the file beside is there for as short a time as can be.
std::optional<std::string> PictureFile::write(cairo_surface_t* surface) {
    std::string bytes;
    const cairo_status_t status = cairo_surface_write_to_png_stream(surface, append, &bytes);
    if (status != CAIRO_STATUS_SUCCESS) {
        return problem(cairo_status_to_string(status));
    }
    const int descriptor = createBeside();
    if (descriptor < 0) {
        return problem(std::strerror(errno));
    }
    const int error = writeAll(descriptor, bytes) ? 0 : errno;
    const bool isClosed = ::close(descriptor) == 0;
    if (error != 0 || !isClosed) {
        return problem(std::strerror(error != 0 ? error : errno));
    }
    return std::nullopt;
}

std::optional<std::string> PictureFile::putInPlace() {
    if (::rename(beside_.c_str(), path_.c_str()) != 0) {
        return problem(std::strerror(errno));
    }
    beside_.clear();
    return std::nullopt;
}

// What is there already belongs to somebody else, also if it is a link.
int PictureFile::createBeside() {
    constexpr mode_t everybodyAsFarAsTheUserLets = 0666;
    constexpr int mostAttempts = 100;
    const std::string start = path_ + "." + std::to_string(::getpid()) + "-";
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        const std::string name = start + std::to_string(attempt);
        const int descriptor =
            ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, everybodyAsFarAsTheUserLets);
        if (descriptor >= 0) {
            beside_ = name;
        }
        if (descriptor >= 0 || errno != EEXIST) {
            return descriptor;
        }
    }
    return -1;
}

std::string PictureFile::problem(const char* reason) const {
    return "cannot write '" + path_ + "': " + reason;
}

} // namespace KivUICore::Player
