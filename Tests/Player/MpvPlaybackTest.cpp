#include "Player/Overlay/Film/FilmCommands.h"
#include "Tests/Player/Films.h"
#include "Tests/Player/MpvSocket.h"
#include "Tests/Player/PlaybackRun.h"
#include "Tests/Player/StubbornServer.h"

#include <chrono>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace KivUICore::Player {

namespace {

namespace fs = std::filesystem;

using Overlay::Direction;
using Overlay::SeekPrecision;
using Overlay::TrackKind;
using testing::ElementsAre;

constexpr double frame = 1.0 / 30.0;

TEST(MpvPlayback, TellsWhatAFilmIs) {
    PlaybackRun run;
    EXPECT_TRUE(run.state().isPaused);
    EXPECT_FALSE(run.state().isWaiting);
    run.playback.open(Films::sample().string(), 3.0);
    EXPECT_TRUE(run.state().isWaiting);
    EXPECT_EQ(run.state().title, "sample.mkv");
    EXPECT_EQ(run.state().position, 3.0);
    EXPECT_FALSE(run.state().duration);
    ASSERT_TRUE(run.until([&] { return !run.state().isWaiting && run.state().duration; }));
    EXPECT_NEAR(*run.state().duration, 12.0, 0.1);
    EXPECT_NEAR(run.state().position, 3.0, frame);
    EXPECT_TRUE(run.state().isPaused);
    EXPECT_FALSE(run.state().hasEnded);
    EXPECT_FALSE(run.state().error);
    EXPECT_EQ(run.state().volume, 1.0);
    EXPECT_FALSE(run.state().isMuted);
    EXPECT_EQ(run.state().speed, 1.0);
}

TEST(MpvPlayback, FilmOnAServerIsNamedWithoutPasswordAndKey) {
    std::ifstream film(Films::sparse(), std::ios::binary);
    const StubbornServer server(httpAnswer("200 OK", {std::istreambuf_iterator<char>(film), {}}));
    for (const auto& [file, name] : {std::pair("a%20film.mkv?key=hidden", "a film.mkv"),
                                     std::pair("", "127.0.0.1"), std::pair("?key=hidden", "127.0.0.1")}) {
        std::string url = server.url(file);
        url.insert(url.find("127"), "user:hidden@");
        PlaybackRun run;
        run.playback.open(url, 0.0);
        EXPECT_THAT(run.state().title, testing::StartsWith(name));
        ASSERT_TRUE(run.until([&] { return run.playback.isAtStart() || run.state().error; }));
        EXPECT_FALSE(run.state().error);
        EXPECT_THAT(run.state().title, testing::StartsWith(name));
        EXPECT_THAT(run.state().title, testing::Not(testing::HasSubstr("hidden")));
    }
}

TEST(MpvPlayback, PlaysAndPauses) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    run.playback.play();
    EXPECT_TRUE(run.until([&] { return !run.state().isPaused && run.state().position > 0.3; }));
    run.playback.pause();
    EXPECT_TRUE(run.until([&] { return run.state().isPaused; }));
}

TEST(MpvPlayback, HeldFilmStandsStillAndIsNotPaused) {
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(Films::sample().string()));
    ASSERT_TRUE(run.until([&] { return run.state().position > 0.2; }));
    run.playback.setHeld(true);
    ASSERT_TRUE(run.until([&] { return run.playback.client().flag("pause").value_or(false); }));
    run.playback.seek(5.0, SeekPrecision::Exact);
    ASSERT_TRUE(run.until([&] { return std::abs(run.state().position - 5.0) < frame; }));
    EXPECT_FALSE(run.state().isPaused);
    EXPECT_FALSE(
        run.until([&] { return run.state().position > 5.0 + frame; }, std::chrono::milliseconds(500)));
    run.playback.setHeld(false);
    EXPECT_TRUE(run.until([&] {
        EXPECT_FALSE(run.state().isPaused);
        return run.state().position > 5.2;
    }));
}

