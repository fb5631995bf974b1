// screen: a sequence in FASTA form: in a file, in the viewer and in a box.
#pragma once

namespace kq {

// Writes the species, or the consensus of the cursor's ensemble when that is collapsed (species is not looked
// at then), into the alignment's .fasta file in the working directory, starts the viewer on it when there is
// one, and shows it in a box; returns the key that closed the box.
//
// The viewer is /usr/bin/kwrite, or what the environment variable KQ_VIEWER names.
int affich_fasta(int species);

} // namespace kq
