#pragma once

#include "Player/Overlay/Film/Playback.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace KivUICore::Overlay {

/// The film that the contract tests play: with 30 pictures a second.
struct ContractFilm {
    static constexpr double duration = 6.0;
    static constexpr double keyFrameDistance = 2.0;
    static constexpr double picture = 1.0 / 30.0;
};

/// What each playback keeps to, whatever plays the films. `Subject` brings one, paused, and the films:
/// - `playback()`,
/// - `open(start)`: begins to open the contract's film, to be played from `start` in seconds,
/// - `openMissing(start)`: the same where it isn't there yet, and `bringFilm()`, after which it is,
/// - `openTracks()`: begins to open a film with two sounds or more, the first of them chosen, and subtitles,
/// - `turn()`: lets a moment pass and tells of what came of it,
/// - `patience`: how many seconds to wait for what should come.
/// - `now()`: the time in seconds.
template <class Subject>
class PlaybackContract : public testing::Test {
protected:
    PlaybackContract() {
        subject.playback().setChangeHandler([this] { noteChange(); });
    }
    ~PlaybackContract() override { subject.playback().setChangeHandler(nullptr); }

    Playback& playback() { return subject.playback(); }
    const PlaybackState& state() { return playback().state(); }
    double position() { return state().position; }

    /// False if `condition` doesn't come to hold. What is known is always what was told.
    template <class Condition>
    bool until(Condition condition, double bound = Subject::patience) {
        const double end = subject.now() + bound;
        while (!condition()) {
            if (subject.now() > end) {
                return false;
            }
            subject.turn();
            isAllTold = isAllTold && (!told || *told == state());
        }
        return true;
    }

    void wait(double seconds) {
        until([] { return false; }, seconds);
    }

    bool isAt(double time, double tolerance = ContractFilm::picture) {
        return std::abs(position() - time) < tolerance;
    }

    bool isReady() {
        const PlaybackState& now = state();
        return !now.isOpening && !now.isSeeking && !now.isWaiting && now.duration;
    }

    bool open(double start) {
        subject.open(start);
        return until([&] { return isReady() && isAt(start); });
    }

    bool seek(double time, SeekPrecision precision = SeekPrecision::Exact) {
        playback().seek(time, precision);
        EXPECT_TRUE(state().isSeeking) << time;
        return until([&] { return !state().isSeeking; });
    }

    bool playToTheEnd() {
        if (!open(5.5)) {
            return false;
        }
        playback().play();
        return until([&] { return state().hasEnded; });
    }

    /// The identifiers of what is chosen, in the order of the tracks.
    std::vector<std::int64_t> chosen(TrackKind kind) {
        std::vector<std::int64_t> result;
        for (const Track& track : state().tracks) {
            if (track.kind == kind && track.isSelected) {
                result.push_back(track.identifier);
            }
        }
        return result;
    }

    void noteChange() {
        ++changes;
        told = state();
    }

    Subject subject;
    int changes = 0;
    std::optional<PlaybackState> told;
    bool isAllTold = true;
};

TYPED_TEST_SUITE_P(PlaybackContract);

// Opening

TYPED_TEST_P(PlaybackContract, FilmThatIsBeingOpenedWaitsForItsFirstPicture) {
    this->subject.open(3.0);
    EXPECT_TRUE(this->state().isOpening);
    EXPECT_TRUE(this->state().isWaiting);
    EXPECT_FALSE(this->state().isSeeking);
    EXPECT_FALSE(this->state().hasEnded);
    EXPECT_FALSE(this->state().error);
    EXPECT_FALSE(this->state().duration);
    EXPECT_EQ(this->position(), 3.0);
    ASSERT_TRUE(this->until([&] { return this->isReady(); }));
    EXPECT_NEAR(*this->state().duration, ContractFilm::duration, 0.1);
    EXPECT_TRUE(this->until([&] { return this->isAt(3.0); }));
    EXPECT_TRUE(this->state().isPaused);
    EXPECT_TRUE(this->state().isSeekable);
    EXPECT_FALSE(this->state().hasEnded);
}

