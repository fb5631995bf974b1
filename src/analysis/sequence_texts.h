// format: the analysed species and the kept positions as PIR, MSF and aligned FASTA files, and as the data of
// a bootstrap run. Opens no box.
#pragma once

#include "analysis/phylip_names.h"
#include "analysis/put_text.h"

namespace kq {

// Deliberate: a line is empty where the number of positions is a multiple of 60.
bool put_pir(const PutText& put);

// With the names of ident_phylip. Deliberate: date and checksums are always the same; after positions in
// multiples of 50 comes a block of names only.
bool put_msf(const PutText& put);
bool write_ident_msf(const PhylipName& name, const PutText& file);

// Begins with two lines as an .ali file does. Deliberate: they are always "#M" and "#D".
bool put_afas(const PutText& put);

// The comment of a matrix, what to compute, then the species.
bool put_njb(const PutText& put);

} // namespace kq
