#include "Player/Desktop/TimeText.h"

#include <cstdlib>
#include <regex>

namespace KivUICore::Player {

std::optional<double> secondsOf(const std::string& text) {
    constexpr double sixty = 60.0;
    static const std::regex form(R"((?:(?:([0-9]+):)?([0-9]+):)?([0-9]+(?:\.[0-9]*)?|\.[0-9]+))");
    std::smatch parts;
    if (!std::regex_match(text, parts, form)) {
        return std::nullopt;
    }
    const auto number = [&parts](std::size_t part) { return std::strtod(parts.str(part).c_str(), nullptr); };
    const bool isTooMany =
        (parts[1].matched && number(2) >= sixty) || (parts[2].matched && number(3) >= sixty);
    return isTooMany ? std::nullopt : std::optional((number(1) * sixty + number(2)) * sixty + number(3));
}

} // namespace KivUICore::Player