TYPED_TEST_P(PlaybackContract, SeekBeforeAnythingIsKnownOfTheFilmDoesNothing) {
    this->subject.open(3.0);
    this->playback().seek(1.0, SeekPrecision::Exact);
    EXPECT_FALSE(this->state().isSeeking);
    EXPECT_TRUE(this->until([&] { return this->isReady() && this->isAt(3.0); }));
}

TYPED_TEST_P(PlaybackContract, FilmIsPlayedAsSoonAsItIsOpenIfThatWasAskedForBefore) {
    this->subject.open(1.0);
    this->playback().play();
    EXPECT_FALSE(this->state().isPaused);
    EXPECT_TRUE(this->until([&] { return this->isReady() && this->position() > 1.2; }));
    EXPECT_FALSE(this->state().isPaused);
}

TYPED_TEST_P(PlaybackContract, OpeningThatIsCancelledIsAnErrorAtOnceThatCanBeTriedAgain) {
    this->subject.open(3.0);
    this->playback().cancelOpening();
    ASSERT_TRUE(this->state().error);
    EXPECT_EQ(this->state().error->kind, PlaybackError::Kind::Unplayable);
    EXPECT_FALSE(this->state().isOpening);
    EXPECT_FALSE(this->state().isWaiting);
    this->wait(0.3);
    EXPECT_TRUE(this->state().error);
    this->playback().retry();
    EXPECT_FALSE(this->state().error);
    EXPECT_TRUE(this->state().isOpening);
    EXPECT_TRUE(this->until([&] { return this->isReady() && this->isAt(3.0); }));
}

TYPED_TEST_P(PlaybackContract, CancellingNoOpeningLeavesTheFilmAlone) {
    ASSERT_TRUE(this->open(1.0));
    this->playback().play();
    this->playback().cancelOpening();
    EXPECT_FALSE(this->state().error);
    EXPECT_TRUE(this->until([&] { return this->position() > 1.3; }));
    EXPECT_FALSE(this->state().error);
}

// Errors

TYPED_TEST_P(PlaybackContract, FilmThatIsMissingIsAnErrorUntilATryFindsIt) {
    this->subject.openMissing(3.0);
    ASSERT_TRUE(this->until([&] { return this->state().error.has_value(); }));
    EXPECT_EQ(this->state().error->kind, PlaybackError::Kind::Unplayable);
    EXPECT_FALSE(this->state().error->reason.empty());
    EXPECT_FALSE(this->state().isOpening);
    EXPECT_FALSE(this->state().isWaiting);
    EXPECT_FALSE(this->state().hasEnded);
    this->playback().retry();
    ASSERT_TRUE(this->until([&] { return this->state().error && !this->state().isOpening; }));
    this->subject.bringFilm();
    this->playback().retry();
    EXPECT_FALSE(this->state().error);
    EXPECT_TRUE(this->state().isOpening);
    EXPECT_TRUE(this->until([&] { return this->isReady() && this->isAt(3.0); }));
}

TYPED_TEST_P(PlaybackContract, FilmThatCannotBePlayedGoesNowhere) {
    this->subject.openMissing(0.0);
    ASSERT_TRUE(this->until([&] { return this->state().error.has_value(); }));
    this->playback().seek(3.0, SeekPrecision::Exact);
    EXPECT_FALSE(this->state().isSeeking);
    this->playback().stepFrame(Direction::Forward);
    this->playback().play();
    this->wait(0.3);
    EXPECT_EQ(this->position(), 0.0);
    EXPECT_TRUE(this->state().error);
}

// Playing

