// model: where the tree stands on the screen.
#include "taxonomy/frame_layout.h"

#include "screen/text.h"
#include "taxonomy/frame.h"

#include <algorithm>

namespace kq {

namespace {

// The cell that the frame files are written for.
constexpr int reference_width = 8, reference_height = 16;
// Columns of the tree itself, and what the names and counts need beside it.
constexpr int full_tree_columns = 46, columns_beside = 34;
constexpr int from_tree_to_names = 2, from_names_to_counts = 22, columns_of_counts = 10;

int tree_columns()
{
    return std::clamp(_nb_col - columns_beside, 0, full_tree_columns);
}

int scaled(int number, int numerator, int denominator)
{
    return static_cast<int>(static_cast<long long>(number) * numerator / denominator);
}

void adjust_node(node& n)
{
    if (!n.leaf()) {
        adjust_node(*n.child2);
        adjust_node(*n.child1);
    }
    n.x = scaled(n.file_x, _gr_size_y, reference_width);
    if (tree_columns() < full_tree_columns) n.x = scaled(n.x, tree_columns(), full_tree_columns);
    n.y = scaled(n.file_y, _gr_size_x, reference_height);
    n.sub = n.file_sub;
    // A small negative mark must not become the sign of "no head".
    if (n.file_sub != -1) n.sub = std::max(0, scaled(n.file_sub, _gr_size_x, reference_height));
}

} // namespace

void adjust_frame()
{
    maxgraph = tree_columns() * _gr_size_y;
    if (proot) adjust_node(*proot);
}

int name_column()
{
    return tree_columns() + from_tree_to_names;
}

int counts_column()
{
    return std::min(name_column() + from_names_to_counts, _nb_col - columns_of_counts);
}

int tree_row(int y)
{
    return y / _gr_size_x + 2;
}

} // namespace kq
