// kernel: finds many patterns in many texts in one walk over them (the Aho-Corasick automaton).
#include "core/multi_search.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <numeric>

namespace kq {

namespace {

// The children of all nodes but the root in one open-addressed table: a table of 256 entries a node would
// not fit any cache.
class Edges {
public:
    explicit Edges(std::size_t count)
        : slots_(std::bit_ceil(2 * count + 2))
    {
    }
    int find(int node, unsigned char c) const
    {
        for (std::size_t i = place(node, c);; i = (i + 1) & (slots_.size() - 1)) {
            if (slots_[i].child == 0) return 0;
            if (slots_[i].key == key(node, c)) return slots_[i].child;
        }
    }
    void insert(int node, unsigned char c, int child)
    {
        std::size_t i = place(node, c);
        while (slots_[i].child != 0)
            i = (i + 1) & (slots_.size() - 1);
        slots_[i] = {key(node, c), child};
    }

private:
    struct Slot {
        std::uint64_t key = 0;
        int child = 0; // 0 = a free slot: the root is nobody's child
    };
    std::vector<Slot> slots_;

    static std::uint64_t key(int node, unsigned char c) { return static_cast<std::uint64_t>(node) << 8 | c; }
    std::size_t place(int node, unsigned char c) const
    {
        return (key(node, c) * 0x9e3779b97f4a7c15U >> 32) & (slots_.size() - 1);
    }
};

// Node 0 is the root; a node stands for a beginning of patterns.
class Automaton {
public:
    explicit Automaton(std::span<const std::string_view> patterns)
        : edges_(total_length(patterns))
    {
        nodes_.emplace_back();
        for (const auto pattern : patterns)
            ends_.push_back(insert(pattern));
        link();
    }
    void walk(std::string_view text, int index)
    {
        int node = 0;
        for (const char c : text) {
            node = step(node, static_cast<unsigned char>(c));
            // Patterns that were found earlier have had their whole chain of endings noted.
            for (int n = nodes_[at(node)].ending; n && nodes_[at(n)].first < 0; n = next_ending(n))
                nodes_[at(n)].first = index;
        }
    }
    std::vector<int> first_texts() const
    {
        std::vector<int> result;
        for (const int node : ends_)
            result.push_back(node ? nodes_[at(node)].first : -1);
        return result;
    }

private:
    struct Node {
        int parent = 0, depth = 0;
        int fallback = 0; // the longest proper ending of this node's text that is a node
        int ending = 0;   // the longest ending of it, itself included, that is a whole pattern; 0 = none
        int first = -1;   // first text that holds the pattern
        unsigned char c = 0;
        bool whole = false; // a pattern ends here
    };
    Edges edges_;
    std::array<int, 256> root_{};
    std::vector<Node> nodes_;
    std::vector<int> ends_; // per pattern the node it ends at

    static std::size_t at(int node) { return static_cast<std::size_t>(node); }
    static std::size_t total_length(std::span<const std::string_view> patterns)
    {
        return std::accumulate(
            patterns.begin(), patterns.end(), std::size_t{0},
            [](std::size_t sum, std::string_view pattern) { return sum + pattern.size(); });
    }
    int child(int node, unsigned char c) const { return node ? edges_.find(node, c) : root_[c]; }
    int next_ending(int node) const { return nodes_[at(nodes_[at(node)].fallback)].ending; }

    int step(int node, unsigned char c) const
    {
        for (;;) {
            const int next = child(node, c);
            if (next || !node) return next;
            node = nodes_[at(node)].fallback;
        }
    }
    int insert(std::string_view pattern)
    {
        int node = 0;
        for (const char ch : pattern) {
            const auto c = static_cast<unsigned char>(ch);
            int next = child(node, c);
            if (!next) {
                next = static_cast<int>(nodes_.size());
                nodes_.push_back({.parent = node, .depth = nodes_[at(node)].depth + 1, .c = c});
                if (node)
                    edges_.insert(node, c, next);
                else
                    root_[c] = next;
            }
            node = next;
        }
        if (node) nodes_[at(node)].whole = true;
        return node;
    }
    // Shallow nodes first, because a fallback is always shallower than its node.
    void link()
    {
        std::vector<int> order(nodes_.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(),
                         [&](int a, int b) { return nodes_[at(a)].depth < nodes_[at(b)].depth; });
        for (const int n : order) {
            Node& node = nodes_[at(n)];
            if (node.depth > 1) node.fallback = step(nodes_[at(node.parent)].fallback, node.c);
            node.ending = node.whole ? n : nodes_[at(node.fallback)].ending;
        }
    }
};

} // namespace

std::vector<int> first_containing(std::span<const std::string_view> patterns,
                                  std::span<const std::string_view> texts)
{
    Automaton automaton(patterns);
    for (std::size_t i = 0; i < texts.size(); i++)
        automaton.walk(texts[i], static_cast<int>(i));
    return automaton.first_texts();
}

} // namespace kq