TYPED_TEST_P(PlaybackContract, PausedFilmStandsStillAndGoesOnWhereItWas) {
    ASSERT_TRUE(this->open(1.0));
    this->playback().play();
    EXPECT_FALSE(this->state().isPaused);
    ASSERT_TRUE(this->until([&] { return this->position() > 1.3; }));
    this->playback().pause();
    EXPECT_TRUE(this->state().isPaused);
    // What was on its way.
    this->wait(0.6);
    const double place = this->position();
    this->wait(0.4);
    EXPECT_EQ(this->position(), place);
    this->playback().play();
    EXPECT_TRUE(this->until([&] { return this->position() > place + 0.1; }));
    EXPECT_LT(this->position(), place + 2.0);
}

TYPED_TEST_P(PlaybackContract, FilmEndsOnItsLastPictureAndNobodyPausedIt) {
    ASSERT_TRUE(this->playToTheEnd());
    EXPECT_FALSE(this->state().isPaused);
    EXPECT_FALSE(this->state().error);
    EXPECT_TRUE(
        this->until([&] { return !this->state().isWaiting && this->isAt(ContractFilm::duration, 0.2); }));
    this->wait(0.2);
    EXPECT_TRUE(this->state().hasEnded);
}

TYPED_TEST_P(PlaybackContract, PlayAtTheEndStartsAnew) {
    ASSERT_TRUE(this->playToTheEnd());
    // Slow enough for its beginning to be seen on a machine that is busy.
    this->playback().setSpeed(0.25);
    this->playback().play();
    EXPECT_FALSE(this->state().hasEnded);
    EXPECT_TRUE(this->state().isSeeking);
    EXPECT_TRUE(this->until(
        [&] { return !this->state().isSeeking && this->position() > 0.1 && this->position() < 2.0; }));
    EXPECT_FALSE(this->state().hasEnded);
    EXPECT_FALSE(this->state().isPaused);
}

TYPED_TEST_P(PlaybackContract, SeekFromTheEndGoesOnFromThere) {
    ASSERT_TRUE(this->playToTheEnd());
    this->playback().seek(2.0, SeekPrecision::Exact);
    EXPECT_FALSE(this->state().hasEnded);
    EXPECT_TRUE(this->until(
        [&] { return !this->state().isSeeking && this->position() > 2.2 && this->position() < 5.0; }));
    EXPECT_FALSE(this->state().hasEnded);
}

TYPED_TEST_P(PlaybackContract, StepPausesAndShowsTheNextPictureOrTheOneBefore) {
    ASSERT_TRUE(this->open(3.0));
    for (const auto& [direction, way] :
         {std::pair(Direction::Forward, 1.0), std::pair(Direction::Backward, -1.0)}) {
        const double place = this->position() + way * ContractFilm::picture;
        this->playback().stepFrame(direction);
        EXPECT_TRUE(this->until([&] { return this->isAt(place, ContractFilm::picture / 4.0); }))
            << this->position() << " instead of " << place;
        EXPECT_TRUE(this->state().isPaused);
    }
    for (const Direction direction : {Direction::Forward, Direction::Backward}) {
        this->playback().play();
        EXPECT_FALSE(this->state().isPaused);
        this->playback().stepFrame(direction);
        EXPECT_TRUE(this->state().isPaused);
        this->wait(0.6);
        const double place = this->position();
        this->wait(0.3);
        EXPECT_EQ(this->position(), place);
        EXPECT_TRUE(this->state().isPaused);
    }
}

// Seeking

TYPED_TEST_P(PlaybackContract, ExactSeekShowsTheTimeAskedFor) {
    ASSERT_TRUE(this->open(0.0));
    for (const double time : {3.9, 1.5, 5.0, 0.0}) {
        ASSERT_TRUE(this->seek(time)) << time;
        EXPECT_TRUE(this->until([&] { return this->isAt(time); })) << time << " " << this->position();
        EXPECT_FALSE(this->state().isWaiting);
        EXPECT_TRUE(this->state().isPaused);
    }
}

TYPED_TEST_P(PlaybackContract, KeyFrameSeekShowsAKeyFrameNearby) {
    ASSERT_TRUE(this->open(0.0));
    ASSERT_TRUE(this->seek(3.9, SeekPrecision::KeyFrame));
    EXPECT_TRUE(this->until([&] {
        const double frames = this->position() / ContractFilm::keyFrameDistance;
        return std::abs(frames - std::round(frames)) * ContractFilm::keyFrameDistance < ContractFilm::picture;
    })) << this->position();
    EXPECT_GT(this->position(), 1.0);
}

