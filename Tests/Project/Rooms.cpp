#include "Tests/Project/Rooms.h"

#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <map>

namespace Project {

namespace {

/// The first folder of `file` below `folder`; empty when `file` lies elsewhere or in none.
std::string folderBelow(const std::string& folder, const std::string& file) {
    if (!isInFolder(file, folder)) {
        return "";
    }
    const size_t begin = folder.size() + 1;
    const size_t end = file.find('/', begin);
    return end == std::string::npos ? "" : file.substr(begin, end - begin);
}

bool isHeader(const std::string& file) { return file.ends_with(".h"); }

std::string nameOf(const std::string& file) { return std::filesystem::path(file).stem().string(); }

/// The room that each source lies in, by its name.
std::map<std::string, std::string> roomsOfSources(const std::vector<std::string>& files,
                                                  const RoomedModule& module) {
    std::map<std::string, std::string> rooms;
    for (const std::string& file : files) {
        if (!isHeader(file) && !roomOf(file, module).empty()) {
            rooms[nameOf(file)] = roomOf(file, module);
        }
    }
    return rooms;
}

/// Why `file` must not lie where it does; empty when it may.
std::string objectionToPlace(const std::string& file, const RoomedModule& module) {
    if (!isInFolder(file, module.folder) || !roomOf(file, module).empty()) {
        return "";
    }
    if (!isHeader(file)) {
        return "is a source outside every room";
    }
    return nameOf(file).starts_with(module.publicPrefix) ? "" : "is no public header by its name";
}

bool isAllowed(const std::string& file, const std::string& header, const RoomedModule& module) {
    return std::any_of(module.allowances.begin(), module.allowances.end(),
                       [&](const auto& each) { return each.file == file && each.header == header; });
}

/// The only room that `file` may include headers of; empty for none.
std::string openRoom(const std::string& file, const RoomedModule& module,
                     const std::map<std::string, std::string>& roomsOfSources) {
    if (!isInFolder(file, module.folder)) {
        return folderBelow(module.testFolder, file);
    }
    const auto own = roomsOfSources.find(nameOf(file));
    return own == roomsOfSources.end() ? "" : own->second;
}

bool isUsed(const RoomedModule::Allowance& allowance, const std::filesystem::path& root) {
    const auto includes = includesOf(contentsOf(root / allowance.file));
    return std::any_of(includes.begin(), includes.end(),
                       [&allowance](const Include& each) { return each.target == allowance.header; });
}

} // namespace

std::string roomOf(const std::string& file, const RoomedModule& module) {
    return folderBelow(module.folder, file);
}

std::vector<Violation> checkRooms(const std::filesystem::path& root, const RoomedModule& module) {
    const std::vector<std::string> files = sourcesUnder(root, {"build"});
    const auto rooms = roomsOfSources(files, module);
    std::vector<Violation> violations;
    for (const std::string& file : files) {
        if (const std::string reason = objectionToPlace(file, module); !reason.empty()) {
            violations.push_back({file, 0, reason});
        }
        if (!roomOf(file, module).empty()) {
            continue;
        }
        const std::string open = openRoom(file, module, rooms);
        for (const Include& include : includesOf(contentsOf(root / file))) {
            const std::string room = roomOf(include.target, module);
            if (!room.empty() && room != open && !isAllowed(file, include.target, module)) {
                violations.push_back({file, include.line, "must not look into the room " + room});
            }
        }
    }
    for (const RoomedModule::Allowance& each : module.allowances) {
        if (!isUsed(each, root)) {
            violations.push_back({each.file, 0, "is allowed " + each.header + " and does not include it"});
        }
    }
    return violations;
}

} // namespace Project
