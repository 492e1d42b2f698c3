#include "Player/Desktop/ErrorLine.h"
#include "Player/Desktop/Options.h"
#include "Player/Desktop/PlayerApplication.h"
#include "Player/Desktop/Snapshot.h"

#include <iostream>

namespace {

Player::Exit run(int count, const char* const* arguments) {
    const std::variant<Player::Options, Player::Exit> parsed = Player::parseOptions(count, arguments);
    if (const auto* exit = std::get_if<Player::Exit>(&parsed)) {
        return *exit;
    }
    const auto& options = std::get<Player::Options>(parsed);
    return options.snapshotFolder ? Player::takeSnapshot(options) : Player::PlayerApplication(options).run();
}

} // namespace

int main(int count, char** arguments) {
    const Player::Exit exit = run(count, arguments);
    if (exit.code == Player::ExitCode::Success) {
        std::cout << exit.text;
    } else if (!exit.text.empty()) {
        Player::printErrorLine(exit.text);
    }
    return static_cast<int>(exit.code);
}