TYPED_TEST_P(PlaybackContract, SeekOutsideTheFilmIsCutToIt) {
    ASSERT_TRUE(this->open(3.0));
    for (const double time : {1000.0, HUGE_VAL}) {
        ASSERT_TRUE(this->seek(time)) << time;
        EXPECT_TRUE(this->until([&] { return this->isAt(ContractFilm::duration, 0.2); }))
            << time << " " << this->position();
        EXPECT_TRUE(this->state().isPaused);
        ASSERT_TRUE(this->seek(-5.0));
        EXPECT_TRUE(this->until([&] { return this->isAt(0.0); })) << this->position();
        EXPECT_FALSE(this->state().hasEnded);
    }
}

TYPED_TEST_P(PlaybackContract, FilmAtPlayThatIsSentBeyondItsEndEnds) {
    ASSERT_TRUE(this->open(3.0));
    this->playback().play();
    ASSERT_TRUE(this->seek(1000.0));
    EXPECT_TRUE(this->until([&] { return this->state().hasEnded; }));
    EXPECT_FALSE(this->state().isPaused);
}

TYPED_TEST_P(PlaybackContract, NewestOfManySeeksWins) {
    ASSERT_TRUE(this->open(0.0));
    for (const double time : {1.0, 5.0, 2.5, 4.0}) {
        this->playback().seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(this->state().isSeeking);
    }
    ASSERT_TRUE(this->until([&] { return !this->state().isSeeking; }));
    EXPECT_TRUE(this->until([&] { return this->isAt(4.0); })) << this->position();
}

// Holding

TYPED_TEST_P(PlaybackContract, HeldFilmStandsStillAndGoesOnUnpaused) {
    ASSERT_TRUE(this->open(1.0));
    this->playback().play();
    ASSERT_TRUE(this->until([&] { return this->position() > 1.1; }));
    this->playback().setHeld(true);
    ASSERT_TRUE(this->seek(3.0));
    ASSERT_TRUE(this->until([&] { return this->isAt(3.0); }));
    EXPECT_FALSE(this->state().isPaused);
    this->wait(0.4);
    EXPECT_TRUE(this->isAt(3.0)) << this->position();
    EXPECT_FALSE(this->state().isPaused);
    this->playback().setHeld(false);
    EXPECT_FALSE(this->state().isPaused);
    EXPECT_TRUE(this->until([&] { return this->position() > 3.2; }));
    EXPECT_FALSE(this->state().isPaused);
}

TYPED_TEST_P(PlaybackContract, PausedFilmThatWasHeldIsPausedAfterwards) {
    ASSERT_TRUE(this->open(3.0));
    this->playback().setHeld(true);
    EXPECT_TRUE(this->state().isPaused);
    this->playback().setHeld(false);
    this->wait(0.3);
    EXPECT_TRUE(this->state().isPaused);
    EXPECT_TRUE(this->isAt(3.0)) << this->position();
}

TYPED_TEST_P(PlaybackContract, PlayAndPauseWhileHeldAreForAfterwards) {
    ASSERT_TRUE(this->open(1.0));
    this->playback().setHeld(true);
    this->playback().play();
    EXPECT_FALSE(this->state().isPaused);
    this->wait(0.3);
    EXPECT_TRUE(this->isAt(1.0)) << this->position();
    this->playback().setHeld(false);
    ASSERT_TRUE(this->until([&] { return this->position() > 1.2; }));
    this->playback().setHeld(true);
    this->playback().pause();
    EXPECT_TRUE(this->state().isPaused);
    this->playback().setHeld(false);
    this->wait(0.6);
    const double place = this->position();
    this->wait(0.3);
    EXPECT_EQ(this->position(), place);
    EXPECT_TRUE(this->state().isPaused);
}

