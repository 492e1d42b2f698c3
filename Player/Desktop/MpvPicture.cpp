#include "Player/Desktop/MpvPicture.h"

#include "Player/Desktop/MpvPlayback.h"

#include <array>
#include <mpv/render_gl.h>
#include <utility>

namespace KivUICore::Player {

namespace {

using Cairo::PixelBuffer;
using Cairo::PixelSize;

void* functionByName(void* functionAddress, const char* name) {
    return reinterpret_cast<void* (*)(const char*)>(functionAddress)(name);
}

} // namespace

// The library's own lock keeps its threads out of the function while it is exchanged.
void MpvPicture::setWakeUp(std::function<void()> wakeUp) {
    if (renderer_) {
        mpv_render_context_set_update_callback(renderer_.get(), nullptr, nullptr);
    }
    wakeUp_ = std::move(wakeUp);
    connectWakeUp();
}

void MpvPicture::connectWakeUp() {
    if (renderer_) {
        mpv_render_context_set_update_callback(
            renderer_.get(), [](void* picture) { static_cast<MpvPicture*>(picture)->wakeUp_(); }, this);
    }
}

bool MpvPicture::startOpenGL(void* (*functionAddress)(const char* name)) {
    mpv_opengl_init_params opengl{functionByName, reinterpret_cast<void*>(functionAddress)};
    std::array<mpv_render_param, 3> parameters{{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_OPENGL)},
        {MPV_RENDER_PARAM_OPENGL_INIT_PARAMS, &opengl},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    return start(parameters.data());
}

bool MpvPicture::startMemory() {
    std::array<mpv_render_param, 2> parameters{{
        {MPV_RENDER_PARAM_API_TYPE, const_cast<char*>(MPV_RENDER_API_TYPE_SW)},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    return start(parameters.data());
}

bool MpvPicture::start(mpv_render_param* parameters) {
    mpv_render_context* renderer = nullptr;
    if (!playback_.client().handle() ||
        mpv_render_context_create(&renderer, playback_.client().handle(), parameters) < 0) {
        return false;
    }
    renderer_.reset(renderer);
    connectWakeUp();
    return true;
}

void MpvPicture::stopDrawing() { renderer_.reset(); }

bool MpvPicture::hasNewFrame() { return renderer_ && (scene_ != playback_.scene() || isFrameDue()); }

bool MpvPicture::isFrameDue() {
    return (mpv_render_context_update(renderer_.get()) & MPV_RENDER_UPDATE_FRAME) != 0;
}

void MpvPicture::drawIntoFramebuffer(unsigned framebuffer, const PixelSize& size) {
    mpv_opengl_fbo target{static_cast<int>(framebuffer), size.width, size.height, 0};
    std::array<mpv_render_param, 2> parameters{{
        {MPV_RENDER_PARAM_OPENGL_FBO, &target},
        {MPV_RENDER_PARAM_INVALID, nullptr},
    }};
    draw(parameters.data());
}

void MpvPicture::drawIntoMemory(const PixelBuffer& buffer) {
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

void MpvPicture::draw(mpv_render_param* parameters) {
    if (!renderer_) {
        return;
    }
    const bool isNew = hasNewFrame();
    scene_ = playback_.scene();
    const bool isDrawn = mpv_render_context_render(renderer_.get(), parameters) >= 0;
    hasDrawn_ = hasDrawn_ || (isNew && isDrawn);
}

void MpvPicture::frameWasShown() {
    if (renderer_) {
        mpv_render_context_report_swap(renderer_.get());
    }
}

} // namespace KivUICore::Player
