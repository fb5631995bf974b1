// Sequences that evolved on a random tree, for the benchmarks of the analyses.
//
// The tree grows by splitting a random tip into two. Along a branch, positions are substituted (some
// positions are up to eight times as fast as others) and short runs of positions are deleted. Last, some
// residues become unknown: the ends of one row in four, and single ones anywhere.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace kq::bench {

enum class Alphabet { nucleic, protein };

struct Evolution {
    Alphabet alphabet = Alphabet::nucleic;
    int species = 5000, columns = 1500;
    double depth = 0.2; // mean substitutions per position from the root to a species
    double gaps = 0.03; // mean deleted positions per position from the root to a species
    unsigned seed = 1;
};

// The rows, all of one length, in a random order of species. Nucleic acids: two substitutions of three are
// transitions. Proteins: half of them stay within a group of similar residues.
std::vector<std::string> evolved_sequences(const Evolution& evolution);

// Loads such rows as an alignment.
void load_evolved(const Evolution& evolution);

// Loads rows of one length as an alignment, and sets up an analysis of all its species and positions as a run
// does after its parameters: names of the distances, unknown characters, matrices (all zero).
void analyse(std::span<const std::string> rows, Alphabet alphabet);

} // namespace kq::bench
