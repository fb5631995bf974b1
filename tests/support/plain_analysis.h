// The plain version of a whole analysis: every file that a run writes, text by text, from the alignment and
// the parameters alone.
#pragma once

#include "support/plain_distances.h"

#include <map>
#include <string>
#include <vector>

namespace kq::plain {

struct Species {
    std::string identifier; // at most 79 characters
    std::string row;        // reads as blanks beyond its end
};

struct Analysis {
    std::string file, file_date; // of the alignment (file_ALI)
    std::string today;
    std::string colours, groups; // file_COL, file_NOM
    int type = 0;                // 0 nucleic acid, 1 protein
    int columns = 0;             // aligned positions
    int identifier_option = 0;   // opt_identificateur
    bool all_columns_shown = false;
    std::vector<Species> species;
    std::vector<std::vector<int>> ensembles;
    Weights identity{}; // the weights of the distances that a run computes

    int level = 1, percent = 5;
    double shape = 0.5; // alpha
};

// Text by file name.
using Files = std::map<std::string, std::string>;

// What a run at analysis.level writes; empty when the percentage leaves no position.
Files analysis_files(const Analysis& analysis);

// Files that a run does not write, of the same species and positions. They bear the name that the next
// sequence file would have after `sequence_files` of them; the first two are those of write_nexus, which
// takes all the positions that are not hidden.
Files nexus_files(const Analysis& analysis, int sequence_files);
std::string pir_file(const Analysis& analysis);
std::string msf_file(const Analysis& analysis, const std::string& name);
std::string aligned_fasta_file(const Analysis& analysis);

} // namespace kq::plain
