#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/MpvClient.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/Process.h"
#include "Tests/Player/WebServer.h"

#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace KivUICore::Player {

namespace {

class FilmOpeningTest : public testing::Test {
protected:
    std::string failure() {
        eventually([this] {
            client.takeEvents([this](const mpv_event& event) { opening.handle(event, client); });
            opening.conclude(client);
            return opening.failure().has_value();
        });
        return opening.failure() ? lineOf(*opening.failure()) : "none";
    }

    /// Has the library get on with what was asked until `condition` holds, and loses what it tells.
    template <class Condition>
    bool losesEventsUntil(Condition condition) {
        return eventually([&] {
            client.takeEvents([this](const mpv_event& event) {
                if (event.event_id == MPV_EVENT_HOOK || event.event_id == MPV_EVENT_COMMAND_REPLY) {
                    opening.handle(event, client);
                }
            });
            return condition();
        });
    }

    void tellOfLoss() {
        mpv_event overflow{};
        overflow.event_id = MPV_EVENT_QUEUE_OVERFLOW;
        opening.handle(overflow, client);
        opening.conclude(client);
    }

    MpvClient client{{{"vo", "null"}, {"ao", "null"}, {"network-timeout", "2"}}};
    WebServer server;
    std::string film = server.url("film.mkv");
    FilmOpening opening;
};

TEST_F(FilmOpeningTest, FailureAmongEventsThatWereLostIsTold) {
    const TemporaryFolder folder;
    const std::string text = (folder.path() / "text.mkv").string();
    std::ofstream(text) << "no film\n";
    opening.begin(client, text, 0.0);
    ASSERT_TRUE(losesEventsUntil([this] { return client.flag("idle-active") == false; }));
    ASSERT_TRUE(losesEventsUntil([this] { return client.flag("idle-active") == true; }));
    EXPECT_FALSE(opening.failure());
    tellOfLoss();
    EXPECT_TRUE(opening.failure());
}

TEST_F(FilmOpeningTest, FilmThatWasLoadedAmongEventsThatWereLostIsKnown) {
    const std::string sound = Films::sound().string();
    client.setFlag("pause", true);
    opening.begin(client, sound, 0.0);
    ASSERT_TRUE(losesEventsUntil([this] { return client.flag("seeking") == false; }));
    EXPECT_FALSE(opening.isLoaded());
    tellOfLoss();
    EXPECT_TRUE(opening.isLoaded());
    EXPECT_TRUE(opening.isAtStart());
    EXPECT_EQ(opening.location(), sound);
    EXPECT_FALSE(opening.failure());
}

TEST_F(FilmOpeningTest, ServerThatDoesNotAnswerIsTold) {
    opening.begin(client, film, 0.0);
    EXPECT_EQ(failure(), "cannot play '" + film + "': the server did not answer within 2 seconds");
}

TEST_F(FilmOpeningTest, ServerThatHangsUpIsNotSaidToBeSlow) {
    opening.begin(client, film, 0.0);
    std::thread hangingUp([this] { close(server.nextConnection()); });
    EXPECT_EQ(failure(), "cannot play '" + film + "': the server hung up without an answer");
    server.stop();
    hangingUp.join();
}

} // namespace

} // namespace KivUICore::Player
