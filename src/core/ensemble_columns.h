// model: the hidden columns of a list of ensembles, for outputs and analyses. The editor's own
// (core/columns.h) are neither read nor changed.
#pragma once

#include <span>
#include <vector>

namespace kq {

// Every ensemble there is, in order.
std::vector<int> all_ensembles();

// column_hidden or column_shown for each of the nb_nuc_tot columns: hidden where every species of every
// listed ensemble has a gap-class character ("*", blank, "$", "-"). With show_all every column is shown.
// Without a single species every column is hidden.
std::vector<unsigned char> hidden_columns(std::span<const int> ensembles, bool show_all);

// Sets flags[column] to `mark` for those of the columns in which any of the species holds a residue.
void mark_occupied(std::span<const int> species, std::vector<int> columns, std::vector<unsigned char>& flags,
                   unsigned char mark);

} // namespace kq