TEST(MpvPlayback, ViewerPausesAFilmThatIsHeldForAfterwards) {
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(Films::sample().string()));
    for (const bool isPaused : {true, false, true}) {
        run.playback.setHeld(true);
        if (isPaused) {
            run.playback.pause();
        } else {
            run.playback.play();
        }
        EXPECT_EQ(run.state().isPaused, isPaused);
        EXPECT_TRUE(run.until([&] { return run.playback.client().flag("pause") == true; }));
        run.playback.setHeld(false);
        EXPECT_TRUE(run.until([&] {
            EXPECT_EQ(run.state().isPaused, isPaused);
            return run.playback.client().flag("pause") == isPaused;
        }));
    }
    run.playback.play();
    EXPECT_TRUE(run.until([&] { return run.playback.client().flag("pause") == false; }));
    EXPECT_TRUE(run.until([&] { return !run.state().isPaused; }));
}

TEST(MpvPlayback, ExactSeekShowsTheTimeAskedFor) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    for (const double time : {7.25, 2.5, 11.0, 0.0}) {
        run.playback.seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(run.state().isSeeking);
        EXPECT_TRUE(run.state().isWaiting);
        ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; })) << time;
        EXPECT_FALSE(run.state().isWaiting);
        EXPECT_TRUE(run.until([&] { return std::abs(run.state().position - time) < frame; }))
            << time << " " << run.state().position;
        EXPECT_TRUE(run.state().isPaused);
    }
}

TEST(MpvPlayback, KeyFrameSeekStopsAtAKeyFrame) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sparse().string()));
    run.playback.seek(3.9, SeekPrecision::KeyFrame);
    ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; }));
    // Until libmpv tells of the place reached, it is the one asked for.
    EXPECT_TRUE(run.until([&] { return std::abs(run.state().position - 2.0) < frame; }))
        << run.state().position;
}

TEST(MpvPlayback, SeekThatFollowsAnotherEndsWithTheNewest) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    for (const double time : {2.0, 9.0, 4.0, 10.5, 6.0}) {
        run.playback.seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(run.state().isSeeking);
        run.turn();
        // On a machine that is busy the film may have arrived in the meantime.
        if (!run.state().isSeeking) {
            run.playback.refresh();
            EXPECT_NEAR(run.state().position, time, frame);
        }
    }
    ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; }));
    EXPECT_TRUE(run.until([&] { return std::abs(run.state().position - 6.0) < frame; }));
}

TEST(MpvPlayback, SeekOutsideTheFilmIsCutToIt) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string(), 5.0));
    for (const double time : {1000.0, std::numeric_limits<double>::infinity()}) {
        run.playback.seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(run.until([&] { return !run.state().isSeeking && run.state().position > 11.8; })) << time;
    }
    for (const double time : {-5.0, std::numeric_limits<double>::quiet_NaN()}) {
        run.playback.seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(run.until([&] { return !run.state().isSeeking && run.state().position < frame; }))
            << time;
    }
}

TEST(MpvPlayback, SeekWithNothingToSeekInDoesNothing) {
    PlaybackRun run;
    run.playback.seek(3.0, SeekPrecision::Exact);
    EXPECT_FALSE(run.state().isSeeking);
    run.playback.open("/nowhere/film.mkv", 0.0);
    run.playback.seek(3.0, SeekPrecision::Exact);
    EXPECT_FALSE(run.state().isSeeking);
}

TEST(MpvPlayback, SeekWhileTheFilmIsBeingOpenedIsNeverStuck) {
    PlaybackRun run;
    run.playback.open(Films::sample().string(), 0.0);
    for (int count = 0; count < 20; ++count) {
        run.playback.seek(3.0 + count * 0.1, SeekPrecision::KeyFrame);
        run.turn();
    }
    EXPECT_TRUE(run.until([&] { return !run.state().isSeeking && !run.state().isWaiting; }));
}

