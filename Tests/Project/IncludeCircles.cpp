#include "Tests/Project/IncludeCircles.h"

#include "Tests/Project/SourceTree.h"

#include <algorithm>
#include <map>

namespace Project {

namespace {

using Graph = std::map<std::string, std::set<std::string>>;

/// The unit that `file` belongs to; empty outside every module.
std::string unitOf(const std::string& file, const std::vector<ModuleRule>& rules) {
    const ModuleRule* module = ruleFor(file, rules);
    return module ? module->folder + "/" + std::filesystem::path(file).stem().string() : "";
}

Graph includeGraph(const std::filesystem::path& root, const std::vector<ModuleRule>& rules) {
    Graph graph;
    for (const std::string& source : sourcesUnder(root)) {
        const std::string unit = unitOf(source, rules);
        if (unit.empty()) {
            continue;
        }
        for (const Include& include : includesOf(contentsOf(root / source))) {
            const std::string target = unitOf(include.target, rules);
            if (!target.empty()) {
                graph[unit].insert(target);
            }
        }
    }
    return graph;
}

std::set<std::string> reachedFrom(const std::string& start, const Graph& graph) {
    std::set<std::string> reached;
    std::vector<std::string> open{start};
    while (!open.empty()) {
        const auto known = graph.find(open.back());
        open.pop_back();
        if (known == graph.end()) {
            continue;
        }
        for (const std::string& each : known->second) {
            if (reached.insert(each).second) {
                open.push_back(each);
            }
        }
    }
    return reached;
}

std::string described(const Circle& circle) {
    std::string text;
    for (const std::string& unit : circle.units) {
        text += unit + " ";
    }
    return text;
}

bool contains(const std::vector<Circle>& circles, const Circle& circle) {
    return std::any_of(circles.begin(), circles.end(),
                       [&circle](const Circle& each) { return each.units == circle.units; });
}

} // namespace

// Two units are in one circle when each reaches the other.
std::vector<Circle> includeCircles(const std::filesystem::path& root, const std::vector<ModuleRule>& rules) {
    const Graph graph = includeGraph(root, rules);
    Graph reached;
    for (const auto& [unit, targets] : graph) {
        reached[unit] = reachedFrom(unit, graph);
    }
    std::vector<Circle> circles;
    for (const auto& [unit, others] : reached) {
        Circle circle{{unit}, ""};
        for (const std::string& other : others) {
            const auto back = reached.find(other);
            if (back != reached.end() && back->second.contains(unit)) {
                circle.units.insert(other);
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
            result.push_back(described(circle) + "know each other in a circle");
        }
    }
    for (const Circle& circle : defended) {
        if (!contains(found, circle)) {
            result.push_back(described(circle) + "are no such circle any more and need no defence");
        }
        if (circle.reason.empty()) {
            result.push_back(described(circle) + "have no reason to be defended");
        }
    }
    return result;
}

} // namespace Project
