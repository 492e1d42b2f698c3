#include "Player/Overlay/Menus/FilmMenus.h"

#include "Tests/Overlay/Film/FakePlayback.h"

#include <gtest/gtest.h>

namespace KivUICore::Overlay {

namespace {

using Story = std::vector<std::string>;

class FilmMenusTest : public testing::Test {
protected:
    /// The lines of a menu, the current ones with a star.
    Story lines(MenuKind kind) const {
        Story lines;
        for (const MenuEntry& entry : menus.entries(kind)) {
            lines.push_back((entry.isCurrent ? "*" : "") + entry.text);
        }
        return lines;
    }

    Story choose(MenuKind kind, std::size_t row) {
        menus.entries(kind).at(row).choose();
        return playback.takeStory();
    }

    FakePlayback playback;
    FilmCommands film{playback};
    FilmMenus menus{playback, film};
};

TEST_F(FilmMenusTest, MainMenuLeadsToWhatThereIsToChoose) {
    EXPECT_EQ(lines(MenuKind::Main), (Story{"Speed"}));
    playback.now.tracks = {{TrackKind::Audio, 1, "English", true}};
    EXPECT_EQ(lines(MenuKind::Main), (Story{"Speed", "Audio track"}));
    playback.now.tracks.push_back({TrackKind::Subtitle, 1, "Deutsch", false});
    playback.now.chapters = {{0.0, "Opening"}};
    EXPECT_EQ(lines(MenuKind::Main), (Story{"Speed", "Audio track", "Subtitles", "Chapters"}));
    EXPECT_EQ(menus.entries(MenuKind::Main)[2].opens, MenuKind::Subtitles);
}

TEST_F(FilmMenusTest, SpeedsGoFromAQuarterToTwice) {
    EXPECT_EQ(lines(MenuKind::Speed),
              (Story{"0.25×", "0.5×", "0.75×", "*Normal", "1.25×", "1.5×", "1.75×", "2×"}));
    EXPECT_EQ(choose(MenuKind::Speed, 0), Story{"speed 0.25"});
    EXPECT_EQ(choose(MenuKind::Speed, 7), Story{"speed 2"});
    EXPECT_EQ(lines(MenuKind::Speed).back(), "*2×");
}

TEST_F(FilmMenusTest, SpeedThatSomethingElseSetIsNoneOfThese) {
    playback.now.speed = 1.1;
    for (const std::string& line : lines(MenuKind::Speed)) {
        EXPECT_NE(line.front(), '*');
    }
}

TEST_F(FilmMenusTest, AudioTracksAreThoseOfTheFilm) {
    playback.now.tracks = {{TrackKind::Audio, 1, "English", false},
                           {TrackKind::Subtitle, 1, "English", true},
                           {TrackKind::Audio, 5, "العربية", true}};
    EXPECT_EQ(lines(MenuKind::AudioTracks), (Story{"English", "*العربية"}));
    EXPECT_EQ(choose(MenuKind::AudioTracks, 1), Story{"audio 5"});
}

TEST_F(FilmMenusTest, SubtitlesCanBeSwitchedOff) {
    playback.now.tracks = {{TrackKind::Subtitle, 3, "中文", true}};
    EXPECT_EQ(lines(MenuKind::Subtitles), (Story{"Off", "*中文"}));
    EXPECT_EQ(choose(MenuKind::Subtitles, 0), Story{"subtitle off"});
    EXPECT_EQ(choose(MenuKind::Subtitles, 1), Story{"subtitle 3"});
    playback.now.tracks.front().isSelected = false;
    EXPECT_EQ(lines(MenuKind::Subtitles), (Story{"*Off", "中文"}));
}

TEST_F(FilmMenusTest, ChaptersGoToTheirStartExactly) {
    playback.now.chapters = {{0.0, "Opening"}, {10.0, ""}, {25.0, "End"}};
    playback.now.position = 12.0;
    EXPECT_EQ(lines(MenuKind::Chapters), (Story{"Opening", "*Chapter 2", "End"}));
    EXPECT_EQ(choose(MenuKind::Chapters, 2), Story{"exact 25"});
    EXPECT_EQ(lines(MenuKind::Chapters), (Story{"Opening", "Chapter 2", "*End"}));
}

TEST_F(FilmMenusTest, NoChapterIsCurrentBeforeTheFirst) {
    playback.now.chapters = {{5.0, "Opening"}};
    EXPECT_EQ(lines(MenuKind::Chapters), Story{"Opening"});
}

TEST_F(FilmMenusTest, TellsOnceOfEachChangeThatEntriesMayHave) {
    const auto tellsOnce = [this] { return menus.playbackDidChange() && !menus.playbackDidChange(); };
    EXPECT_FALSE(menus.playbackDidChange());
    playback.now.speed = 2.0;
    EXPECT_TRUE(tellsOnce());
    playback.now.tracks = {{TrackKind::Audio, 1, "English", false}};
    EXPECT_TRUE(tellsOnce());
    playback.now.tracks.front().isSelected = true;
    EXPECT_TRUE(tellsOnce());
    playback.now.chapters = {{0.0, "Opening"}, {10.0, "End"}};
    EXPECT_TRUE(tellsOnce());
    playback.now.audioDevices = {{"a", "Speakers", true}};
    EXPECT_TRUE(tellsOnce());
    playback.now.position = 9.0;
    EXPECT_FALSE(menus.playbackDidChange());
    playback.now.position = 10.0;
    EXPECT_TRUE(tellsOnce());
    playback.now.isPaused = true;
    EXPECT_FALSE(menus.playbackDidChange());
}

} // namespace

} // namespace KivUICore::Overlay
