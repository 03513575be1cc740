// By one depth-first walk: an edge is a bridge when nothing below it leads back above it.
#include "explanation/byjoint/Bridges.h"

#include <algorithm>
#include <utility>

#include "explanation/At.h"

namespace {

constexpr int Unseen = -1;

}  // namespace

BridgeFinder::BridgeFinder(int numNodes, std::vector<GraphEdge> edges)
    : edges_(std::move(edges)), first_(At(numNodes) + 1), seen_(At(numNodes)), lowest_(At(numNodes)) {
  for (const GraphEdge& edge : edges_) {
    ++first_[At(edge.A)];
    ++first_[At(edge.B)];
  }
  int sum = 0;
  for (int& begin : first_) begin = std::exchange(sum, sum + begin);
  around_.resize(At(sum));
  std::vector<int> next(first_.begin(), first_.end());
  for (std::size_t i = 0; i < edges_.size(); ++i) {
    around_[At(next[At(edges_[i].A)]++)] = static_cast<int>(i);
    around_[At(next[At(edges_[i].B)]++)] = static_cast<int>(i);
  }
}

const std::vector<BridgeFinder::Bridge>& BridgeFinder::Find(const std::vector<char>& isOut) {
  bridges_.clear();
  order_.clear();
  parts_.clear();
  std::ranges::fill(seen_, Unseen);
  for (int node = 0; node < static_cast<int>(seen_.size()); ++node) {
    if (seen_[At(node)] != Unseen) continue;
    const std::size_t firstBridge = bridges_.size();
    const int from = static_cast<int>(order_.size());
    Explore(node, isOut);
    parts_.push_back({from, static_cast<int>(order_.size())});
    for (std::size_t i = firstBridge; i < bridges_.size(); ++i) {
      bridges_[i].From = parts_.back().From;
      bridges_[i].To = parts_.back().To;
    }
  }
  return bridges_;
}

void BridgeFinder::Explore(int root, const std::vector<char>& isOut) {
  const auto enter = [this](int node, int byEdge) {
    seen_[At(node)] = lowest_[At(node)] = static_cast<int>(order_.size());
    order_.push_back(node);
    path_.push_back({node, byEdge, first_[At(node)]});
  };
  enter(root, -1);
  while (!path_.empty()) {
    Visit& visit = path_.back();
    if (visit.Next < first_[At(visit.Node) + 1]) {
      const int index = around_[At(visit.Next++)];
      if (index == visit.ByEdge || isOut[At(index)] != 0) continue;
      const GraphEdge& edge = edges_[At(index)];
      const int other = edge.A == visit.Node ? edge.B : edge.A;
      if (seen_[At(other)] == Unseen) {
        enter(other, index);
      } else {
        lowest_[At(visit.Node)] = std::min(lowest_[At(visit.Node)], seen_[At(other)]);
      }
      continue;
    }
    const Visit done = visit;
    path_.pop_back();
    if (path_.empty()) break;
    const int above = path_.back().Node;
    lowest_[At(above)] = std::min(lowest_[At(above)], lowest_[At(done.Node)]);
    if (lowest_[At(done.Node)] == seen_[At(done.Node)]) {
      bridges_.push_back(
          {.Edge = done.ByEdge, .First = seen_[At(done.Node)], .End = static_cast<int>(order_.size())});
    }
  }
}