// Settings

TYPED_TEST_P(PlaybackContract, VolumeMuteAndSpeedAreReadableAtOnceAndStay) {
    ASSERT_TRUE(this->open(0.0));
    this->playback().setVolume(0.35);
    this->playback().setMuted(true);
    this->playback().setSpeed(1.5);
    const auto isAsAsked = [&] {
        return std::abs(this->state().volume - 0.35) < 1e-9 && this->state().isMuted &&
               this->state().speed == 1.5;
    };
    EXPECT_TRUE(isAsAsked());
    this->wait(0.3);
    EXPECT_TRUE(isAsAsked());
    this->playback().setMuted(false);
    EXPECT_FALSE(this->state().isMuted);
}

TYPED_TEST_P(PlaybackContract, VolumeIsCutToItsRange) {
    this->playback().setVolume(7.0);
    EXPECT_EQ(this->state().volume, 1.0);
    this->playback().setVolume(-1.0);
    EXPECT_EQ(this->state().volume, 0.0);
}

TYPED_TEST_P(PlaybackContract, OneTrackOfAKindIsChosenOrNone) {
    this->subject.openTracks();
    ASSERT_TRUE(this->until([&] { return this->isReady() && !this->chosen(TrackKind::Audio).empty(); }));
    this->playback().selectTrack(TrackKind::Audio, 2);
    this->playback().selectTrack(TrackKind::Subtitle, 1);
    using Chosen = std::vector<std::int64_t>;
    EXPECT_TRUE(this->until([&] {
        return this->chosen(TrackKind::Audio) == Chosen{2} && this->chosen(TrackKind::Subtitle) == Chosen{1};
    }));
    this->playback().selectTrack(TrackKind::Subtitle, std::nullopt);
    EXPECT_TRUE(this->until([&] { return this->chosen(TrackKind::Subtitle).empty(); }));
    EXPECT_EQ(this->chosen(TrackKind::Audio), Chosen{2});
    this->playback().selectTrack(TrackKind::Audio, std::nullopt);
    EXPECT_TRUE(this->until([&] { return this->chosen(TrackKind::Audio).empty(); }));
}

// The change handler

TYPED_TEST_P(PlaybackContract, EachChangeIsTold) {
    ASSERT_TRUE(this->open(0.0));
    this->playback().play();
    ASSERT_TRUE(this->until([&] { return this->position() > 0.3; }));
    ASSERT_TRUE(this->seek(4.0));
    this->playback().stepFrame(Direction::Forward);
    this->playback().setVolume(0.5);
    this->wait(0.3);
    this->playback().setSpeed(2.0);
    this->playback().play();
    ASSERT_TRUE(this->until([&] { return this->state().hasEnded; }));
    this->subject.openMissing(0.0);
    ASSERT_TRUE(this->until([&] { return this->state().error.has_value(); }));
    EXPECT_TRUE(this->isAllTold);
    this->subject.turn();
    EXPECT_TRUE(this->told && *this->told == this->state());
}

TYPED_TEST_P(PlaybackContract, CommandsAreToldOfAfterwardsAndNeverFromInsideThem) {
    ASSERT_TRUE(this->open(0.0));
    using Command = std::function<void(Playback&)>;
    for (const Command& command :
         {Command([](Playback& film) { film.play(); }), Command([](Playback& film) { film.pause(); }),
          Command([](Playback& film) { film.seek(2.0, SeekPrecision::Exact); }),
          Command([](Playback& film) { film.stepFrame(Direction::Forward); }),
          Command([](Playback& film) { film.setVolume(0.25); }),
          Command([](Playback& film) { film.setMuted(true); }),
          Command([](Playback& film) { film.setSpeed(0.5); }),
          Command([](Playback& film) { film.seek(9.0, SeekPrecision::Exact); })}) {
        const int before = this->changes;
        command(this->playback());
        EXPECT_EQ(this->changes, before);
        EXPECT_TRUE(this->until([&] { return this->changes > before; }));
        ASSERT_TRUE(this->until([&] { return !this->state().isSeeking; }));
    }
    this->subject.open(0.0);
    const int before = this->changes;
    this->playback().cancelOpening();
    this->playback().retry();
    EXPECT_EQ(this->changes, before);
}

