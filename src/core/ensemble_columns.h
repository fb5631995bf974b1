// model: the hidden columns of a list of ensembles, for outputs and analyses. The editor's own
// (core/columns.h) are neither read nor changed.
#pragma once

#include <span>
#include <vector>

namespace kq {

// Every ensemble there is, in order.
std::vector<int> all_ensembles();

// One flag for each of the nb_nuc_tot columns: 255 = hidden, because every species of every listed ensemble
// has a gap-class character ("*", blank, "$", "-") there; 0 = shown. With show_all every column is shown.
// Without a single species every column is hidden.
std::vector<unsigned char> hidden_columns(std::span<const int> ensembles, bool show_all);

} // namespace kq
