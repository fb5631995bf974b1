// model: the names of the files that an analysis writes, all in the working directory.
//
// With the alignment x.ali: x-0.nbm, x-0.mat, x-0.arb; x-1.nbm...; x_0.nbs, x_0.mac; x_1.nbs, x_1.pml...
#pragma once

#include <string>

namespace kq {

// Name of the file being written, without directory, at most 99 bytes. Only its extension has a ".", so
// with_extension(nomfic, ".mat") replaces that.
extern std::string nomfic;
// The numbers of the next matrix and of the next file of sequences. The driver sets both to 0 at the start of
// a run.
extern int nb_matrice, nb_sequence;

// The name of the number-th header file of a kind, 'm' matrix or 's' sequences, of an alignment file:
// "x-0.nbm", "x_0.nbs"; above 99 without the sign between ("x100.nbm").
std::string header_file_name(const std::string& alignment, char kind, int number);

void output_names_reset();

} // namespace kq
