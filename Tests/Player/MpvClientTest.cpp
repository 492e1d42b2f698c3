#include "Player/Desktop/MpvClient.h"

#include "Tests/Player/Process.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <mpv/stream_cb.h>
#include <optional>

namespace KivUICore::Player {

namespace {

/// Something to open that keeps whoever opens it waiting, as a disk or a name server may.
class StuckStream {
public:
    explicit StuckStream(const MpvClient& client) {
        mpv_stream_cb_add_ro(client.handle(), "stuck", this, open);
    }

    bool isBeingOpened(MpvClient& client) {
        const std::future<void> opened = opened_.get_future();
        return eventually([&] {
            client.takeEvents([&client](const mpv_event& event) {
                if (event.event_id == MPV_EVENT_HOOK) {
                    mpv_hook_continue(client.handle(), static_cast<const mpv_event_hook*>(event.data)->id);
                }
            });
            return opened.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
    }
    void letGo() { released_.set_value(); }

private:
    static int open(void* stream, char* /*url*/, mpv_stream_cb_info* /*info*/) {
        auto* self = static_cast<StuckStream*>(stream);
        self->opened_.set_value();
        self->released_.get_future().wait();
        return MPV_ERROR_LOADING_FAILED;
    }

    std::promise<void> opened_;
    std::promise<void> released_;
};

class MpvClientTest : public testing::Test {
protected:
    std::optional<MpvClient> client{std::in_place, std::vector<MpvClient::Setting>{{"vo", "null"}}};
};

TEST_F(MpvClientTest, IsGoneAlthoughTheLibraryIsStuck) {
    StuckStream stream(*client);
    client->command({"loadfile", "stuck://film"});
    ASSERT_TRUE(stream.isBeingOpened(*client));
    const std::future<void> end = std::async(std::launch::async, [this] { client.reset(); });
    const bool isGone = end.wait_for(Process::patience) == std::future_status::ready;
    EXPECT_TRUE(isGone);
    EXPECT_TRUE(MpvClient::isAnyEnding());
    stream.letGo();
    EXPECT_TRUE(eventually([] { return !MpvClient::isAnyEnding(); }));
}

TEST_F(MpvClientTest, AnswersWhileTheLibraryIsStuck) {
    StuckStream stream(*client);
    client->command({"loadfile", "stuck://film"});
    ASSERT_TRUE(stream.isBeingOpened(*client));
    client->command({"stop"});
    const std::future<void> end = std::async(std::launch::async, [this] {
        EXPECT_EQ(client->flag("pause"), false);
        EXPECT_FALSE(client->number("vid"));
    });
    EXPECT_EQ(end.wait_for(Process::patience), std::future_status::ready);
    stream.letGo();
}

TEST_F(MpvClientTest, HasEndedWithItsObject) {
    client.reset();
    EXPECT_FALSE(MpvClient::isAnyEnding());
}

TEST_F(MpvClientTest, TellsTextNumbersAndFlags) {
    EXPECT_EQ(client->text("vo"), "null");
    EXPECT_EQ(client->number("playlist-count"), 0);
    EXPECT_EQ(client->flag("idle-active"), true);
    EXPECT_FALSE(client->text("path"));
    EXPECT_FALSE(client->text("no-such-property"));
}

} // namespace

} // namespace KivUICore::Player
