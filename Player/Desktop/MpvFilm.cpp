#include "Player/Desktop/MpvFilm.h"

#include "Player/Desktop/FilmLocation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <mpv/render_gl.h>
#include <string_view>
#include <utility>

namespace Player {

namespace {

using Desktop::PixelBuffer;
using Desktop::PixelSize;

constexpr std::array<std::pair<const char*, const char*>, 15> options{{
    {"config", "no"},
    {"terminal", "no"},
    {"vo", "libmpv"},
    {"osc", "no"},
    {"load-scripts", "no"},
    {"ytdl", "no"},
    {"input-default-bindings", "no"},
    {"osd-level", "0"},
    {"keep-open", "yes"},
    {"hr-seek", "yes"},
    {"audio-fallback-to-null", "yes"},
    {"network-timeout", "10"},
    {"gpu-hwdec-interop", "no"},
    // The host draws a frame when it is told to: drawing must not wait for the frame's time.
    {"video-timing-offset", "0"},
    {"audio-client-name", "kivplayer"},
}};

void* functionByName(void* functionAddress, const char* name) {
    return reinterpret_cast<void* (*)(const char*)>(functionAddress)(name);
}

// "tcp: Connection to tcp://127.0.0.1:1 failed: Connection refused" ends with what a person wants to know.
std::string lastPart(std::string_view text) {
    while (text.ends_with('\n') || text.ends_with('.')) {
        text.remove_suffix(1);
    }
    const std::size_t colon = text.rfind(": ");
    return std::string(colon == std::string_view::npos ? text : text.substr(colon + 2));
}

std::string describe(int error, const std::string& cause) {
    switch (error) {
    case MPV_ERROR_UNKNOWN_FORMAT:
        return "it is no film or sound that can be recognised";
    case MPV_ERROR_NOTHING_TO_PLAY:
        return "there is neither picture nor sound in it";
    case MPV_ERROR_LOADING_FAILED:
        return cause.empty() ? "it cannot be opened" : cause;
    default:
        return mpv_error_string(error);
    }
}

} // namespace

MpvFilm::MpvFilm(Playback playback, Sound sound) : handle_(mpv_create()) {
    if (!handle_) {
        failure_ = "cannot start libmpv";
        return;
    }
    for (const auto& [name, value] : options) {
        mpv_set_option_string(handle_.get(), name, value);
    }
    mpv_set_option_string(handle_.get(), "pause", playback == Playback::Paused ? "yes" : "no");
    if (sound == Sound::Silent) {
        mpv_set_option_string(handle_.get(), "ao", "null");
    }
    if (const int error = mpv_initialize(handle_.get()); error < 0) {
        failure_ = std::string("cannot start libmpv: ") + mpv_error_string(error);
        return;
    }
    mpv_request_log_messages(handle_.get(), "error");
    mpv_observe_property(handle_.get(), 0, "eof-reached", MPV_FORMAT_FLAG);
}

void MpvFilm::open(const std::string& location, double start) {
    location_ = location;
    if (failure_) {
        return;
    }
    if (!isUrl(location)) {
        if (const std::optional<std::string> reason = whyUnreadable(location)) {
            fail(*reason);
            return;
        }
    }
    mpv_set_option_string(handle_.get(), "start", std::to_string(start).c_str());
    std::array<const char*, 3> command{"loadfile", location.c_str(), nullptr};
    if (const int error = mpv_command(handle_.get(), command.data()); error < 0) {
        fail(mpv_error_string(error));
    }
}

void MpvFilm::update() {
    if (!handle_) {
        return;
    }
    for (const mpv_event* event = mpv_wait_event(handle_.get(), 0.0); event->event_id != MPV_EVENT_NONE;
         event = mpv_wait_event(handle_.get(), 0.0)) {
        handle(*event);
    }
    if (endError_) {
        fail(describe(*endError_, cause_));
    } else if (hasEnded_ && !hasDecodedAnything()) {
        fail("nothing in it can be decoded");
    }
}

void MpvFilm::handle(const mpv_event& event) {
    switch (event.event_id) {
    case MPV_EVENT_LOG_MESSAGE:
        noteLog(*static_cast<const mpv_event_log_message*>(event.data));
        break;
    case MPV_EVENT_END_FILE:
        noteEnd(*static_cast<const mpv_event_end_file*>(event.data));
        break;
    case MPV_EVENT_PLAYBACK_RESTART:
        isAtStart_ = true;
        break;
    case MPV_EVENT_PROPERTY_CHANGE: {
        const auto& property = *static_cast<const mpv_event_property*>(event.data);
        hasEnded_ = property.format == MPV_FORMAT_FLAG && *static_cast<const int*>(property.data) != 0;
        break;
    }
    default:
        break;
    }
}

void MpvFilm::noteLog(const mpv_event_log_message& message) {
    if (std::strcmp(message.prefix, "ffmpeg") == 0 || std::strcmp(message.prefix, "file") == 0) {
        cause_ = lastPart(message.text);
    }
}

void MpvFilm::noteEnd(const mpv_event_end_file& end) {
    if (end.reason == MPV_END_FILE_REASON_ERROR) {
        endError_ = end.error;
    } else if (end.reason == MPV_END_FILE_REASON_EOF) {
        hasEnded_ = true;
    }
}

void MpvFilm::fail(const std::string& reason) {
    if (!failure_) {
        failure_ = "cannot play '" + location_ + "': " + reason;
    }
}

bool MpvFilm::hasPicture() const {
    std::int64_t track = 0;
    return mpv_get_property(handle_.get(), "vid", MPV_FORMAT_INT64, &track) >= 0;
}

bool MpvFilm::hasDecodedAnything() const {
    std::int64_t value = 0;
    return mpv_get_property(handle_.get(), "video-out-params/w", MPV_FORMAT_INT64, &value) >= 0 ||
           mpv_get_property(handle_.get(), "audio-params/samplerate", MPV_FORMAT_INT64, &value) >= 0;
}

void MpvFilm::togglePause() {
    std::array<const char*, 3> command{"cycle", "pause", nullptr};
    if (!failure_) {
        mpv_command_async(handle_.get(), 0, command.data());
    }
}

void MpvFilm::setBottomInset(double fraction) {
    // Margins are counted in a picture of 720 lines.
    constexpr double lines = 720.0;
    constexpr double usualMargin = 22.0;
    constexpr double largestMargin = 300.0;
    auto margin = static_cast<std::int64_t>(std::clamp(usualMargin + fraction * lines, 0.0, largestMargin));
    if (handle_) {
        mpv_set_property_async(handle_.get(), 0, "sub-margin-y", MPV_FORMAT_INT64, &margin);
    }
}

// The library's own locks keep its threads out of the function while it is exchanged.
void MpvFilm::setWakeUp(std::function<void()> wakeUp) {
    connectWakeUp(nullptr);
    wakeUp_ = std::move(wakeUp);
    connectWakeUp([](void* film) { static_cast<MpvFilm*>(film)->wakeUp_(); });
}

void MpvFilm::connectWakeUp(void (*callback)(void*)) {
    if (handle_) {
        mpv_set_wakeup_callback(handle_.get(), callback, this);
    }
    if (renderer_) {
        mpv_render_context_set_update_callback(renderer_.get(), callback, this);
    }
}

bool MpvFilm::startOpenGL(void* (*functionAddress)(const char* name)) {
    mpv_opengl_init_params opengl{functionByName, reinterpret_cast<void*>(functionAddress)};
    std::array<mpv_render_param, 3> parameters{{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &opengl},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    return start(parameters.data());
}

bool MpvFilm::startMemory() {
    std::array<mpv_render_param, 2> parameters{{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    return start(parameters.data());
}

bool MpvFilm::start(mpv_render_param* parameters) {
    mpv_render_context* renderer = nullptr;
    if (!handle_ || mpv_render_context_create(&renderer, handle_.get(), parameters) < 0) {
        return false;
    }
    renderer_.reset(renderer);
    mpv_render_context_set_update_callback(
        renderer, [](void* film) { static_cast<MpvFilm*>(film)->wakeUp_(); }, this);
    return true;
}

void MpvFilm::stopDrawing() { renderer_.reset(); }

bool MpvFilm::hasNewFrame() {
    return renderer_ && (mpv_render_context_update(renderer_.get()) & MPV_RENDER_UPDATE_FRAME) != 0;
}

void MpvFilm::drawIntoFramebuffer(unsigned framebuffer, const PixelSize& size) {
    mpv_opengl_fbo target{static_cast<int>(framebuffer), size.width, size.height, 0};
    std::array<mpv_render_param, 2> parameters{{
        {MPV_RENDER_PARAM_OPENGL_FBO, &target},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    draw(parameters.data());
}

void MpvFilm::drawIntoMemory(const PixelBuffer& buffer) {
    std::array<int, 2> size{buffer.size.width, buffer.size.height};
    std::size_t stride = buffer.stride;
    std::array<mpv_render_param, 5> parameters{{
        {MPV_RENDER_PARAM_SW_SIZE, size.data()},
        {MPV_RENDER_PARAM_SW_FORMAT, const_cast<char*>("bgr0")},
        {MPV_RENDER_PARAM_SW_STRIDE, &stride},
        {MPV_RENDER_PARAM_SW_POINTER, buffer.pixels},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    draw(parameters.data());
}

void MpvFilm::draw(mpv_render_param* parameters) {
    if (!renderer_) {
        return;
    }
    const bool isNew = hasNewFrame();
    const bool isDrawn = mpv_render_context_render(renderer_.get(), parameters) >= 0;
    hasDrawn_ = hasDrawn_ || (isNew && isDrawn);
}

void MpvFilm::frameWasShown() {
    if (renderer_) {
        mpv_render_context_report_swap(renderer_.get());
    }
}

} // namespace Player
