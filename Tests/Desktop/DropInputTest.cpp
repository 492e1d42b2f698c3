#include "Hosts/Desktop/DropInput.h"

#include <SDL_stdinc.h>
#include <gtest/gtest.h>

namespace Desktop {

namespace {

SDL_DropEvent drop(Uint32 type, const char* text = nullptr) {
    SDL_DropEvent event{};
    event.type = type;
    event.file = text ? SDL_strdup(text) : nullptr;
    return event;
}

TEST(DropInput, FirstOfSeveralFilesIsTheOne) {
    DropInput input;
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a b/ä.mkv")), "/a b/ä.mkv");
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/c.mkv")), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/d.mkv")), "/d.mkv");
}

TEST(DropInput, TextIsNoFile) {
    DropInput input;
    EXPECT_EQ(input.handle(drop(SDL_DROPTEXT, "words")), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a.mkv")), "/a.mkv");
}

TEST(DropInput, FileWithoutANameIsNone) {
    DropInput input;
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a.mkv")), "/a.mkv");
}

} // namespace

} // namespace Desktop
