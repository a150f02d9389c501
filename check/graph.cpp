#include "check/graph.h"

#include <algorithm>
#include <deque>
#include <numeric>

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

// Visits what `start` leads to, depth first, and adds each node to `finished`
// once all behind it are.
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

// For each node, a number that it shares with those that it leads to and that
// lead to it (Kosaraju's algorithm).
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

// A shortest way from `start` through its component back to it; empty where
// there is none.
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
                std::vector<size_t> path = {start};
                for (size_t at = node; at != start; at = (*cameFrom)[at]) {
                    path.push_back(at);
                }
                path.push_back(start);
                std::reverse(path.begin(), path.end());
                return path;
            }
            if (to != start && components[to] == components[start] && (*cameFrom)[to] == NONE) {
                (*cameFrom)[to] = node;
                waiting.push_back(to);
            }
        }
    }
    return {};
}

// The node that stands for the group of `node`; ways to it are shortened.
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
            // The smaller leads, so that a group is led by its first node.
            const size_t a = leaderOf(from, &leaders);
            const size_t b = leaderOf(to, &leaders);
            leaders[std::max(a, b)] = std::min(a, b);
        }
    }
    std::vector<size_t> places(edges.size(), NONE);
    std::vector<std::vector<size_t>> groups;
    for (size_t node = 0; node < edges.size(); ++node) {
        const size_t leader = leaderOf(node, &leaders);
        if (places[leader] == NONE) {
            places[leader] = groups.size();
            groups.emplace_back();
        }
        groups[places[leader]].push_back(node);
    }
    return groups;
}

}  // namespace qvgraph
