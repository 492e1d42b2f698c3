#include "Platform/CoreGraphics/TextMetrics.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace CoreGraphics {

namespace {

/// Walks the characters of UTF-8 text; a byte that is no part of it counts as one.
class CharacterReader {
public:
    explicit CharacterReader(std::string_view text) : text_(text) {}

    bool isAtEnd() const { return next_ == text_.size(); }

    std::uint32_t next() {
        const auto first = static_cast<unsigned char>(text_[next_++]);
        const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : first >= 0xC0 ? 1 : 0;
        std::uint32_t character = following == 0 ? first : first & (0x3FU >> following);
        for (int count = 0; count < following; ++count) {
            if (!isContinuation()) {
                return replacement;
            }
            character = character << 6U | (static_cast<unsigned char>(text_[next_++]) & 0x3FU);
        }
        return character;
    }

private:
    static constexpr std::uint32_t replacement = 0xFFFD;

    bool isContinuation() const {
        return !isAtEnd() && (static_cast<unsigned char>(text_[next_]) & 0xC0U) == 0x80U;
    }

    std::string_view text_;
    std::size_t next_ = 0;
};

struct Script {
    std::uint32_t first;
    std::uint32_t last;
    CGFloat width;
};

constexpr CGFloat otherWidth = 0.75;

// In ems. Marks sit on the character before them.
constexpr Script scripts[] = {
    {0x0300, 0x036F, 0.0}, {0x064B, 0x065F, 0.0}, {0x0590, 0x08FF, 0.65},  {0x200B, 0x200F, 0.0},
    {0x1100, 0x11FF, 1.0}, {0x2E80, 0xA4CF, 1.0}, {0xAC00, 0xD7AF, 1.0},   {0xF900, 0xFAFF, 1.0},
    {0xFE00, 0xFE0F, 0.0}, {0xFF00, 0xFF60, 1.0}, {0x1F000, 0x1FAFF, 1.3}, {0x20000, 0x3FFFF, 1.0},
};

constexpr CGFloat asciiWidth(char character) {
    constexpr std::string_view narrow = " !',.:;I|ijl";
    constexpr std::string_view half = "\"()*-/1[\\]^_`frt{}";
    constexpr std::string_view wide = "%@MWmw";
    const auto isIn = [character](std::string_view characters) {
        return characters.find(character) != std::string_view::npos;
    };
    const bool isFigure = character >= '0' && character <= '9';
    return isIn(narrow)       ? 0.32
           : isIn(half)       ? 0.44
           : isIn(wide)       ? 1.0
           : isFigure         ? 0.7
           : character >= 'a' ? 0.63
                              : 0.76;
}

constexpr std::array<CGFloat, 128> asciiWidths = [] {
    std::array<CGFloat, 128> widths{};
    for (std::size_t character = ' '; character < widths.size(); ++character) {
        widths[character] = asciiWidth(static_cast<char>(character));
    }
    return widths;
}();

CGFloat widthOf(std::uint32_t character, CGFigures figures) {
    if (character < asciiWidths.size()) {
        const bool isTabular = figures == CGFigures::Monospaced && character >= '0' && character <= '9';
        return asciiWidths[isTabular ? '0' : character];
    }
    for (const Script& script : scripts) {
        if (script.first <= character && character <= script.last) {
            return script.width;
        }
    }
    return otherWidth;
}

} // namespace

CGFloat estimatedTextWidth(std::string_view text, const CGFont& font) {
    CGFloat width = 0.0;
    for (CharacterReader reader(text); !reader.isAtEnd();) {
        width += widthOf(reader.next(), font.figures);
    }
    return width * font.size;
}

CGFloat estimatedLineHeight(const CGFont& font) { return 1.25 * font.size; }

} // namespace CoreGraphics
