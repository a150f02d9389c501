#include "check/directed_graph.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <utility>

namespace qvgraph {

namespace {

const size_t NONE = static_cast<size_t>(-1);

Edges reversed(const Edges& edges) {
    Edges back(edges.size());
    for (size_t from = 0; from < edges.size(); ++from) {
        for (const size_t to : edges[from]) {
            back[to].push_back(from);
        }
    }
    return back;
}

// Visits the nodes reachable from `start`, depth first, and adds each node to
// `finished` after all nodes reachable from it.
void finish(const Edges& edges,
            size_t start,
            std::vector<bool>* visited,
            std::vector<size_t>* finished) {
    struct Step {
        size_t node;
        size_t next;
    };
    std::vector<Step> path = {{start, 0}};
    (*visited)[start] = true;
    while (!path.empty()) {
        Step& step = path.back();
        if (step.next == edges[step.node].size()) {
            finished->push_back(step.node);
            path.pop_back();
            continue;
        }
        const size_t to = edges[step.node][step.next++];
        if (!(*visited)[to]) {
            (*visited)[to] = true;
            path.push_back({to, 0});
        }
    }
}

// For each node, a number that it shares with exactly the nodes that it can reach
// and that can reach it (Kosaraju's algorithm).
std::vector<size_t> componentsOf(const Edges& edges) {
    std::vector<bool> visited(edges.size());
    std::vector<size_t> order;
    for (size_t node = 0; node < edges.size(); ++node) {
        if (!visited[node]) {
            finish(edges, node, &visited, &order);
        }
    }
    const Edges back = reversed(edges);
    std::vector<bool> assigned(edges.size());
    std::vector<size_t> components(edges.size());
    for (auto node = order.rbegin(); node != order.rend(); ++node) {
        std::vector<size_t> members;
        if (!assigned[*node]) {
            finish(back, *node, &assigned, &members);
        }
        for (const size_t member : members) {
            components[member] = *node;
        }
    }
    return components;
}

// The cycle from `start` to `last` and back.
std::vector<size_t> pathThrough(size_t start, size_t last, const std::vector<size_t>& cameFrom) {
    std::vector<size_t> path = {start};
    for (size_t node = last; node != start; node = cameFrom[node]) {
        path.push_back(node);
    }
    path.push_back(start);
    std::ranges::reverse(path);
    return path;
}

// A shortest cycle through `start`; empty if there is none. `cameFrom` has NONE for
// each other node of its component.
std::vector<size_t> cycleThrough(const Edges& edges,
                                 const std::vector<size_t>& components,
                                 size_t start,
                                 std::vector<size_t>* cameFrom) {
    std::deque<size_t> waiting = {start};
    while (!waiting.empty()) {
        const size_t node = waiting.front();
        waiting.pop_front();
        for (const size_t to : edges[node]) {
            if (to == start && node != start) {
                return pathThrough(start, node, *cameFrom);
            }
            if (to != start && components[to] == components[start] && (*cameFrom)[to] == NONE) {
                (*cameFrom)[to] = node;
                waiting.push_back(to);
            }
        }
    }
    return {};
}

// The node that represents the group of `node`. Shortens the paths to it.
size_t leaderOf(size_t node, std::vector<size_t>* leaders) {
    while ((*leaders)[node] != node) {
        (*leaders)[node] = (*leaders)[(*leaders)[node]];
        node = (*leaders)[node];
    }
    return node;
}

}  // namespace

std::vector<std::vector<size_t>> cyclesIn(const Edges& edges) {
    const std::vector<size_t> components = componentsOf(edges);
    std::vector<bool> seen(edges.size());
    std::vector<size_t> cameFrom(edges.size(), NONE);
    std::vector<std::vector<size_t>> cycles;
    for (size_t node = 0; node < edges.size(); ++node) {
        if (seen[components[node]]) {
            continue;
        }
        seen[components[node]] = true;
        std::vector<size_t> path = cycleThrough(edges, components, node, &cameFrom);
        if (!path.empty()) {
            cycles.push_back(std::move(path));
        }
    }
    return cycles;
}

std::vector<std::vector<size_t>> groupsIn(const Edges& edges) {
    std::vector<size_t> leaders(edges.size());
    std::iota(leaders.begin(), leaders.end(), size_t{0});
    for (size_t from = 0; from < edges.size(); ++from) {
        for (const size_t to : edges[from]) {
            // The smaller one becomes the leader, so the first node leads its group.
            const size_t a = leaderOf(from, &leaders);
            const size_t b = leaderOf(to, &leaders);
            leaders[std::max(a, b)] = std::min(a, b);
        }
    }
    std::vector<size_t> positions(edges.size(), NONE);
    std::vector<std::vector<size_t>> groups;
    for (size_t node = 0; node < edges.size(); ++node) {
        const size_t leader = leaderOf(node, &leaders);
        if (positions[leader] == NONE) {
            positions[leader] = groups.size();
            groups.emplace_back();
        }
        groups[positions[leader]].push_back(node);
    }
    return groups;
}

}  // namespace qvgraph
