// model: where the tree stands on the screen: the frame's own numbers scaled to the cell and the window.
#pragma once

namespace kq {

// Scales the tree from the frame's own numbers to the current cell and sets maxgraph; to be called again
// whenever the cell or the window has changed. Does nothing while no frame is read.
void adjust_frame();

// Screen columns (1-based) of the leaves' names and of the "(" of their counts. 48 and 70 on a window of 80
// columns or more; on a narrower one the tree, and then the names, get less room.
int name_column();
int counts_column();

// The text row, in a window that begins at screen line 2, of what stands at pixel y of the tree.
int tree_row(int y);

} // namespace kq
