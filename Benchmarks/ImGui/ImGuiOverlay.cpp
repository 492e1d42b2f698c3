#include "Benchmarks/ImGui/ImGuiOverlay.h"

#include <imgui.h>

namespace Benchmarks {

namespace {

constexpr float screenWidth = 1280.0F;
constexpr float screenHeight = 720.0F;
constexpr float barHeight = 40.0F;
constexpr float column = screenWidth / 12.0F;
constexpr ImGuiWindowFlags bare =
    ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoSavedSettings;

void beginBar(const char* name, float y) {
    ImGui::SetNextWindowPos({0.0F, y});
    ImGui::SetNextWindowSize({screenWidth, barHeight});
    ImGui::SetNextWindowBgAlpha(0.65F);
    ImGui::Begin(name, nullptr, bare);
}

void button(const char* title, float columns) {
    ImGui::Button(title, {columns * column, 0.0F});
    ImGui::SameLine();
}

} // namespace

ImGuiOverlay::ImGuiOverlay() : context_(ImGui::CreateContext()) {
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {screenWidth, screenHeight};
    unsigned char* pixels = nullptr;
    int width = 0;
    int height = 0;
    io.Fonts->GetTexDataAsAlpha8(&pixels, &width, &height);
}

ImGuiOverlay::~ImGuiOverlay() { ImGui::DestroyContext(context_); }

int ImGuiOverlay::frame(float elapsed) {
    ImGui::GetIO().DeltaTime = 1.0F / 60.0F;
    ImGui::NewFrame();
    topBar();
    bottomBar(elapsed);
    ImGui::Render();
    return ImGui::GetDrawData()->TotalVtxCount;
}

void ImGuiOverlay::topBar() {
    beginBar("top", 0.0F);
    button("Back", 2.0F);
    ImGui::TextUnformatted("A film");
    ImGui::End();
}

void ImGuiOverlay::bottomBar(float elapsed) {
    const int seconds = static_cast<int>(elapsed);
    beginBar("bottom", screenHeight - barHeight);
    button("Play", 2.0F);
    ImGui::Text("%02d:%02d", seconds / 60, seconds % 60);
    ImGui::SameLine();
    ImGui::SetNextItemWidth(6.0F * column);
    ImGui::SliderFloat("##position", &position_, 0.0F, 100.0F, "");
    ImGui::SameLine();
    ImGui::TextUnformatted("01:40");
    ImGui::SameLine();
    button("Full", 2.0F);
    ImGui::End();
}

} // namespace Benchmarks
