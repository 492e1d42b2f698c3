#include "Tests/Project/HeaderLists.h"

#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <sstream>

namespace Project {

namespace {

std::istringstream wordsOf(std::string_view list) {
    std::string spaced(list);
    std::replace_if(
        spaced.begin(), spaced.end(), [](char each) { return each == '(' || each == ')'; }, ' ');
    return std::istringstream(spaced);
}

bool isInstalled(std::string_view list) {
    std::istringstream words = wordsOf(list);
    for (std::string word; words >> word;) {
        if (word == "INSTALLED") {
            return true;
        }
    }
    return false;
}

bool isQuotedHeader(const Include& include) {
    return include.form == Include::Form::Quoted && include.target.ends_with(".h");
}

/// The public face and what it includes, directly and through others.
std::set<std::string> reachedFromPublicFace(const std::filesystem::path& root, const HeaderLists& lists) {
    std::set<std::string> reached = lists.publicFace;
    std::vector<std::string> open(reached.begin(), reached.end());
    while (!open.empty()) {
        const std::string header = open.back();
        open.pop_back();
        for (const Include& include : includesOf(contentsOf(root / header))) {
            if (isQuotedHeader(include) && reached.insert(include.target).second) {
                open.push_back(include.target);
            }
        }
    }
    return reached;
}

} // namespace

void addHeaderLists(HeaderLists& lists, const std::string& folder, std::string_view list) {
    std::istringstream words = wordsOf(list);
    std::set<std::string>* current = nullptr;
    for (std::string word; words >> word;) {
        if (word == "HEADERS") {
            current = &lists.publicFace;
        } else if (word == "NEEDED_HEADERS") {
            current = &lists.needed;
        } else if (word == "PRIVATE_HEADERS") {
            current = &lists.notInstalled;
        } else if (current && word.ends_with(".h")) {
            current->insert(folder + "/" + word);
        } else {
            current = nullptr;
        }
    }
}

HeaderLists installedHeaderLists(const std::filesystem::path& root, const std::vector<ModuleRule>& rules) {
    HeaderLists lists;
    for (const ModuleRule& rule : rules) {
        const std::string list = contentsOf(root / rule.folder / "CMakeLists.txt");
        if (isInstalled(list)) {
            addHeaderLists(lists, rule.folder, list);
        }
    }
    return lists;
}

std::vector<Violation> checkInstalled(const std::filesystem::path& root, const HeaderLists& lists) {
    std::set<std::string> installed = lists.publicFace;
    installed.insert(lists.needed.begin(), lists.needed.end());
    std::vector<Violation> violations;
    for (const std::string& header : installed) {
        for (const Include& include : includesOf(contentsOf(root / header))) {
            if (isQuotedHeader(include) && !installed.contains(include.target)) {
                violations.push_back({header, include.line, include.target + " is not installed"});
            }
        }
    }
    const std::set<std::string> reached = reachedFromPublicFace(root, lists);
    for (const std::string& header : lists.needed) {
        if (!reached.contains(header)) {
            violations.push_back({header, 0, "is installed and no public header needs it"});
        }
    }
    return violations;
}

} // namespace Project