TYPED_TEST_P(PlaybackContract, HandlerThatWasTakenAwayIsNeverCalled) {
    ASSERT_TRUE(this->open(0.0));
    this->playback().setVolume(0.5);
    this->playback().setChangeHandler(nullptr);
    this->told.reset();
    this->playback().play();
    ASSERT_TRUE(this->until([&] { return this->position() > 0.3; }));
    EXPECT_FALSE(this->told);
}

TYPED_TEST_P(PlaybackContract, HandlerMayReplaceItselfOrTakeItselfAway) {
    ASSERT_TRUE(this->open(0.0));
    this->told.reset();
    int first = 0;
    int second = 0;
    const auto last = std::make_shared<std::string>("still there after it was replaced");
    std::string read;
    this->playback().setChangeHandler([&, text = last] {
        ++first;
        this->playback().setChangeHandler([&] {
            ++second;
            this->playback().setChangeHandler(nullptr);
        });
        read = *text;
    });
    this->playback().play();
    ASSERT_TRUE(this->until([&] { return this->position() > 0.3; }));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
    EXPECT_EQ(read, *last);
    EXPECT_EQ(last.use_count(), 1);
}

TYPED_TEST_P(PlaybackContract, HandlerMayGiveCommands) {
    ASSERT_TRUE(this->open(1.0));
    int calls = 0;
    this->told.reset();
    this->playback().setChangeHandler([&] {
        ++calls;
        if (calls == 1) {
            const int before = calls;
            this->playback().pause();
            this->playback().seek(4.0, SeekPrecision::Exact);
            EXPECT_EQ(calls, before);
        }
    });
    this->playback().play();
    EXPECT_TRUE(this->until([&] { return !this->state().isSeeking && this->isAt(4.0); }));
    EXPECT_TRUE(this->state().isPaused);
    EXPECT_GT(calls, 1);
}

REGISTER_TYPED_TEST_SUITE_P(
    PlaybackContract, FilmThatIsBeingOpenedWaitsForItsFirstPicture,
    SeekBeforeAnythingIsKnownOfTheFilmDoesNothing, FilmIsPlayedAsSoonAsItIsOpenIfThatWasAskedForBefore,
    OpeningThatIsCancelledIsAnErrorAtOnceThatCanBeTriedAgain, CancellingNoOpeningLeavesTheFilmAlone,
    FilmThatIsMissingIsAnErrorUntilATryFindsIt, FilmThatCannotBePlayedGoesNowhere,
    PausedFilmStandsStillAndGoesOnWhereItWas, FilmEndsOnItsLastPictureAndNobodyPausedIt,
    PlayAtTheEndStartsAnew, SeekFromTheEndGoesOnFromThere, StepPausesAndShowsTheNextPictureOrTheOneBefore,
    ExactSeekShowsTheTimeAskedFor, KeyFrameSeekShowsAKeyFrameNearby, SeekOutsideTheFilmIsCutToIt,
    FilmAtPlayThatIsSentBeyondItsEndEnds, NewestOfManySeeksWins, HeldFilmStandsStillAndGoesOnUnpaused,
    PausedFilmThatWasHeldIsPausedAfterwards, PlayAndPauseWhileHeldAreForAfterwards,
    VolumeMuteAndSpeedAreReadableAtOnceAndStay, VolumeIsCutToItsRange, OneTrackOfAKindIsChosenOrNone,
    EachChangeIsTold, CommandsAreToldOfAfterwardsAndNeverFromInsideThem, HandlerThatWasTakenAwayIsNeverCalled,
    HandlerMayReplaceItselfOrTakeItselfAway, HandlerMayGiveCommands);

} // namespace KivUICore::Overlay
