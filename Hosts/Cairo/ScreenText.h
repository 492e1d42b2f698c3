#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace KivUICore::Cairo {

/// What comes from a film or another program can be of any length and no text at all. These make of it what
/// can be set in a time that a viewer doesn't notice. Characters are counted as a reader counts them: a
/// letter with its accents, a flag or a family of one picture is one, and is never cut in two. A character of
/// more code points than any language writes loses the rest of them.

/// More of a text than this is never looked at.
constexpr std::size_t mostTextBytes = 16384;

/// The first `mostCharacters` of `text`, as valid UTF-8; with an ellipsis behind them where more follow.
std::string beginningOf(std::string_view text, std::size_t mostCharacters);

/// `text` as one line for a title or an entry of a list: what breaks lines and what isn't printed becomes a
/// space, of spaces that follow each other one stays, and nothing in it turns the order of what stands
/// around it. Cut to what a screen could show. Empty if nothing of it could be seen.
std::string oneLine(std::string_view text);

} // namespace KivUICore::Cairo
