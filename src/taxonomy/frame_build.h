// model: building the frame's tree and group table from the nodes of a .fra file and the paralog families.
#pragma once

#include "taxonomy/fra_file.h"

#include <span>
#include <string>

namespace kq {

struct node;

// Replaces the frame: tree, groups (with "Auto" and the families' names when there are families, and
// "Cupboard"), subtree list, default colours. Empty, or the fatal message; then no frame is left.
std::string build_frame(std::span<const FraNode> nodes);

// A deep copy under `parent`, as the frame of `family`.
node* copy_frame(const node& original, node* parent, int family);

} // namespace kq
