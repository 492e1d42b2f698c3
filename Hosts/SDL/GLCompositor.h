#pragma once

#include "Hosts/SDL/Compositor.h"
#include "Hosts/SDL/OpenGL.h"

#include <SDL.h>
#include <memory>

namespace KivUICore::SDL {

class FilmSource;

/// Composes by OpenGL 3.2. The film is drawn into a texture of its own, once for each of its frames, so that
/// a moving overlay costs the film nothing.
class GLCompositor final : public Compositor {
public:
    enum class Processor { Graphics, Any };

    /// What an SDL window needs to have before it is made.
    static void prepareWindows();

    /// Null when `window` can't be drawn by OpenGL, or the film not into it; or when the main processor would
    /// do the drawing and `processor` doesn't allow that. Both outlive the compositor.
    static std::unique_ptr<GLCompositor> create(SDL_Window& window, FilmSource& film, Processor processor);
    ~GLCompositor() override;

    void resize(const Cairo::PixelSize& size) override;
    void show(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> changed) override;
    void invalidate() override {}

private:
    struct ContextRelease {
        void operator()(void* context) const { SDL_GL_DeleteContext(context); }
    };
    using Context = std::unique_ptr<void, ContextRelease>;

    GLCompositor(SDL_Window& window, FilmSource& film, Context context);

    bool start();
    void uploadOverlay(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> changed);
    void compose();

    SDL_Window& window_;
    FilmSource& film_;
    Context context_;
    bool isFilmStarted_ = false;

    GLProgram program_;
    GLVertexArray vertices_;
    GLTexture filmTexture_;
    GLFramebuffer filmFramebuffer_;
    GLTexture overlayTexture_;
    Cairo::PixelSize size_;
    bool isFilmStale_ = true;
};

} // namespace KivUICore::SDL
