#include "Tests/Project/IncludeCircles.h"

#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <map>

namespace Project {

namespace {

// The module's folder first, then the name.
using Unit = std::pair<std::string, std::string>;
using Graph = std::map<Unit, std::set<Unit>>;

Graph includeGraph(const std::filesystem::path& root, const std::vector<ModuleRule>& rules) {
    Graph graph;
    for (const std::string& source : sourcesUnder(root)) {
        const ModuleRule* module = ruleFor(source, rules);
        if (!module) {
            continue;
        }
        const Unit unit{module->folder, std::filesystem::path(source).stem().string()};
        for (const Include& include : includesOf(contentsOf(root / source))) {
            const ModuleRule* target = ruleFor(include.target, rules);
            if (target) {
                graph[unit].insert({target->folder, std::filesystem::path(include.target).stem().string()});
            }
        }
    }
    return graph;
}

std::set<Unit> reachedFrom(const Unit& start, const Graph& graph) {
    std::set<Unit> reached;
    std::vector<Unit> open{start};
    while (!open.empty()) {
        const auto known = graph.find(open.back());
        open.pop_back();
        if (known == graph.end()) {
            continue;
        }
        for (const Unit& each : known->second) {
            if (reached.insert(each).second) {
                open.push_back(each);
            }
        }
    }
    return reached;
}

std::string described(const Circle& circle) {
    std::string text = circle.folder + ":";
    for (const std::string& unit : circle.units) {
        text += " " + unit;
    }
    return text;
}

bool contains(const std::vector<Circle>& circles, const Circle& circle) {
    return std::any_of(circles.begin(), circles.end(), [&circle](const Circle& each) {
        return each.folder == circle.folder && each.units == circle.units;
    });
}

} // namespace

// Two units are in one circle when each reaches the other. The rules keep circles within a module.
std::vector<Circle> includeCircles(const std::filesystem::path& root, const std::vector<ModuleRule>& rules) {
    const Graph graph = includeGraph(root, rules);
    std::map<Unit, std::set<Unit>> reached;
    for (const auto& [unit, targets] : graph) {
        reached[unit] = reachedFrom(unit, graph);
    }
    std::vector<Circle> circles;
    for (const auto& [unit, others] : reached) {
        Circle circle{unit.first, {unit.second}, ""};
        for (const Unit& other : others) {
            const auto back = reached.find(other);
            if (back != reached.end() && back->second.contains(unit)) {
                circle.units.insert(other.second);
            }
        }
        if (circle.units.size() > 1 && !contains(circles, circle)) {
            circles.push_back(circle);
        }
    }
    return circles;
}

std::vector<std::string> objections(const std::vector<Circle>& found, const std::vector<Circle>& defended) {
    std::vector<std::string> result;
    for (const Circle& circle : found) {
        if (!contains(defended, circle)) {
            result.push_back(described(circle) + " know each other in a circle");
        }
    }
    for (const Circle& circle : defended) {
        if (!contains(found, circle)) {
            result.push_back(described(circle) + " are no such circle any more and need no defence");
        }
        if (circle.reason.empty()) {
            result.push_back(described(circle) + " have no reason to be defended");
        }
    }
    return result;
}

} // namespace Project