TEST(MpvPlayback, WhatIsAskedOfAFilmThatIsBeingOpenedIsDoneOnceItIs) {
    const auto placeAfter = [](const std::function<void(Overlay::FilmCommands&)>& ask, double expected) {
        PlaybackRun run;
        Overlay::FilmCommands commands(run.playback);
        run.playback.setChangeHandler([&] { commands.playbackDidChange(); });
        run.playback.open(Films::sample().string(), 3.0);
        EXPECT_TRUE(run.state().isOpening);
        ask(commands);
        EXPECT_TRUE(run.until([&] {
            return !run.state().isSeeking && !run.state().isWaiting &&
                   std::abs(run.state().position - expected) < frame / 2.0;
        })) << run.state().position
            << " instead of " << expected;
        EXPECT_FALSE(run.state().isOpening);
    };
    placeAfter([](auto& commands) { commands.seekToFraction(0.0); }, 0.0);
    placeAfter([](auto& commands) { commands.seekBy(5.0), commands.seekBy(-1.0); }, 7.0);
    placeAfter([](auto& commands) { commands.stepFrame(Direction::Forward); }, 3.0 + frame);
    placeAfter([](auto& commands) { commands.stepFrame(Direction::Backward); }, 3.0 - frame);
    placeAfter([](auto& commands) { commands.seekBy(2.0), commands.stepFrame(Direction::Forward); },
               5.0 + frame);
}

TEST(MpvPlayback, SeeksInSoundAlone) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sound().string()));
    run.playback.seek(1.0, SeekPrecision::Exact);
    EXPECT_TRUE(
        run.until([&] { return !run.state().isSeeking && std::abs(run.state().position - 1.0) < 0.1; }));
    run.playback.seek(2.0, SeekPrecision::Exact);
    EXPECT_TRUE(run.until([&] { return !run.state().isSeeking; }));
}

TEST(MpvPlayback, SeekInAStreamIsNeverStuck) {
    const TemporaryFolder folder;
    const fs::path pipe = folder.path() / "pipe";
    Process writer(
        {"sh", "-c", "mkfifo \"$2\" && cat \"$1\" >\"$2\"", "sh", Films::sample().string(), pipe.string()});
    ASSERT_TRUE(eventually([&] { return fs::exists(pipe); }));
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(pipe.string()));
    for (const double time : {9.0, 1.0, 5.0}) {
        run.playback.seek(time, SeekPrecision::Exact);
        EXPECT_TRUE(run.until([&] { return !run.state().isSeeking; })) << time;
        const double now = run.state().position;
        EXPECT_TRUE(run.until([&] { return run.state().position != now || run.state().hasEnded; })) << time;
    }
}

TEST(MpvPlayback, FilmEndsOnItsLastPictureAndNobodyPausedIt) {
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(Films::sample().string(), 11.5));
    ASSERT_TRUE(run.until([&] { return run.state().hasEnded; }));
    EXPECT_FALSE(run.state().isPaused);
    // That the end is reached may be told before the place is.
    EXPECT_TRUE(run.until([&] {
        return !run.state().isWaiting && std::abs(run.state().position - 12.0) < 0.2;
    })) << run.state().position;
}

TEST(MpvPlayback, FilmThatIsSoughtFromItsEndToItsEndHasEndedAgain) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string(), 5.0));
    for (int count = 0; count < 10; ++count) {
        run.playback.seek(12.0, SeekPrecision::Exact);
        EXPECT_TRUE(run.state().isSeeking);
        EXPECT_FALSE(run.state().hasEnded);
        ASSERT_TRUE(run.until([&] { return run.state().hasEnded; })) << count;
    }
}

TEST(MpvPlayback, PlayAtTheEndStartsOver) {
    for (const auto start : {MpvPlayback::Start::Running, MpvPlayback::Start::Paused}) {
        PlaybackRun run(start);
        ASSERT_TRUE(run.open(Films::sample().string(), 5.0));
        run.playback.seek(12.0, SeekPrecision::Exact);
        ASSERT_TRUE(run.until([&] { return run.state().hasEnded; }));
        EXPECT_EQ(run.state().isPaused, start == MpvPlayback::Start::Paused);
        // Slow enough for its beginning to be seen on a machine that is busy.
        run.playback.setSpeed(0.25);
        run.playback.play();
        EXPECT_TRUE(run.state().isSeeking);
        EXPECT_FALSE(run.state().hasEnded);
        EXPECT_TRUE(run.until([&] {
            return !run.state().isSeeking && !run.state().isPaused && run.state().position > 0.2 &&
                   run.state().position < 3.0;
        }));
        EXPECT_FALSE(run.state().hasEnded);
    }
}

