#include "Player/Desktop/ErrorLine.h"
#include "Player/Desktop/Guard.h"
#include "Player/Desktop/MpvClient.h"
#include "Player/Desktop/Options.h"
#include "Player/Desktop/PlayerApplication.h"
#include "Player/Desktop/Snapshot.h"
#include "Player/Desktop/SocketFile.h"

#include <cstdlib>
#include <iostream>

using namespace KivUICore;

namespace {

Player::Exit run(int count, const char* const* arguments) {
    const std::variant<Player::Options, Player::Exit> parsed = Player::parseOptions(count, arguments);
    if (const auto* exit = std::get_if<Player::Exit>(&parsed)) {
        return *exit;
    }
    const auto& options = std::get<Player::Options>(parsed);
    return Player::guarded([&options] {
        return options.snapshotFolder ? Player::takeSnapshot(options)
                                      : Player::PlayerApplication(options).run();
    });
}

// What an instance of libmpv that could not be waited for still uses must not be taken down under it.
[[noreturn]] void leaveAtOnce(Player::ExitCode code) {
    std::cout.flush();
    Player::SocketFile::removeAtOnce();
    std::_Exit(static_cast<int>(code));
}

} // namespace

int main(int count, char** arguments) {
    const Player::Exit exit = run(count, arguments);
    if (exit.code == Player::ExitCode::Success) {
        std::cout << exit.text;
    } else if (!exit.text.empty()) {
        Player::printErrorLine(exit.text);
    }
    if (Player::MpvClient::isAnyEnding()) {
        leaveAtOnce(exit.code);
    }
    return static_cast<int>(exit.code);
}
