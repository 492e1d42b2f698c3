#pragma once

#include "Hosts/Desktop/FilmSource.h"

#include <functional>
#include <memory>
#include <mpv/client.h>
#include <mpv/render.h>
#include <optional>
#include <string>

namespace Player {

/// A film played by libmpv, with its sound. It comes to rest at its end, on the last picture.
class MpvFilm final : public Desktop::FilmSource {
public:
    enum class Playback { Running, Paused };
    enum class Sound { Audible, Silent };

    MpvFilm(Playback playback, Sound sound);

    /// Begins to open a file or URL, to be played from `start` in seconds; one beyond the end is the end.
    /// Once only.
    void open(const std::string& location, double start);

    /// Takes in what has happened since the last call. Call it after each wake-up.
    void update();

    /// What went wrong, as one sentence without its end ("cannot play 'a.mkv': no such file"); nothing while
    /// all is well. Nothing more is played then.
    const std::optional<std::string>& failure() const { return failure_; }

    /// True once the place asked for is reached and its picture, if there is any, was drawn.
    bool isReady() const { return isAtStart_ && (hasPicture() ? hasDrawn_ : hasDecodedAnything()); }

    void togglePause();

    /// Keeps subtitles clear of the lower part of the picture: `fraction` of its height.
    void setBottomInset(double fraction);

    void setWakeUp(std::function<void()> wakeUp) override;
    bool startOpenGL(void* (*functionAddress)(const char* name)) override;
    bool startMemory() override;
    void stopDrawing() override;
    bool hasNewFrame() override;
    void drawIntoFramebuffer(unsigned framebuffer, const Desktop::PixelSize& size) override;
    void drawIntoMemory(const Desktop::PixelBuffer& buffer) override;
    void frameWasShown() override;

private:
    struct Release {
        void operator()(mpv_handle* handle) const { mpv_terminate_destroy(handle); }
        void operator()(mpv_render_context* renderer) const { mpv_render_context_free(renderer); }
    };

    void connectWakeUp(void (*callback)(void*));
    bool start(mpv_render_param* parameters);
    void draw(mpv_render_param* parameters);
    void handle(const mpv_event& event);
    void noteLog(const mpv_event_log_message& message);
    void noteEnd(const mpv_event_end_file& end);
    void fail(const std::string& reason);
    bool hasPicture() const;
    bool hasDecodedAnything() const;

    std::function<void()> wakeUp_ = [] {};
    std::unique_ptr<mpv_handle, Release> handle_;
    std::unique_ptr<mpv_render_context, Release> renderer_;
    std::string location_;
    std::optional<std::string> failure_;

    // What the library said last about a connection or file that it could not open.
    std::string cause_;
    std::optional<int> endError_;
    bool isAtStart_ = false;
    bool hasEnded_ = false;
    bool hasDrawn_ = false;
};

} // namespace Player
