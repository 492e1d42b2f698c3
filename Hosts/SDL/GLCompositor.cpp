#include "Hosts/SDL/GLCompositor.h"

#include "Hosts/Cairo/OverlaySurface.h"
#include "Hosts/SDL/FilmSource.h"

#include <array>
#include <optional>
#include <string_view>

namespace KivUICore::SDL {

namespace {

// One triangle covers the window. Rows run from the top in both pictures.
constexpr const char* vertexSource = R"(#version 150
out vec2 place;
void main() {
    vec2 corner = vec2(gl_VertexID == 1 ? 2.0 : 0.0, gl_VertexID == 2 ? 2.0 : 0.0);
    place = vec2(corner.x, 1.0 - corner.y);
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
}
)";

constexpr const char* fragmentSource = R"(#version 150
uniform sampler2D film;
uniform sampler2D overlay;
in vec2 place;
out vec4 color;
void main() {
    vec4 above = texture(overlay, place);
    color = vec4(above.rgb + texture(film, place).rgb * (1.0 - above.a), 1.0);
}
)";

GLShader makeShader(GLenum kind, const char* source) {
    GLShader shader(glCreateShader(kind));
    glShaderSource(shader.name(), 1, &source, nullptr);
    glCompileShader(shader.name());
    return shader;
}

std::optional<GLProgram> makeProgram() {
    const GLShader vertex = makeShader(GL_VERTEX_SHADER, vertexSource);
    const GLShader fragment = makeShader(GL_FRAGMENT_SHADER, fragmentSource);
    GLProgram program(glCreateProgram());
    glAttachShader(program.name(), vertex.name());
    glAttachShader(program.name(), fragment.name());
    glLinkProgram(program.name());
    GLint isLinked = GL_FALSE;
    glGetProgramiv(program.name(), GL_LINK_STATUS, &isLinked);
    if (isLinked != GL_TRUE) {
        return std::nullopt;
    }
    return program;
}

GLTexture makeTexture(const Cairo::PixelSize& size) {
    GLuint name = 0;
    glGenTextures(1, &name);
    GLTexture texture(name);
    glBindTexture(GL_TEXTURE_2D, name);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, size.width, size.height, 0, GL_BGRA, GL_UNSIGNED_INT_8_8_8_8_REV,
                 nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

GLFramebuffer makeFramebuffer(const GLTexture& texture) {
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    GLFramebuffer framebuffer(name);
    glBindFramebuffer(GL_FRAMEBUFFER, name);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture.name(), 0);
    glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    return framebuffer;
}

void bindTexture(GLenum unit, const GLTexture& texture) {
    glActiveTexture(unit);
    glBindTexture(GL_TEXTURE_2D, texture.name());
}

bool isDrawnByMainProcessor() {
    const auto* name = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    const std::string_view renderer = name ? name : "";
    for (const std::string_view known : {"llvmpipe", "softpipe", "SWR", "Software Rasterizer"}) {
        if (renderer.find(known) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

} // namespace

void GLCompositor::prepareWindows() {
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 2);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 0);
}

std::unique_ptr<GLCompositor> GLCompositor::create(SDL_Window& window, FilmSource& film,
                                                   Processor processor) {
    Context context(SDL_GL_CreateContext(&window));
    if (!context || (processor == Processor::Graphics && isDrawnByMainProcessor())) {
        return nullptr;
    }
    std::unique_ptr<GLCompositor> compositor(new GLCompositor(window, film, std::move(context)));
    return compositor->start() ? std::move(compositor) : nullptr;
}

GLCompositor::GLCompositor(SDL_Window& window, FilmSource& film, Context context)
    : window_(window), film_(film), context_(std::move(context)) {}

GLCompositor::~GLCompositor() {
    if (isFilmStarted_) {
        film_.stopDrawing();
    }
}

bool GLCompositor::start() {
    SDL_GL_SetSwapInterval(1);
    std::optional<GLProgram> program = makeProgram();
    if (!program) {
        return false;
    }
    program_ = std::move(*program);
    glUseProgram(program_.name());
    glUniform1i(glGetUniformLocation(program_.name(), "film"), 0);
    glUniform1i(glGetUniformLocation(program_.name(), "overlay"), 1);
    glUseProgram(0);
    GLuint vertices = 0;
    glGenVertexArrays(1, &vertices);
    vertices_ = GLVertexArray(vertices);
    isFilmStarted_ = film_.startOpenGL(SDL_GL_GetProcAddress);
    return isFilmStarted_;
}

void GLCompositor::resize(const Cairo::PixelSize& size) {
    size_ = size;
    filmTexture_ = makeTexture(size);
    filmFramebuffer_ = makeFramebuffer(filmTexture_);
    overlayTexture_ = makeTexture(size);
    isFilmStale_ = true;
}

void GLCompositor::show(const Cairo::OverlaySurface& overlay, std::span<const Cairo::PixelRect> changed) {
    const bool isNewFrame = film_.hasNewFrame();
    if (isNewFrame || isFilmStale_) {
        film_.drawIntoFramebuffer(filmFramebuffer_.name(), size_);
        isFilmStale_ = false;
    }
    uploadOverlay(overlay, changed);
    compose();
    SDL_GL_SwapWindow(&window_);
    if (isNewFrame) {
        film_.frameWasShown();
    }
}

void GLCompositor::uploadOverlay(const Cairo::OverlaySurface& overlay,
                                 std::span<const Cairo::PixelRect> changed) {
    const unsigned char* pixels = cairo_image_surface_get_data(overlay.surface());
    const int stride = cairo_image_surface_get_stride(overlay.surface());
    glBindTexture(GL_TEXTURE_2D, overlayTexture_.name());
    glPixelStorei(GL_UNPACK_ROW_LENGTH, stride / 4);
    for (const Cairo::PixelRect& part : changed) {
        const unsigned char* first =
            pixels + static_cast<std::ptrdiff_t>(part.y) * stride + static_cast<std::ptrdiff_t>(part.x) * 4;
        glTexSubImage2D(GL_TEXTURE_2D, 0, part.x, part.y, part.width, part.height, GL_BGRA,
                        GL_UNSIGNED_INT_8_8_8_8_REV, first);
    }
    // The film's own drawing expects what OpenGL starts with.
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glBindTexture(GL_TEXTURE_2D, 0);
}

void GLCompositor::compose() {
    glBindFramebuffer(GL_FRAMEBUFFER, 0);
    glViewport(0, 0, size_.width, size_.height);
    for (const GLenum state : std::array<GLenum, 4>{GL_BLEND, GL_DEPTH_TEST, GL_SCISSOR_TEST, GL_CULL_FACE}) {
        glDisable(state);
    }
    bindTexture(GL_TEXTURE1, overlayTexture_);
    bindTexture(GL_TEXTURE0, filmTexture_);
    glUseProgram(program_.name());
    glBindVertexArray(vertices_.name());
    glDrawArrays(GL_TRIANGLES, 0, 3);
    glBindVertexArray(0);
    glUseProgram(0);
    glBindTexture(GL_TEXTURE_2D, 0);
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, 0);
    glActiveTexture(GL_TEXTURE0);
}

} // namespace KivUICore::SDL
