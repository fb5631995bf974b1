// screen: what every analysis of the ensembles begins and ends with.
#include "analysis/analysis_start.h"

#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/position_removal.h"
#include "screen/dialogs.h"
#include "screen/strings.h"

namespace kq {

namespace {

constexpr int warning_line = 5;

} // namespace

bool too_many_to_analyse()
{
    const int species = members_of_ensembles();
    if (species <= max_species) return false;
    affich_avert(
        text_format("You can analyse at most %d species; the ensembles have %d", max_species, species),
        warning_line);
    return true;
}

AnalysisScope::~AnalysisScope()
{
    libere_memoire_dist();
}

bool AnalysisScope::choose_positions()
{
    elimine_pos_gap();
    if (nb_nuc_keep > 0) return true;
    affich_avert("Your percent eliminates all the positions", warning_line);
    return false;
}

} // namespace kq
