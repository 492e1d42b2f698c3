#include "Player/Overlay/Film/PlaybackError.h"

#include <cstddef>

namespace KivUICore::Overlay {

namespace {

bool isContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// Lengths are in bytes, rounded up to whole characters.
std::string shortened(std::string name) {
    constexpr std::size_t longest = 36;
    constexpr std::size_t end = 16;
    if (name.size() <= longest) {
        return name;
    }
    std::size_t from = longest - end;
    std::size_t to = name.size() - end;
    while (from < to && isContinuation(name[from])) {
        ++from;
    }
    while (from < to && isContinuation(name[to])) {
        --to;
    }
    return from < to ? name.replace(from, to - from, "…") : name;
}

const char* whatFailed(PlaybackError::Kind kind) {
    switch (kind) {
    case PlaybackError::Kind::Unplayable:
        return "cannot play";
    case PlaybackError::Kind::Interrupted:
        return "cannot go on with";
    case PlaybackError::Kind::NoSubtitles:
        return "cannot show the subtitles";
    case PlaybackError::Kind::NoPlayer:
        return "cannot start libmpv";
    case PlaybackError::Kind::Unreachable:
        return "cannot be reached by other programs";
    }
    return "";
}

std::string line(const PlaybackError& error, const std::string& subject) {
    const std::string name = subject.empty() ? "" : " '" + subject + "'";
    const std::string reason = error.reason.empty() ? "" : ": " + error.reason;
    return whatFailed(error.kind) + name + reason;
}

std::string sentence(std::string text) {
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') {
        text.front() = static_cast<char>(text.front() - 'a' + 'A');
    }
    return text + ".";
}

} // namespace

std::string lineOf(const PlaybackError& error) { return line(error, error.subject); }

std::string sentenceOf(const PlaybackError& error) { return sentence(line(error, shortened(error.subject))); }

std::string reasonSentenceOf(const PlaybackError& error) {
    return error.reason.empty() ? sentenceOf(error) : sentence(error.reason);
}

} // namespace KivUICore::Overlay
