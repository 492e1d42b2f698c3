#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/MpvClient.h"
#include "Tests/Player/Process.h"
#include "Tests/Player/WebServer.h"

#include <gtest/gtest.h>
#include <string>
#include <unistd.h>

namespace Player {

namespace {

class FilmOpeningTest : public testing::Test {
protected:
    std::string failure() {
        eventually([this] {
            while (const mpv_event* event = client.nextEvent()) {
                opening.handle(*event, client);
            }
            opening.conclude(client);
            return opening.failure().has_value();
        });
        return opening.failure().value_or("none");
    }

    MpvClient client{{{"vo", "null"}, {"ao", "null"}, {"network-timeout", "2"}}};
    WebServer server;
    std::string film = server.url("film.mkv");
    FilmOpening opening;
};

TEST_F(FilmOpeningTest, ServerThatDoesNotAnswerIsTold) {
    opening.begin(client, film, 0.0);
    EXPECT_EQ(failure(), "cannot play '" + film + "': the server did not answer within 2 seconds");
}

TEST_F(FilmOpeningTest, ServerThatHangsUpIsNotSaidToBeSlow) {
    opening.begin(client, film, 0.0);
    close(server.nextConnection());
    EXPECT_EQ(failure(), "cannot play '" + film + "': it cannot be opened");
}

} // namespace

} // namespace Player