TEST(MpvPlayback, SeekFromTheEndGoesOnFromThere) {
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(Films::sample().string(), 11.5));
    ASSERT_TRUE(run.until([&] { return run.state().hasEnded; }));
    run.playback.seek(4.0, SeekPrecision::Exact);
    EXPECT_TRUE(run.until([&] { return !run.state().isSeeking && run.state().position > 4.3; }));
    EXPECT_FALSE(run.state().hasEnded);
}

TEST(MpvPlayback, StepsFromPictureToPicture) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string(), 3.0));
    const double before = run.state().position;
    for (int step = 1; step <= 3; ++step) {
        run.playback.stepFrame(Direction::Forward);
        bool wasAlwaysPaused = true;
        EXPECT_TRUE(run.until([&] {
            wasAlwaysPaused = wasAlwaysPaused && run.state().isPaused;
            return std::abs(run.state().position - before - step * frame) < frame / 4.0;
        })) << step
            << " " << run.state().position;
        EXPECT_TRUE(wasAlwaysPaused);
    }
    run.playback.stepFrame(Direction::Backward);
    EXPECT_TRUE(run.until([&] {
        return std::abs(run.state().position - before - 2.0 * frame) < frame / 4.0;
    })) << run.state().position;
}

TEST(MpvPlayback, StepWhilePlayingPauses) {
    PlaybackRun run(MpvPlayback::Start::Running);
    ASSERT_TRUE(run.open(Films::sample().string()));
    run.playback.stepFrame(Direction::Forward);
    EXPECT_TRUE(run.state().isPaused);
    ASSERT_TRUE(run.until([&] { return run.playback.client().flag("pause").value_or(false); }));
    run.playback.play();
    EXPECT_TRUE(run.until(
        [&] { return !run.state().isPaused && !run.playback.client().flag("pause").value_or(true); }));
}

TEST(MpvPlayback, StepAtTheLastPictureRestsThere) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string(), 11.9));
    bool wasAlwaysPaused = true;
    for (int step = 0; step < 6; ++step) {
        const double before = run.state().position;
        run.playback.stepFrame(Direction::Forward);
        ASSERT_TRUE(run.until([&] {
            wasAlwaysPaused = wasAlwaysPaused && run.state().isPaused;
            const bool isOver = run.state().hasEnded || run.state().position > before + frame / 2.0;
            return isOver && run.playback.client().flag("pause").value_or(false);
        })) << step;
    }
    EXPECT_TRUE(run.state().hasEnded);
    EXPECT_TRUE(wasAlwaysPaused);
    run.playback.seek(2.0, SeekPrecision::Exact);
    EXPECT_TRUE(run.until([&] { return !run.state().isSeeking; }));
    EXPECT_TRUE(run.playback.client().flag("pause").value_or(false));
    EXPECT_TRUE(run.state().isPaused);
}

TEST(MpvPlayback, VolumeMuteAndSpeedAreWhatWasAskedFor) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    run.playback.setVolume(0.35);
    run.playback.setMuted(true);
    run.playback.setSpeed(1.5);
    EXPECT_TRUE(run.until([&] {
        return std::abs(run.state().volume - 0.35) < 1e-9 && run.state().isMuted && run.state().speed == 1.5;
    }));
    EXPECT_TRUE(run.until([&] { return run.playback.client().number("volume") == 35; }));
    run.playback.setVolume(7.0);
    run.playback.setMuted(false);
    EXPECT_TRUE(run.until([&] { return run.state().volume == 1.0 && !run.state().isMuted; }));
    run.playback.setVolume(-1.0);
    EXPECT_TRUE(run.until([&] { return run.state().volume == 0.0; }));
}

