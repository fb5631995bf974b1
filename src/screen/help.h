// screen: the paged viewer of help files.
#pragma once

#include <string_view>

namespace kq {

extern int nb_aide;      // lines in the help file
extern int nb_line_page; // lines per page
extern int nb_page_aide; // pages

// Shows <page_name>.HLP in a box with corners (l1, c1) and column c2, its height bounded by line l2. Returns
// when ESCAPE is pressed; the caller redraws.
void _aide(std::string_view page_name, int l1, int c1, int l2, int c2);
// Shows one page; returns the key that leaves it (F7, F8 or ESCAPE).
int _affich_page_aide(std::string_view page_name, int page);

} // namespace kq
