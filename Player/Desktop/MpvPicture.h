#pragma once

#include "Hosts/SDL/FilmSource.h"

#include <functional>
#include <memory>
#include <mpv/render.h>

namespace KivUICore::Player {

class MpvPlayback;

/// The pictures of a film that libmpv plays.
class MpvPicture final : public SDL::FilmSource {
public:
    /// `playback` outlives it.
    explicit MpvPicture(const MpvPlayback& playback) : playback_(playback) {}

    /// True once any picture of a film was drawn.
    bool hasDrawn() const { return hasDrawn_; }

    void setWakeUp(std::function<void()> wakeUp) override;
    bool startOpenGL(void* (*functionAddress)(const char* name)) override;
    bool startMemory() override;
    void stopDrawing() override;
    bool hasNewFrame() override;
    void drawIntoFramebuffer(unsigned framebuffer, const Cairo::PixelSize& size) override;
    void drawIntoMemory(const Cairo::PixelBuffer& buffer) override;
    void frameWasShown() override;

private:
    struct Release {
        void operator()(mpv_render_context* renderer) const { mpv_render_context_free(renderer); }
    };

    bool start(mpv_render_param* parameters);
    bool isFrameDue();
    void draw(mpv_render_param* parameters);
    void connectWakeUp();

    const MpvPlayback& playback_;
    std::function<void()> wakeUp_ = [] {};
    std::unique_ptr<mpv_render_context, Release> renderer_;
    bool hasDrawn_ = false;

    // The playback's, when a picture was drawn last.
    int scene_ = 0;
};

} // namespace KivUICore::Player
