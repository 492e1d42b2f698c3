#include "Player/Desktop/OpeningLog.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace KivUICore::Player {

namespace {

constexpr int firstRedirection = 300;
constexpr int firstError = 400;

// The library's own words on the left are no help to a person who plays a film.
constexpr std::array<std::pair<std::string_view, const char*>, 9> sentences{{
    {"Port missing in uri", "the address has no valid port; ports go from 1 to 65535"},
    {"Name or service not known", "there is no server of that name"},
    {"No address associated with hostname", "there is no server of that name"},
    {"Temporary failure in name resolution",
     "the server's name cannot be looked up; is this machine connected to a network?"},
    {"Stream ends prematurely", "the connection was lost"},
    {"Protocol not found", "this player does not know that kind of address"},
    {"HTTP error 401", "HTTP error 401 Unauthorized; the server wants a name and a password"},
    {"HTTP error 503", "HTTP error 503 Service Unavailable; it may help to try again later"},
    {"HTTP error 429", "HTTP error 429 Too Many Requests; it may help to try again later"},
}};

std::string sentenceFor(const std::string& problem) {
    const auto* const found = std::find_if(sentences.begin(), sentences.end(), [&](const auto& sentence) {
        return problem.starts_with(sentence.first);
    });
    return found == sentences.end() ? problem : found->second;
}

// "tcp: Connection to tcp://127.0.0.1:1 failed: Connection refused" ends with what a person wants to know.
std::string_view lastPart(std::string_view text) {
    const std::size_t colon = text.rfind(": ");
    return colon == std::string_view::npos ? text : text.substr(colon + 2);
}

std::string_view withoutEnd(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('.')) {
        text.remove_suffix(1);
    }
    return text;
}

bool eat(std::string_view& text, std::string_view beginning) {
    const bool isThere = text.starts_with(beginning);
    text.remove_prefix(isThere ? beginning.size() : 0);
    return isThere;
}

} // namespace

bool isEndOfUnknownLength(std::string_view text) {
    return text.find("Stream ends prematurely") != std::string_view::npos &&
           text.find("should be 18446744073709551615") != std::string_view::npos;
}

void OpeningLog::note(const mpv_event_log_message& message) {
    const std::string_view prefix = message.prefix;
    const std::string_view text = withoutEnd(message.text);
    if (prefix == "ffmpeg" || prefix == "file") {
        noteTalk(text);
        // What a server answers is only a warning to the library, which may come round it.
        if (message.log_level <= MPV_LOG_LEVEL_ERROR || lastPart(text).starts_with("HTTP error")) {
            noteProblem(text);
        }
    }
    lacksIndex_ = lacksIndex_ || text.find("moov atom not found") != std::string_view::npos;
    lacksDecoder_ = lacksDecoder_ || text.starts_with("Failed to initialize a decoder") ||
                    text.starts_with("Unknown/unsupported");
}

// The layers above the network only say that they failed, too. That a damaged file leads beyond its own end
// tells a person nothing.
void OpeningLog::noteProblem(std::string_view text) {
    if (isEndOfUnknownLength(text) || text.starts_with("Seek failed")) {
        return;
    }
    const bool isSecurity = text.starts_with("tls: ");
    const bool isNetwork = isSecurity || text.starts_with("tcp: ");
    if (isProblemOfNetwork_ && !isNetwork) {
        return;
    }
    isProblemOfNetwork_ = isNetwork;
    problem_ = isSecurity ? "no secure connection can be made; does the server speak https?" : lastPart(text);
}

void OpeningLog::noteTalk(std::string_view text) {
    if (!eat(text, "http: ")) {
        return;
    }
    if (text.starts_with("request: ")) {
        hasAsked_ = true;
        isAnswered_ = false;
        status_ = 0;
    } else if (eat(text, "http_code=")) {
        std::from_chars(text.data(), text.data() + text.size(), status_);
        redirections_ += status_ >= firstRedirection && status_ < firstError ? 1 : 0;
    } else if (eat(text, "header='")) {
        noteHeader(text);
    }
}

void OpeningLog::noteHeader(std::string_view header) {
    isAnswered_ = true;
    isEmpty_ = isEmpty_ || header == "Content-Length: 0'";
    isWebPage_ = isWebPage_ || header.starts_with("Content-Type: text/html");
}

std::optional<std::string> OpeningLog::describeAnswer() const {
    if (!hasAsked_) {
        return std::nullopt;
    }
    if (!isAnswered_) {
        return "the server hung up without an answer";
    }
    if (status_ >= firstError) {
        return sentenceFor("HTTP error " + std::to_string(status_));
    }
    if (status_ >= firstRedirection) {
        return redirections_ > 1 ? "the server leads from one address to the next and to no film"
                                 : "the server leads to an address that cannot be opened";
    }
    return status_ == 0 ? std::optional("the answer is not that of a web server") : std::nullopt;
}

std::optional<std::string> OpeningLog::problem() const {
    return problem_.empty() ? std::nullopt : std::optional(sentenceFor(problem_));
}

std::optional<std::string> OpeningLog::whyNotOpened() const {
    const std::optional<std::string> told = problem();
    return told ? told : describeAnswer();
}

std::optional<std::string> OpeningLog::whyNotRecognised() const {
    if (lacksIndex_) {
        return "it is incomplete: its index is missing; was it copied or recorded to its end?";
    }
    if (isEmpty_) {
        return "the file is empty";
    }
    return isWebPage_ ? std::optional("it is a web page") : whyNotOpened();
}

} // namespace KivUICore::Player
