// model: the parameters of an analysis, and the distances it can compute.
#pragma once

#include <array>
#include <string_view>

namespace kq {

// Set by the parameter box (analysis/parameter_box.h).
extern int type_auto;   // level of complexity, 1 to 3
extern int percent_gap; // a position with more than this percentage of gaps is removed, 0 to 100
extern double alpha;    // shape parameter of the gamma distances
inline constexpr int default_level = 1, default_percent = 5;
inline constexpr double default_alpha = 0.5;

inline constexpr int arn_distances = 13, prot_distances = 8;

// Names of the distances of the molecule type, indexed by type_dist; empty beyond the last. Written by
// name_distances.
extern std::array<std::string_view, arn_distances> opt_mat;
extern int type_dist; // the distance being computed, an index of opt_mat; written by the driver
// Names of parsimony types, indexed by type_parci. Deliberate: nothing names them.
extern std::array<std::string_view, 3> opt_parci;
extern int type_parci;
// Characters that the distances take as unknown. Written by name_distances.
extern std::string_view car_inconnu;

// Fills opt_mat and car_inconnu for a molecule type: 0 nucleic acid, 1 protein.
void name_distances(int type);
// Whether the distance has a shape parameter (alpha).
bool gamma_distance(int distance, int type);

void parameters_reset();

} // namespace kq
