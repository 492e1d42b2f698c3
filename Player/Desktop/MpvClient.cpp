#include "Player/Desktop/MpvClient.h"

#include "Player/Desktop/Endings.h"
#include "Player/Desktop/SourceRules.h"

#include <array>
#include <chrono>

namespace KivUICore::Player {

namespace {

// Never destroyed: what takes long may still be about to end when the program does.
Endings& endings() {
    static auto* const all = new Endings;
    return *all;
}

constexpr std::array<std::pair<const char*, const char*>, 19> usualSettings{{
    {"config", "no"},
    {"terminal", "no"},
    {"osc", "no"},
    {"load-scripts", "no"},
    {"load-stats-overlay", "no"},
    {"load-osd-console", "no"},
    {"load-auto-profiles", "no"},
    {"ytdl", "no"},
    {"input-default-bindings", "no"},
    {"osd-level", "0"},
    {"keep-open", "yes"},
    // A film that came to its end was not paused by anybody.
    {"keep-open-pause", "no"},
    {"hr-seek", "yes"},
    {"audio-fallback-to-null", "yes"},
    // Subtitles of every kind are placed in the window and sized by the film, also where it has black edges.
    {"sub-ass-force-margins", "yes"},
    {"sub-scale-with-window", "no"},
    {"network-timeout", "10"},
    {"gpu-hwdec-interop", "no"},
    {"audio-client-name", "kivplayer"},
}};

constexpr const char* problemsAlone = "all=warn";
constexpr const char* problemsAndNetwork =
    "all=warn,ffmpeg=trace,ffmpeg/video=warn,ffmpeg/audio=warn,ffmpeg/demuxer=warn";

} // namespace

MpvClient::MpvClient(const std::vector<Setting>& settings) : handle_(mpv_create()) {
    if (handle_) {
        start(settings);
    } else {
        fail({});
    }
}

MpvClient::~MpvClient() {
    constexpr auto longestWait = std::chrono::seconds(1);
    abandon();
    endings().waitForAll(longestWait);
}

bool MpvClient::isAnyEnding() { return endings().isAny(); }

void MpvClient::abandon() {
    setWakeUp([] {});
    handle_.reset();
}

void MpvClient::Release::operator()(mpv_handle* handle) const {
    endings().begin([handle] { mpv_terminate_destroy(handle); });
}

void MpvClient::start(const std::vector<Setting>& settings) {
    for (const auto& [name, value] : usualSettings) {
        mpv_set_option_string(handle_.get(), name, value);
    }
    for (const auto& [name, value] : SourceRules::settings()) {
        mpv_set_option_string(handle_.get(), name.c_str(), value.c_str());
    }
    for (const auto& [name, value] : settings) {
        mpv_set_option_string(handle_.get(), name.c_str(), value.c_str());
    }
    mpv_set_option_string(handle_.get(), "msg-level", problemsAlone);
    // The level of the terminal that there isn't: the only one that can be another for each part of the
    // library.
    mpv_request_log_messages(handle_.get(), "terminal-default");
    if (const int error = mpv_initialize(handle_.get()); error < 0) {
        fail(mpv_error_string(error));
        return;
    }
    SourceRules::askFor(handle_.get());
}

void MpvClient::fail(const std::string& reason) {
    failure_ = {Overlay::PlaybackError::Kind::NoPlayer, {}, reason};
    handle_.reset();
}

// The library's own lock keeps its threads out of the function while it is exchanged.
void MpvClient::setWakeUp(std::function<void()> wakeUp) {
    if (!handle_) {
        return;
    }
    mpv_set_wakeup_callback(handle_.get(), nullptr, nullptr);
    wakeUp_ = std::move(wakeUp);
    mpv_set_wakeup_callback(
        handle_.get(), [](void* client) { static_cast<MpvClient*>(client)->wakeUp_(); }, this);
}

const mpv_event* MpvClient::nextEvent() {
    if (!handle_) {
        return nullptr;
    }
    const mpv_event* event = mpv_wait_event(handle_.get(), 0.0);
    return event->event_id == MPV_EVENT_NONE ? nullptr : event;
}

void MpvClient::takeEvents(const std::function<void(const mpv_event&)>& handle) {
    constexpr double longestTurn = 0.02;
    const double end = time() + longestTurn;
    while (const mpv_event* event = nextEvent()) {
        handle(*event);
        if (time() >= end) {
            wakeUp_();
            break;
        }
    }
}

void MpvClient::command(std::initializer_list<const char*> words, std::uint64_t identifier) {
    if (handle_) {
        std::vector<const char*> arguments(words);
        arguments.push_back(nullptr);
        mpv_command_async(handle_.get(), identifier, arguments.data());
    }
}

void MpvClient::setFlag(const char* name, bool value, std::uint64_t identifier) {
    if (handle_) {
        int number = value ? 1 : 0;
        mpv_set_property_async(handle_.get(), identifier, name, MPV_FORMAT_FLAG, &number);
    }
}

void MpvClient::setNumber(const char* name, double value) {
    if (handle_) {
        mpv_set_property_async(handle_.get(), 0, name, MPV_FORMAT_DOUBLE, &value);
    }
}

void MpvClient::setText(const char* name, const std::string& value) {
    if (handle_) {
        const char* text = value.c_str();
        mpv_set_property_async(handle_.get(), 0, name, MPV_FORMAT_STRING, &text);
    }
}

void MpvClient::setLogDetail(LogDetail detail) {
    setText("msg-level", detail == LogDetail::Network ? problemsAndNetwork : problemsAlone);
}

double MpvClient::time() const {
    constexpr double microseconds = 1e6;
    return handle_ ? static_cast<double>(mpv_get_time_us(handle_.get())) / microseconds : 0.0;
}

std::optional<bool> MpvClient::flag(const char* name) const {
    int value = 0;
    if (!handle_ || mpv_get_property(handle_.get(), name, MPV_FORMAT_FLAG, &value) < 0) {
        return std::nullopt;
    }
    return value != 0;
}

std::optional<std::int64_t> MpvClient::number(const char* name) const {
    std::int64_t value = 0;
    if (!handle_ || mpv_get_property(handle_.get(), name, MPV_FORMAT_INT64, &value) < 0) {
        return std::nullopt;
    }
    return value;
}

std::optional<std::string> MpvClient::text(const char* name) const {
    char* value = handle_ ? mpv_get_property_string(handle_.get(), name) : nullptr;
    if (!value) {
        return std::nullopt;
    }
    std::string result = value;
    mpv_free(value);
    return result;
}

} // namespace KivUICore::Player
