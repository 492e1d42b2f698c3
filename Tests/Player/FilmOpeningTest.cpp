#include "Player/Desktop/FilmOpening.h"

#include "Player/Desktop/MpvClient.h"
#include "Tests/Player/Process.h"

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace Player {

namespace {

/// A web server that takes connections and says nothing, or hangs up at once.
class SilentServer {
public:
    SilentServer() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(descriptor_, reinterpret_cast<const sockaddr*>(&address), size);
        listen(descriptor_, 8);
        getsockname(descriptor_, reinterpret_cast<sockaddr*>(&address), &size);
        url = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + "/film.mkv";
    }
    SilentServer(const SilentServer&) = delete;
    SilentServer& operator=(const SilentServer&) = delete;
    ~SilentServer() { close(descriptor_); }

    void hangUp() const { close(accept(descriptor_, nullptr, nullptr)); }

    std::string url;

private:
    int descriptor_ = socket(AF_INET, SOCK_STREAM, 0);
};

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
    SilentServer server;
    FilmOpening opening;
};

TEST_F(FilmOpeningTest, ServerThatDoesNotAnswerIsTold) {
    opening.begin(client, server.url, 0.0);
    EXPECT_EQ(failure(), "cannot play '" + server.url + "': the server did not answer within 2 seconds");
}

TEST_F(FilmOpeningTest, ServerThatHangsUpIsNotSaidToBeSlow) {
    opening.begin(client, server.url, 0.0);
    server.hangUp();
    EXPECT_EQ(failure(), "cannot play '" + server.url + "': it cannot be opened");
}

} // namespace

} // namespace Player
