// Who depends on whom among the installed packages: the stationary vector of a walk along the dependencies, by
// sparse products with the transposed matrix.
//
// From a package the walk goes to one of those it depends on, each alike; from one without dependencies, and now
// and then from any, to any package at all. (Brin, Page: The anatomy of a large-scale hypertextual Web search
// engine, Computer Networks 30 (1998) 107-117.)
#include "tools/tour/chapters.h"
#include "vor_spblas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <numeric>
#include <set>
#include <sstream>
#include <vector>

namespace vor::tool {

namespace {

constexpr char kStatus[] = "/var/lib/dpkg/status";
constexpr double kStay = 0.85; // share of the walk that keeps to the dependencies
constexpr int kMostSteps = 1000;
constexpr size_t kShown = 10;

struct Packages {
    std::vector<std::string> names;
    std::map<std::string, int> number;                  // by name or by what a package provides
    std::vector<std::vector<std::string>> dependencies; // each with its alternatives, by '|'
};

std::vector<std::string> split(const std::string& text, char at) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, at);) parts.push_back(part);
    return parts;
}

// "libc6:any (>= 2.36)" to "libc6".
std::string bare(const std::string& text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_first_of(" (:", first) - first);
}

// One paragraph of the status file.
void take(const std::map<std::string, std::string>& fields, Packages& packages) {
    const auto field = [&](const char* name) {
        const auto at = fields.find(name);
        return at == fields.end() ? std::string() : at->second;
    };
    const std::string name = bare(field("Package"));
    if (name.empty() || field("Status").find(" installed") == std::string::npos) return;
    auto [at, fresh] = packages.number.try_emplace(name, static_cast<int>(packages.names.size()));
    if (fresh || packages.names[static_cast<size_t>(at->second)] != name) {
        at->second = static_cast<int>(packages.names.size());
        packages.names.push_back(name);
        packages.dependencies.emplace_back();
    }
    for (const std::string& provided : split(field("Provides"), ','))
        packages.number.try_emplace(bare(provided), at->second);
    auto& list = packages.dependencies[static_cast<size_t>(at->second)];
    for (const char* kind : {"Pre-Depends", "Depends"})
        for (const std::string& one : split(field(kind), ',')) list.push_back(one);
}

Packages read_packages() {
    Packages packages;
    std::ifstream in(kStatus);
    std::map<std::string, std::string> fields;
    for (std::string line; std::getline(in, line);) {
        if (line.empty()) {
            take(fields, packages);
            fields.clear();
        } else if (const size_t colon = line.find(':');
                   line[0] != ' ' && colon != std::string::npos) {
            fields[line.substr(0, colon)] = line.substr(colon + 1);
        }
    }
    take(fields, packages);
    return packages;
}

// Row i: the packages that package i depends on, one over their number in each place.
struct Graph {
    int n = 0;
    std::vector<int> ia{1}, ja;
    std::vector<double> a;
};

Graph graph_of(const Packages& packages) {
    Graph graph;
    graph.n = static_cast<int>(packages.names.size());
    for (int i = 0; i < graph.n; ++i) {
        std::set<int> targets;
        for (const std::string& dependency : packages.dependencies[static_cast<size_t>(i)])
            for (const std::string& alternative : split(dependency, '|')) {
                const auto at = packages.number.find(bare(alternative));
                if (at == packages.number.end()) continue;
                if (at->second != i) targets.insert(at->second);
                break;
            }
        for (const int j : targets) {
            graph.ja.push_back(j + 1);
            graph.a.push_back(1.0 / static_cast<double>(targets.size()));
        }
        graph.ia.push_back(static_cast<int>(graph.ja.size()) + 1);
    }
    return graph;
}

// One step of the walk.
std::vector<double> step(const Graph& graph, const std::vector<double>& x) {
    std::vector<double> y(x.size());
    vor_dcsrgemv("T", &graph.n, graph.a.data(), graph.ia.data(), graph.ja.data(), x.data(),
                 y.data());
    const double kept = std::accumulate(y.begin(), y.end(), 0.0);
    const double anywhere = (1 - kStay * kept) / graph.n; // what jumps, and what has nowhere to go
    for (double& value : y) value = kStay * value + anywhere;
    return y;
}

double difference(const std::vector<double>& x, const std::vector<double>& y) {
    double sum = 0;
    for (size_t i = 0; i < x.size(); ++i) sum += std::fabs(x[i] - y[i]);
    return sum;
}

} // namespace

bool leaning_packages(const Tour&) {
    const Packages packages = read_packages();
    if (packages.names.size() < kShown) {
        std::printf("left out: %s names no installed packages\n", kStatus);
        return true;
    }
    const Graph graph = graph_of(packages);
    std::vector<double> x(packages.names.size(), 1.0 / graph.n), next = step(graph, x);
    int steps = 1;
    while (difference(x, next) > 1e-14 && steps < kMostSteps) {
        x = std::move(next);
        next = step(graph, x);
        ++steps;
    }
    const double residual = difference(x, next), whole = std::accumulate(x.begin(), x.end(), 0.0);
    std::vector<size_t> order(x.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(), [&](size_t i, size_t j) { return x[i] > x[j]; });
    std::printf("%d packages, %zu dependencies (%s); %d steps of the walk\n", graph.n,
                graph.a.size(), kStatus, steps);
    std::printf("where it is found most often:\n");
    for (size_t k = 0; k < kShown; ++k)
        std::printf("  %5.2f%%  %s\n", 100 * x[order[k]], packages.names[order[k]].c_str());
    const bool agrees =
        std::fabs(whole - 1) < 1e-12 && residual < 1e-12 && packages.names[order[0]] == "libc6";
    std::printf("sum %.15f, residual %.1e, and the C library comes first: %s\n", whole, residual,
                agrees ? "agrees" : "DIFFERS");
    return agrees;
}

} // namespace vor::tool
