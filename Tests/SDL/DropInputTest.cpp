#include "Hosts/SDL/DropInput.h"

#include <SDL_stdinc.h>
#include <gtest/gtest.h>

namespace KivUICore::SDL {

namespace {

SDL_DropEvent drop(Uint32 type, const char* text = nullptr) {
    SDL_DropEvent event{};
    event.type = type;
    event.file = text ? SDL_strdup(text) : nullptr;
    return event;
}

DropInput withoutAddresses() {
    return DropInput([] { return std::string(); });
}

TEST(DropInput, FirstOfSeveralFilesIsTheOne) {
    DropInput input = withoutAddresses();
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a b/ä.mkv")), "/a b/ä.mkv");
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/c.mkv")), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/d.mkv")), "/d.mkv");
}

TEST(DropInput, FirstLineOfATextIsTakenWithoutItsBlanks) {
    DropInput input = withoutAddresses();
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPTEXT, " \r\n")), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPTEXT, " https://films.example/a.mkv\r\n")),
              "https://films.example/a.mkv");
    EXPECT_EQ(input.handle(drop(SDL_DROPTEXT, "A film")), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), std::nullopt);
}

TEST(DropInput, AddressThatIsNoFileOfThisMachineIsTakenFromTheList) {
    std::string list = "# films\r\nwords\r\nhttps://films.example/a.mkv\r\nhttps://films.example/b.mkv\r\n";
    DropInput input([&list] { return list; });
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), "https://films.example/a.mkv");
    EXPECT_EQ(input.handle(drop(SDL_DROPBEGIN)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a.mkv")), "/a.mkv");
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), std::nullopt) << "the list is of what was taken";
    list = "# nothing\r\n";
    EXPECT_EQ(input.handle(drop(SDL_DROPCOMPLETE)), std::nullopt);
}

TEST(DropInput, FileWithoutANameIsNone) {
    DropInput input = withoutAddresses();
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE)), std::nullopt);
    EXPECT_EQ(input.handle(drop(SDL_DROPFILE, "/a.mkv")), "/a.mkv");
}

} // namespace

} // namespace KivUICore::SDL
