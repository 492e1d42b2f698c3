#include "Tests/Overlay/Film/FakePlayback.h"

#include "Tests/Overlay/Film/PlaybackContract.h"

namespace KivUICore::Overlay {

namespace {

class FakeSubject {
public:
    static constexpr double patience = 60.0;

    FakeSubject() {
        fake_.now.isPaused = true;
        fake_.film.duration = ContractFilm::duration;
        fake_.film.keyFrameDistance = ContractFilm::keyFrameDistance;
    }

    Playback& playback() { return fake_; }

    void open(double start) { fake_.open(start); }
    void openMissing(double start) {
        fake_.film.problem = PlaybackError{PlaybackError::Kind::Unplayable, "a.mkv", "no such file"};
        fake_.open(start);
    }
    void bringFilm() { fake_.film.problem.reset(); }
    void openTracks() {
        fake_.film.tracks = {{TrackKind::Audio, 1, "English", true},
                             {TrackKind::Audio, 2, "Deutsch", false},
                             {TrackKind::Subtitle, 1, "English", false}};
        fake_.open(0.0);
    }

    void turn() {
        constexpr double moment = 0.01;
        now_ += moment;
        fake_.advance(moment);
    }
    double now() const { return now_; }

private:
    FakePlayback fake_;
    double now_ = 0.0;
};

INSTANTIATE_TYPED_TEST_SUITE_P(FakeContract, PlaybackContract, FakeSubject);

} // namespace

} // namespace KivUICore::Overlay
