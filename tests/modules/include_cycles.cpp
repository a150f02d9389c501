#include "tests/modules/include_cycles.h"

#include <algorithm>
#include <deque>
#include <vector>

namespace {

using Path = std::vector<std::string>;

const Names& includedBy(const std::string& name, const Includes& includes) {
    static const Names NONE;
    const auto found = includes.find(name);
    return found == includes.end() ? NONE : found->second;
}

// Appends `path`, extended by each unvisited name that its last name includes.
void appendExtended(const Path& path,
                    const Includes& includes,
                    Names* visited,
                    std::deque<Path>* paths) {
    for (const std::string& next : includedBy(path.back(), includes)) {
        if (visited->insert(next).second) {
            paths->push_back(path);
            paths->back().push_back(next);
        }
    }
}

// A shortest path from `from` to `to`, both included; empty if there is none.
Path shortestPath(const std::string& from, const std::string& to, const Includes& includes) {
    Names visited = {from};
    std::deque<Path> paths = {{from}};
    while (!paths.empty() && paths.front().back() != to) {
        appendExtended(paths.front(), includes, &visited, &paths);
        paths.pop_front();
    }
    return paths.empty() ? Path() : paths.front();
}

// "a -> b -> a" for the path from b to a that the edge from a to b closes.
std::string cycleText(Path path) {
    std::rotate(path.begin(), std::min_element(path.begin(), path.end()), path.end());
    std::string text;
    for (const std::string& name : path) {
        text += name + " -> ";
    }
    return text + path.front();
}

// A shortest cycle through each edge from `name`.
Names cyclesFrom(const std::string& name, const Includes& includes) {
    Names cycles;
    for (const std::string& other : includedBy(name, includes)) {
        const Path back = shortestPath(other, name, includes);
        if (other != name && !back.empty()) {
            cycles.insert(cycleText(back));
        }
    }
    return cycles;
}

void addReachable(const std::string& name, const Includes& includes, Names* reached) {
    for (const std::string& next : includedBy(name, includes)) {
        if (reached->insert(next).second) {
            addReachable(next, includes, reached);
        }
    }
}

}  // namespace

Names includeCycles(const Includes& includes) {
    Names cycles;
    for (const auto& [name, included] : includes) {
        cycles.merge(cyclesFrom(name, includes));
    }
    return cycles;
}

Names reachableFrom(const std::string& name, const Includes& includes) {
    Names reached;
    addReachable(name, includes, &reached);
    return reached;
}
