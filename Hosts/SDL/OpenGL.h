#pragma once

// The system's library exports all functions that the host uses; this header declares them.
#define GL_GLEXT_PROTOTYPES
#include <SDL_opengl.h>
#include <utility>

namespace KivUICore::SDL {

/// Owns one OpenGL object by its name. The context is current when it is destroyed.
template <void (*release)(GLuint)>
class GLObject {
public:
    GLObject() = default;
    explicit GLObject(GLuint name) : name_(name) {}
    GLObject(GLObject&& other) noexcept : name_(std::exchange(other.name_, 0)) {}
    GLObject& operator=(GLObject&& other) noexcept {
        std::swap(name_, other.name_);
        return *this;
    }
    ~GLObject() {
        if (name_ != 0) {
            release(name_);
        }
    }

    GLuint name() const { return name_; }

private:
    GLuint name_ = 0;
};

inline void releaseTexture(GLuint name) { glDeleteTextures(1, &name); }
inline void releaseFramebuffer(GLuint name) { glDeleteFramebuffers(1, &name); }
inline void releaseVertexArray(GLuint name) { glDeleteVertexArrays(1, &name); }
inline void releaseShader(GLuint name) { glDeleteShader(name); }
inline void releaseProgram(GLuint name) { glDeleteProgram(name); }

using GLTexture = GLObject<releaseTexture>;
using GLFramebuffer = GLObject<releaseFramebuffer>;
using GLVertexArray = GLObject<releaseVertexArray>;
using GLShader = GLObject<releaseShader>;
using GLProgram = GLObject<releaseProgram>;

} // namespace KivUICore::SDL
