// model: the display options and the colour class of each residue code. Written by the options file reader
// (editor/options_file.h) and the options screens.
#pragma once

#include <array>

namespace kq {

extern int opt_tiret;          // 0 = a dash replaces a character identical to the top row's, 1 = no
extern int opt_nogap;          // 0 = columns where all species have a gap are hidden, 1 = every column shown
extern int opt_couleur;        // 0 with, 1 without background colours. Deliberate: kept, never consulted
extern int opt_identificateur; // 0 "Genus species", 1 "G. species", 2 "Genus"
extern int opt_consensus;      // 0 none, 1 over the species of the ensembles, 2 over all species
extern int opt_evalue;         // which BLAST score stands beside identifiers: 0 none, 1 file, 2 search

// Colour class 0..7 of each residue code (core/residues.h).
extern std::array<int, 30> color_char_arn;
extern std::array<int, 30> color_char_prot;

void options_reset(); // the defaults

} // namespace kq