TEST(MpvPlayback, FilmThatStartsMutedCanBeHeardLater) {
    PlaybackRun run(MpvPlayback::Settings{.start = MpvPlayback::Start::Paused, .isMuted = true});
    EXPECT_TRUE(run.state().isMuted);
    run.playback.setMuted(false);
    EXPECT_TRUE(run.until([&] { return !run.state().isMuted; }));
}

TEST(MpvPlayback, TellsTitleTracksAndChapters) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::manyTracks().string()));
    EXPECT_EQ(run.state().title, "Ein schöner Film 映画");
    EXPECT_THAT(run.state().tracks, ElementsAre(Overlay::Track{TrackKind::Audio, 1, "Комментарий", true},
                                                Overlay::Track{TrackKind::Audio, 2, "ger 2", false},
                                                Overlay::Track{TrackKind::Audio, 3, "Track 3", false},
                                                Overlay::Track{TrackKind::Subtitle, 1, "字幕", false},
                                                Overlay::Track{TrackKind::Subtitle, 2, "العربية", false},
                                                Overlay::Track{TrackKind::Subtitle, 3, "heb 3", false}));
    EXPECT_THAT(run.state().chapters,
                ElementsAre(Overlay::Chapter{0.0, "Öffnung"}, Overlay::Chapter{2.5, "終わり"}));
}

TEST(MpvPlayback, ChoosesTracks) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::manyTracks().string()));
    const auto selected = [&] {
        std::vector<std::pair<TrackKind, std::int64_t>> result;
        for (const Overlay::Track& track : run.state().tracks) {
            if (track.isSelected) {
                result.emplace_back(track.kind, track.identifier);
            }
        }
        return result;
    };
    using Selection = std::vector<std::pair<TrackKind, std::int64_t>>;
    run.playback.selectTrack(TrackKind::Audio, 2);
    run.playback.selectTrack(TrackKind::Subtitle, 1);
    EXPECT_TRUE(run.until([&] {
        return selected() == Selection{{TrackKind::Audio, 2}, {TrackKind::Subtitle, 1}};
    }));
    run.playback.selectTrack(TrackKind::Subtitle, {});
    run.playback.selectTrack(TrackKind::Audio, {});
    EXPECT_TRUE(run.until([&] { return selected().empty(); }));
}

TEST(MpvPlayback, RestingFilmHasNoNews) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    // The last properties come a little later than the picture, and not all at once. Each answer shows that
    // libmpv had the time to tell of them.
    constexpr int enough = 25;
    ASSERT_TRUE(run.until([&, last = -1, quiet = 0]() mutable {
        quiet = std::exchange(last, run.changes) == run.changes ? quiet + 1 : 0;
        return run.playback.client().flag("pause") && quiet == enough;
    }));
    const int before = run.changes;
    for (int count = 0; count < 10; ++count) {
        run.turn();
        pauseBriefly();
    }
    EXPECT_EQ(run.changes, before);
}

TEST(MpvPlayback, HandlerIsNeverCalledFromInsideACommand) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    const int before = run.changes;
    run.playback.seek(5.0, SeekPrecision::Exact);
    run.playback.play();
    run.playback.stepFrame(Direction::Forward);
    EXPECT_EQ(run.changes, before);
    run.turn();
    EXPECT_GT(run.changes, before);
}

TEST(MpvPlayback, SocketThatCannotBeMadeIsTold) {
    PlaybackRun run(MpvPlayback::Settings{.ipcServer = "/nowhere/socket"});
    EXPECT_TRUE(run.until([&] { return !run.notices.empty(); }));
    EXPECT_THAT(run.notices, ElementsAre("cannot be reached by other programs: Could not bind IPC socket"));
}

TEST(MpvPlayback, ProgramThatLeavesBeforeItsAnswerIsNoProblem) {
    const TemporaryFolder folder;
    MpvSocket socket(folder.path() / "socket");
    PlaybackRun run(MpvPlayback::Settings{.ipcServer = socket.path().string()});
    ASSERT_TRUE(socket.leaveBeforeTheAnswer("\"get_property\",\"pause\""));
    run.turn();
    EXPECT_THAT(run.notices, ElementsAre());
}

