#include "Player/Desktop/SubtitleFile.h"

#include "Player/Desktop/MpvClient.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <string_view>

namespace KivUICore::Player {

namespace {

// No seek ever counts that far.
constexpr std::uint64_t addCommand = std::numeric_limits<std::uint64_t>::max() - 3;

constexpr std::array<std::string_view, 6> endings{".srt", ".ass", ".ssa", ".vtt", ".sub", ".sup"};

std::string lowerCase(std::string text) {
    const auto lower = [](char each) {
        return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
    };
    std::transform(text.begin(), text.end(), text.begin(), lower);
    return text;
}

} // namespace

bool SubtitleFile::isNamedSo(const std::string& location) {
    const std::string ending = lowerCase(std::filesystem::path(location).extension().string());
    return std::find(endings.begin(), endings.end(), ending) != endings.end();
}

void SubtitleFile::add(MpvClient& client, const std::string& location) {
    location_ = location;
    client.command({"sub-add", location.c_str(), "select"}, addCommand);
    ++unanswered_;
}

std::optional<SubtitleFile::Result> SubtitleFile::handle(const mpv_event& event) {
    const bool isAnswer = event.event_id == MPV_EVENT_COMMAND_REPLY && event.reply_userdata == addCommand;
    if (!isAnswer || --unanswered_ > 0) {
        return std::nullopt;
    }
    Result result{location_, std::nullopt};
    if (event.error < 0) {
        result.reason = "there are none in it that can be read";
    }
    return result;
}

} // namespace KivUICore::Player
