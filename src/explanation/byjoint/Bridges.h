// Edges whose removal parts a graph in two.
#pragma once

#include <vector>

/// An edge between two nodes, numbered from 0.
struct GraphEdge {
  int A = 0, B = 0;
};

/// The nodes and edges of a graph, of which some can be left out.
class BridgeFinder {
 public:
  BridgeFinder(int numNodes, std::vector<GraphEdge> edges);

  struct Bridge {
    int Edge = 0;            ///< index into the edges
    int First = 0, End = 0;  ///< of Order: the nodes on one side
    int From = 0, To = 0;    ///< of Order: the nodes on both sides
  };

  /// Finds all bridges of the graph without the edges of which `isOut` is true. Takes a time proportional to
  /// the number of nodes and edges.
  const std::vector<Bridge>& Find(const std::vector<char>& isOut);

  /// Nodes such that each side of a bridge is a part without gaps.
  const std::vector<int>& Order() const { return order_; }

  /// A connected part: the nodes from From to To (exclusive) of Order.
  struct Part {
    int From = 0, To = 0;
  };
  /// Those that the last search went through; a node alone is one, too.
  const std::vector<Part>& Parts() const { return parts_; }

  const std::vector<GraphEdge>& Edges() const { return edges_; }
  std::size_t Size() const { return first_.size() + edges_.size(); }

 private:
  struct Visit {
    int Node, ByEdge, Next;
  };
  void Explore(int root, const std::vector<char>& isOut);

  std::vector<GraphEdge> edges_;
  std::vector<int> first_;  // where a node's edges begin in around_
  std::vector<int> around_;
  std::vector<int> seen_, lowest_, order_;
  std::vector<Visit> path_;
  std::vector<Bridge> bridges_;
  std::vector<Part> parts_;
};
