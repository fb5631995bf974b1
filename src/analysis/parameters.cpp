// model: the parameters of an analysis, and the distances it can compute.
#include "analysis/parameters.h"

#include <algorithm>

namespace kq {

namespace {

constexpr std::string_view arn_names[arn_distances] = {
    "All the differences",
    "Transitions",
    "Transversions",
    "Deletions",
    "Transitions + Transversions",
    "Transitions + Deletions",
    "Transversions + Deletions",
    "Distance of JUKES and CANTOR",
    "Distance of KIMURA (2 parameters)",
    "Gamma-JC (Rzhetsky/Nei 1994)",
    "Gamma-KIMURA (Rzhetsky/Nei 1994)",
    "Gamma-KIMURA (Jin/Nei 1990)",
    "Tamura/Nei (1993)",
};
constexpr std::string_view prot_names[prot_distances] = {
    "Boolean (any difference = 1)",  "Distance of Kimura (1983)",
    "No conservative differences",   "Conservative differences",
    "All differences, gap excluded", "Only insertions and deletions",
    "Rzhetsky and Nei (1994)",       "Ota and Nei (1994)",
};

} // namespace

constinit int type_auto = default_level;
constinit int percent_gap = default_percent;
constinit double alpha = default_alpha;
constinit std::array<std::string_view, arn_distances> opt_mat{};
constinit int type_dist = 0;
constinit std::array<std::string_view, 3> opt_parci{};
constinit int type_parci = 0;
constinit std::string_view car_inconnu;

void name_distances(int type)
{
    opt_mat.fill({});
    if (type == 0)
        std::copy(std::begin(arn_names), std::end(arn_names), opt_mat.begin());
    else
        std::copy(std::begin(prot_names), std::end(prot_names), opt_mat.begin());
    car_inconnu = type == 0 ? " ?XRYMWSKVHDBN" : " ?X";
}

bool gamma_distance(int distance, int type)
{
    return type == 0 ? distance >= 9 && distance <= 12 : distance >= 6;
}

void parameters_reset()
{
    type_auto = default_level;
    percent_gap = default_percent;
    alpha = default_alpha;
    opt_mat.fill({});
    type_dist = type_parci = 0;
    car_inconnu = {};
}

} // namespace kq
