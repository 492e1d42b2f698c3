#pragma once

#include "Hosts/Desktop/FilmSource.h"

#include <functional>
#include <memory>
#include <mpv/render.h>

namespace Player {

class MpvClient;

/// The pictures of a film that libmpv plays.
class MpvPicture final : public Desktop::FilmSource {
public:
    /// `client` outlives it, and was told that something else than a window of its own shows its pictures
    /// (`vo=libmpv`).
    explicit MpvPicture(const MpvClient& client) : client_(client) {}

    /// True once any picture of a film was drawn.
    bool hasDrawn() const { return hasDrawn_; }

    /// The film that was drawn last is over: what libmpv has instead, which is black until there is another
    /// picture, counts as a new frame.
    void filmIsOver() { isOutOfDate_ = true; }

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
        void operator()(mpv_render_context* renderer) const { mpv_render_context_free(renderer); }
    };

    bool start(mpv_render_param* parameters);
    bool isFrameDue();
    void draw(mpv_render_param* parameters);
    void connectWakeUp();

    const MpvClient& client_;
    std::function<void()> wakeUp_ = [] {};
    std::unique_ptr<mpv_render_context, Release> renderer_;
    bool hasDrawn_ = false;
    bool isOutOfDate_ = false;
};

} // namespace Player