TEST(MpvPlayback, SocketGoesWithThePlaybackUnlessAnotherOneHasTakenItsPlace) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "socket").string();
    const auto isMuted = [&] { return MpvSocket(path).flag("mute"); };
    std::optional<PlaybackRun> first(std::in_place, MpvPlayback::Settings{.ipcServer = path});
    ASSERT_TRUE(eventually([&] { return isMuted() == false; }));
    std::optional<PlaybackRun> second(std::in_place,
                                      MpvPlayback::Settings{.isMuted = true, .ipcServer = path});
    ASSERT_TRUE(eventually([&] { return isMuted() == true; }));
    first.reset();
    EXPECT_EQ(isMuted(), true);
    second.reset();
    EXPECT_FALSE(fs::exists(path));
}

TEST(MpvPlayback, FileInPlaceOfTheSocketStays) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "socket";
    {
        PlaybackRun run(MpvPlayback::Settings{.ipcServer = file.string()});
        ASSERT_TRUE(eventually([&] { return MpvSocket(file).flag("pause").has_value(); }));
        fs::remove(file);
        std::ofstream(file) << "precious\n";
    }
    EXPECT_EQ(fs::file_size(file), 9U);
}

TEST(MpvPlayback, FilmThatAnotherProgramOpensIsToldUnderItsOwnName) {
    const TemporaryFolder folder;
    const fs::path film = folder.path() / "late.mkv";
    MpvSocket socket(folder.path() / "socket");
    PlaybackRun run(
        MpvPlayback::Settings{.start = MpvPlayback::Start::Paused, .ipcServer = socket.path().string()});
    ASSERT_TRUE(run.open(Films::sparse().string(), 3.0));
    const auto load = [&](const std::string& path) {
        return socket.command("\"loadfile\",\"" + path + "\"");
    };
    ASSERT_TRUE(load(film.string()));
    ASSERT_TRUE(run.until([&] { return run.state().error.has_value(); }));
    EXPECT_EQ(run.error(), "cannot play '" + film.string() + "': no such file");
    EXPECT_EQ(run.state().title, "late.mkv");
    fs::copy_file(Films::sample(), film);
    run.playback.retry();
    EXPECT_TRUE(run.until([&] { return run.state().title == "Sample clip" && !run.state().isWaiting; }));
    EXPECT_FALSE(run.state().error);
    ASSERT_TRUE(load("/nowhere/film.mkv"));
    ASSERT_TRUE(run.until([&] { return run.state().error.has_value(); }));
    ASSERT_TRUE(load(Films::manyTracks().string()));
    EXPECT_TRUE(
        run.until([&] { return run.state().title == "Ein schöner Film 映画" && !run.state().isWaiting; }));
    EXPECT_FALSE(run.state().error);
}

TEST(MpvPlayback, UnplayableFilmIsAnErrorThatCanBeTriedAgain) {
    const TemporaryFolder folder;
    const fs::path film = folder.path() / "late.mkv";
    PlaybackRun run;
    run.playback.open(film.string(), 4.0);
    run.turn();
    EXPECT_EQ(run.error(), "cannot play '" + film.string() + "': no such file");
    EXPECT_FALSE(run.state().isWaiting);
    EXPECT_EQ(run.state().title, "late.mkv");
    run.playback.retry();
    EXPECT_TRUE(run.state().error);
    fs::copy_file(Films::sample(), film);
    run.playback.retry();
    EXPECT_FALSE(run.state().error);
    EXPECT_TRUE(
        run.until([&] { return !run.state().isWaiting && std::abs(run.state().position - 4.0) < frame; }));
    EXPECT_TRUE(run.notices.empty());
}

TEST(MpvPlayback, AnotherFilmTakesOver) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::manyTracks().string(), 3.0));
    run.playback.exchange(Films::sample().string());
    EXPECT_TRUE(run.until([&] {
        return run.state().title == "Sample clip" && !run.state().isWaiting && run.state().position > 0.1;
    }));
    EXPECT_NEAR(run.state().duration.value_or(0.0), 12.0, 0.1);
    EXPECT_EQ(run.state().chapters.size(), 4U);
    EXPECT_FALSE(run.state().isPaused);
    EXPECT_TRUE(run.notices.empty());
}

