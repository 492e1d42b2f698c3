#include "Tests/Overlay/Film/PlaybackContract.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/PlaybackRun.h"

#include <chrono>
#include <filesystem>

namespace KivUICore::Overlay {

namespace {

namespace fs = std::filesystem;

/// Real mpv with a real film.
class MpvSubject {
public:
    static constexpr double patience = std::chrono::duration<double>(Player::Process::patience).count();

    Playback& playback() { return run_.playback; }

    void open(double start) { run_.playback.open(Player::Films::sparse().string(), start); }
    void openMissing(double start) { run_.playback.open(late().string(), start); }
    void bringFilm() { fs::copy_file(Player::Films::sparse(), late()); }
    void openTracks() { run_.playback.open(Player::Films::manyTracks().string(), 0.0); }

    void turn() {
        Player::pauseBriefly();
        run_.turn();
    }
    double now() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }

private:
    fs::path late() const { return folder_.path() / "late.mkv"; }

    Player::TemporaryFolder folder_;
    Player::PlaybackRun run_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(MpvContract, PlaybackContract, MpvSubject);

} // namespace

} // namespace KivUICore::Overlay
