// screen: writes the files of an analysis.
//
// Each is written to nomfic in the working directory, complete or not at all; a file of that name is
// replaced. The result is true when it is there, false when ESCAPE stopped the writing or it could not be
// written, which has been shown. The species are those of cor_auto, the positions those that retain keeps.
#pragma once

#include "analysis/phylip_text.h"

namespace kq {

class OutputFile;

// Makes nomfic from the alignment's name and the counter of the kind, 'm' matrix (nb_matrice) or 's'
// sequences (nb_sequence), counts on, and writes the header file. The files that belong to it have its name
// with another extension, which their callers give to nomfic (with_extension) but where it says otherwise.
bool write_file_NB(char kind);

// The distances of dist, lower triangle.
bool write_matrix();
// The same with the extension .mat, and then the tree (analysis/nj_tree.h).
bool out_matrix_nj();

bool write_paup_3_0();
// The file for PAUP 4; its tree is to go to the same name with the extension .tre.
bool write_nexus_file();
// A whole PHYLIP file. Needs the names of creer_ident_phylip.
bool write_phylip(PhylipMode mode);
// Its species lines, the first line being written; then the file is complete.
bool write_seq_phylip(OutputFile& file, PhylipMode mode);
// The data of a bootstrap run with the distance type_dist.
bool write_njb();

// Kept for other callers: no command writes these.
bool write_pir();
bool write_msf(); // needs the names of creer_ident_phylip
bool write_afas();

// Leaves a distance in the work buffer as short_number() writes it.
void dist2buffer(double value);

} // namespace kq