TEST(MpvPlayback, PlaceThatIsReachedIsAnotherScene) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::white().string()));
    for (const double time : {2.0, 4.0}) {
        const int before = run.playback.scene();
        run.playback.seek(time, SeekPrecision::Exact);
        ASSERT_TRUE(run.until([&] { return !run.state().isSeeking; }));
        EXPECT_GT(run.playback.scene(), before);
    }
}

TEST(MpvPlayback, PictureGoesWithItsFilm) {
    const TemporaryFolder folder;
    MpvSocket socket(folder.path() / "socket");
    PlaybackRun run(
        MpvPlayback::Settings{.start = MpvPlayback::Start::Paused, .ipcServer = socket.path().string()});
    const auto shows = [&](int brightness) {
        return run.until([&] {
            cairo_surface_mark_dirty(run.pixels.surface());
            const Cairo::PixelBuffer buffer = run.pixels.buffer();
            const unsigned char* row = buffer.pixels + 90 * buffer.stride;
            return std::abs(row[4 * 160] - brightness) < 3;
        });
    };
    for (const std::string& next : {Films::sound().string(), std::string("/nowhere/film.mkv")}) {
        ASSERT_TRUE(run.open(Films::white().string()));
        EXPECT_TRUE(shows(255));
        run.playback.open(next, 0.0);
        EXPECT_TRUE(shows(0)) << next;
        ASSERT_TRUE(run.open(Films::white().string()));
        EXPECT_TRUE(shows(255));
        ASSERT_TRUE(socket.command("\"loadfile\",\"" + next + "\""));
        EXPECT_TRUE(shows(0)) << next << " by another program";
    }
}

TEST(MpvPlayback, SameFilmAgainIsKnownInFullAgain) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::manyTracks().string()));
    const Overlay::PlaybackState first = run.state();
    ASSERT_TRUE(run.open(Films::manyTracks().string()));
    EXPECT_EQ(run.state().title, first.title);
    EXPECT_EQ(run.state().duration, first.duration);
    EXPECT_EQ(run.state().tracks, first.tracks);
    EXPECT_EQ(run.state().chapters, first.chapters);
}

TEST(MpvPlayback, OtherFilmThatCannotBePlayedLosesNothing) {
    const TemporaryFolder folder;
    const fs::path text = folder.path() / "text.mkv";
    std::ofstream(text) << "no film at all\n";
    const fs::path cut = Films::cut(Films::sample(), 3000, "cut.mkv");
    for (const auto start : {MpvPlayback::Start::Paused, MpvPlayback::Start::Running}) {
        PlaybackRun run(start);
        ASSERT_TRUE(run.open(Films::sample().string(), 2.0));
        for (const auto& [film, reason] : {std::pair(folder.path() / "none.mkv", "no such file"),
                                           std::pair(text, "it is no film or sound that can be recognised"),
                                           std::pair(cut, "nothing in it can be decoded")}) {
            const double before = run.state().position;
            run.notices.clear();
            run.playback.exchange(film.string());
            bool isUndisturbed = true;
            ASSERT_TRUE(run.until([&] {
                isUndisturbed = isUndisturbed && !run.state().isWaiting && run.state().title == "Sample clip";
                return !run.notices.empty();
            }));
            EXPECT_THAT(run.notices, ElementsAre("cannot play '" + film.string() + "': " + reason));
            EXPECT_TRUE(isUndisturbed);
            EXPECT_EQ(run.state().isPaused, start == MpvPlayback::Start::Paused);
            EXPECT_FALSE(run.state().error);
            EXPECT_GE(run.state().position, before);
            EXPECT_LT(run.state().position, 11.0);
        }
        if (start == MpvPlayback::Start::Running) {
            const double now = run.state().position;
            EXPECT_TRUE(run.until([&] { return run.state().position > now + 0.1; }));
        }
    }
}

