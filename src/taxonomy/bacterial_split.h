// model: the fixed split of bacterial alignments into five ensembles.
#pragma once

namespace kq {

inline constexpr int bacterial_ensembles = 5;

// The ensemble, 0 to 4, that the species of a group go to, or -1.
int bacterial_ensemble_of(int group);

enum class BacterialSplit {
    done,
    incomplete, // species beyond max_ensemble_species of an ensemble have been left out
    none,       // no species belongs to any of the five ensembles; nothing has been changed
};
// Makes the alignment five ensembles by the groups of its species, in the species' order: the first shown
// species by species, the others collapsed. Deleted species stay out. Writes the size of each to standard
// output. Too little memory is fatal.
BacterialSplit selection_auto_bacteria();

} // namespace kq
