#pragma once

struct ImGuiContext;

namespace Benchmarks {

/// The same overlay in Dear ImGui, without a backend: a frame ends with the vertices for one. Only one at a
/// time.
class ImGuiOverlay {
public:
    ImGuiOverlay();
    ImGuiOverlay(const ImGuiOverlay&) = delete;
    ImGuiOverlay& operator=(const ImGuiOverlay&) = delete;
    ~ImGuiOverlay();

    /// Builds and lays out a frame; `elapsed` in seconds. Gives the number of its vertices.
    int frame(float elapsed);

private:
    void topBar();
    void bottomBar(float elapsed);

    ImGuiContext* context_;
    float position_ = 40.0F;
};

} // namespace Benchmarks