TEST(MpvPlayback, SubtitlesAreAddedToTheFilmAndChosen) {
    const TemporaryFolder folder;
    const fs::path subtitles = folder.path() / "lines.srt";
    std::ofstream(subtitles) << "1\n00:00:00,000 --> 00:00:12,000\nHello\n";
    PlaybackRun run;
    std::vector<std::string> news;
    run.playback.setNewsHandler([&news](const std::string& text) { news.push_back(text); });
    ASSERT_TRUE(run.open(Films::sample().string(), 3.0));
    const std::size_t before = run.state().tracks.size();
    run.playback.exchange(subtitles.string());
    EXPECT_TRUE(run.until([&] { return !news.empty() && run.state().tracks.size() == before + 1; }));
    EXPECT_THAT(news, ElementsAre("Subtitles: lines.srt"));
    EXPECT_EQ(run.state().tracks.back().kind, TrackKind::Subtitle);
    EXPECT_TRUE(run.until([&] { return run.state().tracks.back().isSelected; }));
    EXPECT_NEAR(run.state().position, 3.0, frame);
    EXPECT_TRUE(run.notices.empty());
}

TEST(MpvPlayback, SubtitlesThatCannotBeShownLeaveTheFilmAlone) {
    const TemporaryFolder folder;
    const fs::path broken = folder.path() / "broken.vtt";
    std::ofstream(broken) << "no subtitles at all\n";
    const std::string missing = (folder.path() / "missing.ass").string();
    PlaybackRun run;
    run.playback.open(Films::sample().string(), 0.0);
    run.playback.exchange(broken.string());
    ASSERT_TRUE(run.until([&] { return run.playback.isAtStart(); }));
    run.playback.exchange(missing);
    run.playback.exchange(broken.string());
    EXPECT_TRUE(run.until([&] { return run.notices.size() == 3; }));
    const std::string cannot = "cannot show the subtitles '";
    EXPECT_THAT(run.notices,
                ElementsAre(cannot + broken.string() + "': the film is not there yet",
                            cannot + missing + "': no such file",
                            cannot + broken.string() + "': there are none in it that can be read"));
    EXPECT_FALSE(run.state().error);
}

TEST(MpvPlayback, NameOfTheFilmThatIsTriedOutIsKnownUntilThatIsOver) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    EXPECT_FALSE(run.state().nextFilm);
    run.playback.exchange("/nowhere/film.mkv");
    EXPECT_EQ(run.state().nextFilm, "film.mkv");
    run.turn();
    EXPECT_FALSE(run.state().nextFilm);
    run.playback.exchange(Films::sparse().string());
    EXPECT_EQ(run.state().nextFilm, "sparse.mkv");
    EXPECT_TRUE(run.until([&] { return !run.state().nextFilm; }));
    EXPECT_EQ(run.state().title, "sparse.mkv");
}

TEST(MpvPlayback, NewestOfManyFilmsWins) {
    PlaybackRun run;
    ASSERT_TRUE(run.open(Films::sample().string()));
    run.playback.exchange(Films::sparse().string());
    run.playback.exchange("/nowhere/film.mkv");
    run.playback.exchange(Films::manyTracks().string());
    EXPECT_TRUE(run.until([&] { return run.state().title == "Ein schöner Film 映画"; }));
    EXPECT_TRUE(run.notices.empty());
}

TEST(MpvPlayback, FilmInPlaceOfAnUnplayableOneIsOpenedAtOnce) {
    PlaybackRun run;
    run.playback.open("/nowhere/film.mkv", 0.0);
    run.turn();
    ASSERT_TRUE(run.state().error);
    run.playback.exchange("/nowhere/other.mkv");
    EXPECT_EQ(run.error(), "cannot play '/nowhere/other.mkv': no such file");
    run.playback.exchange(Films::sample().string());
    EXPECT_TRUE(run.until([&] { return !run.state().error && run.state().position > 0.1; }));
}

} // namespace

} // namespace KivUICore::Player
