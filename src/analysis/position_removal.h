// model: which species and positions an analysis of the ensembles works with.
#pragma once

namespace kq {

// Members of all ensembles, of two ensembles twice.
int members_of_ensembles();

// Fills cor_auto, nb_spec_auto, retain and nb_nuc_keep. Species: the members of all ensembles, in order, at
// most max_species of them. Positions: all but those that the ensembles hide (with opt_nogap none) and those
// where more than percent_gap percent of the species, rounded down, have a blank, "*", "?", "$" or "-".
// Without a species none is kept.
void elimine_pos_gap();

} // namespace kq
