// format: reads .fra files: a version text, then the whole frame on one line.
//
//   tree    := "(" subtree "," subtree ")" label ";"
//   subtree := label | "(" subtree "," subtree ")" label
//   label   := name ":" x ":" y ":" sub
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq {

inline constexpr int max_frame_line = 149999; // characters of the frame line, without its newline

struct FraNode {
    std::string name; // at most 21 characters; longer ones are cut
    int x = 0, y = 0; // within +-max_coordinate
    int sub = -1;     // -1 = not the head of a subtree
    int child1 = -1;  // indexes in FraFile::nodes; -1 for a leaf
    int child2 = -1;
};
inline constexpr int max_coordinate = 1000000;

struct FraFile {
    std::string error;          // empty, or the fatal message; then there are no nodes
    std::string version;        // the first line
    std::vector<FraNode> nodes; // in the order of their labels: children before parents, the root last
};
// Accepts any bytes; the nesting is bounded by the line's length only.
FraFile parse_fra(std::string_view text);

// What can be told of a frame without building it.
struct FraHeader {
    std::string version;
    int terminal_nodes = 0; // one plus the number of commas on the frame line
};
FraHeader parse_fra_header(std::string_view text);

} // namespace kq
