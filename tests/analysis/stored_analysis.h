// The alignment in the store as the plain version of an analysis takes it.
#pragma once

#include "core/options.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "support/ali_folder.h"
#include "support/plain_analysis.h"
#include "taxonomy/frame_files.h"

#include <sstream>

namespace kq::test {

inline plain::Analysis stored_analysis()
{
    plain::Analysis stored;
    stored.file = file_ALI;
    stored.file_date = date_fichier(dir_SEQ + file_ALI);
    stored.today = date();
    stored.colours = file_COL;
    stored.groups = file_NOM;
    stored.type = type_seq;
    stored.columns = nb_nuc_tot;
    stored.identifier_option = opt_identificateur;
    stored.all_columns_shown = opt_nogap != 0;
    for (int s = 0; s < nb_spec; s++)
        stored.species.push_back({std::string(identifier(s)), row_text(s)});
    for (int e = 0; e < nb_ens; e++)
        stored.ensembles.emplace_back(members(e).begin(), members(e).end());
    std::istringstream matrix(read_bytes(dir_ZOLTEXE + "IDENTITE.MAT"));
    for (auto& weights : stored.identity)
        for (double& weight : weights)
            matrix >> weight;
    return stored;
}

} // namespace kq::test
