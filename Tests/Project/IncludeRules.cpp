#include "Tests/Project/IncludeRules.h"

#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <optional>
#include <sstream>

namespace Project {

namespace {

/// Blanks comments and keeps the line breaks, so that line numbers stay right. Literals are stepped over: a
/// `//` inside one starts no comment.
std::string withoutComments(std::string_view source) {
    std::string result(source);
    size_t at = 0;
    const auto blankUntil = [&](size_t end) {
        for (end = std::min(end, result.size()); at < end; ++at) {
            if (result[at] != '\n')
                result[at] = ' ';
        }
    };
    const auto skipLiteral = [&] {
        for (++at; at < result.size() && result[at] != '"' && result[at] != '\n'; ++at) {
            if (result[at] == '\\')
                ++at;
        }
        ++at;
    };
    while (at < result.size()) {
        const std::string_view rest = std::string_view(result).substr(at);
        if (rest.starts_with("//")) {
            blankUntil(result.find('\n', at));
        } else if (rest.starts_with("/*")) {
            const size_t end = result.find("*/", at + 2);
            blankUntil(end == std::string::npos ? end : end + 2);
        } else if (rest.front() == '"') {
            skipLiteral();
        } else {
            ++at;
        }
    }
    return result;
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

/// Takes `word` off the front of `text`, and the blanks after it; says whether it was there.
bool take(std::string_view& text, std::string_view word) {
    if (!text.starts_with(word))
        return false;
    text = trimmed(text.substr(word.size()));
    return true;
}

std::optional<Include> includeOn(std::string_view line, int number) {
    line = trimmed(line);
    if (!take(line, "#"))
        return std::nullopt;
    if (!take(line, "include_next") && !take(line, "include") && !take(line, "import"))
        return std::nullopt;

    Include include{.line = number, .form = Include::Form::Other, .target = ""};
    const bool quoted = line.starts_with('"');
    if (!quoted && !line.starts_with('<'))
        return include;
    const auto end = line.find(quoted ? '"' : '>', 1);
    if (end == std::string_view::npos)
        return include;
    include.form = quoted ? Include::Form::Quoted : Include::Form::Angled;
    include.target = line.substr(1, end - 1);
    return include;
}

bool allowsExternal(const ModuleRule& rule, const std::string& header) {
    if (rule.external == ModuleRule::External::Any || isStandardHeader(header))
        return true;
    return rule.external == ModuleRule::External::Listed &&
           std::any_of(rule.externalPrefixes.begin(), rule.externalPrefixes.end(),
                       [&](const std::string& prefix) { return header.starts_with(prefix); });
}

/// Why `rule` forbids `include`; empty when it does not.
std::string objection(const Include& include, const ModuleRule& rule, const std::vector<ModuleRule>& rules) {
    switch (include.form) {
    case Include::Form::Other:
        return "names its header through a macro";
    case Include::Form::Angled:
        if (!allowsExternal(rule, include.target))
            return "<" + include.target + "> is not for " + rule.folder;
        return "";
    case Include::Form::Quoted:
        break;
    }
    const ModuleRule* target = ruleFor(include.target, rules);
    if (!target || include.target.find("..") != std::string::npos)
        return "\"" + include.target + "\" is not written from the repository's root";
    if (target != &rule && !rule.mayInclude.contains(target->folder))
        return rule.folder + " must not know " + target->folder;
    return "";
}

} // namespace

const std::vector<ModuleRule>& moduleRules() {
    using enum ModuleRule::External;
    static const std::vector<ModuleRule> rules = [] {
        const std::set<std::string> drawing{"Platform/Foundation", "Platform/CoreGraphics"};
        std::set<std::string> platform = drawing;
        platform.insert("Platform/UIKit");
        const std::set<std::string> belowMediaPlayer = platform;
        platform.insert("Platform/MediaPlayer");
        std::set<std::string> belowWindow = platform;
        belowWindow.insert("Hosts/Cairo");
        std::set<std::string> belowFramework = platform;
        belowFramework.insert("KivCore");
        std::set<std::string> portable = belowFramework;
        portable.insert("KivUICore");
        std::set<std::string> overlayRoom = portable;
        overlayRoom.insert({"Player/Overlay/Film", "Player/Overlay/Looks"});
        std::set<std::string> overlay = overlayRoom;
        overlay.insert({"Player/Overlay/Bars", "Player/Overlay/Messages", "Player/Overlay/Menus"});
        std::set<std::string> program = portable;
        program.insert(
            {"Hosts/Headless", "Hosts/Cairo", "Hosts/SDL", "Player/Overlay", "Player/Overlay/Film"});
        return std::vector<ModuleRule>{
            {"Platform/Foundation", {}, StandardLibraryOnly, {}},
            {"Platform/CoreGraphics", {}, StandardLibraryOnly, {}},
            {"Platform/UIKit", drawing, StandardLibraryOnly, {}},
            {"Platform/MediaPlayer", belowMediaPlayer, StandardLibraryOnly, {}},
            {"KivCore", {"Platform/Foundation"}, StandardLibraryOnly, {}},
            {"KivUICore", belowFramework, StandardLibraryOnly, {}},
            {"Hosts/Headless", platform, StandardLibraryOnly, {}},
            {"Hosts/Cairo", platform, Listed, {"cairo", "pango/", "glib", "fontconfig/"}},
            {"Hosts/SDL", belowWindow, Listed, {"SDL", "GL/", "X11/", "cairo"}},
            // A file belongs to the first folder that it lies in.
            {"Player/Overlay/Film", portable, StandardLibraryOnly, {}},
            {"Player/Overlay/Looks", portable, StandardLibraryOnly, {}},
            {"Player/Overlay/Bars", overlayRoom, StandardLibraryOnly, {}},
            {"Player/Overlay/Messages", overlayRoom, StandardLibraryOnly, {}},
            {"Player/Overlay/Menus", overlayRoom, StandardLibraryOnly, {}},
            {"Player/Overlay", overlay, StandardLibraryOnly, {}},
            {"Player/Desktop", program, Any, {}},
        };
    }();
    return rules;
}

bool isInFolder(const std::string& path, const std::string& folder) {
    return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

const ModuleRule* ruleFor(const std::string& path, const std::vector<ModuleRule>& rules) {
    const auto rule = std::find_if(rules.begin(), rules.end(),
                                   [&](const ModuleRule& each) { return isInFolder(path, each.folder); });
    return rule == rules.end() ? nullptr : &*rule;
}

std::vector<Include> includesOf(std::string_view source) {
    std::vector<Include> includes;
    std::istringstream lines(withoutComments(source));
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        if (auto include = includeOn(line, number))
            includes.push_back(*include);
    }
    return includes;
}

std::vector<Violation> checkFile(const std::string& file, std::string_view source,
                                 const std::vector<ModuleRule>& rules) {
    const ModuleRule* rule = ruleFor(file, rules);
    if (!rule)
        return {{file, 0, "belongs to no module"}};
    std::vector<Violation> violations;
    for (const Include& include : includesOf(source)) {
        if (auto reason = objection(include, *rule, rules); !reason.empty())
            violations.push_back({file, include.line, reason});
    }
    return violations;
}

std::vector<Violation> checkTree(const std::filesystem::path& root, const std::vector<ModuleRule>& rules,
                                 const std::set<std::string>& skippedFolders) {
    const auto sources = sourcesUnder(root, skippedFolders);
    std::vector<Violation> violations;
    for (const std::string& source : sources) {
        const auto found = checkFile(source, contentsOf(root / source), rules);
        violations.insert(violations.end(), found.begin(), found.end());
    }
    for (const ModuleRule& rule : rules) {
        if (std::none_of(sources.begin(), sources.end(),
                         [&](const std::string& source) { return isInFolder(source, rule.folder); }))
            violations.push_back({rule.folder, 0, "has no source file"});
    }
    return violations;
}

bool isStandardHeader(const std::string& header) {
    static const std::set<std::string> headers{"algorithm",
                                               "any",
                                               "array",
                                               "atomic",
                                               "barrier",
                                               "bit",
                                               "bitset",
                                               "charconv",
                                               "chrono",
                                               "codecvt",
                                               "compare",
                                               "complex",
                                               "concepts",
                                               "condition_variable",
                                               "coroutine",
                                               "deque",
                                               "exception",
                                               "execution",
                                               "filesystem",
                                               "format",
                                               "forward_list",
                                               "fstream",
                                               "functional",
                                               "future",
                                               "initializer_list",
                                               "iomanip",
                                               "ios",
                                               "iosfwd",
                                               "iostream",
                                               "istream",
                                               "iterator",
                                               "latch",
                                               "limits",
                                               "list",
                                               "locale",
                                               "map",
                                               "memory",
                                               "memory_resource",
                                               "mutex",
                                               "new",
                                               "numbers",
                                               "numeric",
                                               "optional",
                                               "ostream",
                                               "queue",
                                               "random",
                                               "ranges",
                                               "ratio",
                                               "regex",
                                               "scoped_allocator",
                                               "semaphore",
                                               "set",
                                               "shared_mutex",
                                               "source_location",
                                               "span",
                                               "sstream",
                                               "stack",
                                               "stdexcept",
                                               "stop_token",
                                               "streambuf",
                                               "string",
                                               "string_view",
                                               "strstream",
                                               "syncstream",
                                               "system_error",
                                               "thread",
                                               "tuple",
                                               "type_traits",
                                               "typeindex",
                                               "typeinfo",
                                               "unordered_map",
                                               "unordered_set",
                                               "utility",
                                               "valarray",
                                               "variant",
                                               "vector",
                                               "version",
                                               "cassert",
                                               "cctype",
                                               "cerrno",
                                               "cfenv",
                                               "cfloat",
                                               "cinttypes",
                                               "climits",
                                               "clocale",
                                               "cmath",
                                               "csetjmp",
                                               "csignal",
                                               "cstdarg",
                                               "cstddef",
                                               "cstdint",
                                               "cstdio",
                                               "cstdlib",
                                               "cstring",
                                               "ctime",
                                               "cuchar",
                                               "cwchar",
                                               "cwctype"};
    return headers.contains(header);
}

} // namespace Project
