// The largest number of species, spread over the groups of a frame.
#include "bench/grouped_species.h"

#include "core/families.h"
#include "core/store.h"
#include "taxonomy/fra_file.h"
#include "taxonomy/frame_build.h"
#include "taxonomy/group_files.h"

#include <cstdlib>

namespace kq::bench {

namespace {

constexpr int leaf_count = 138;

std::string name(int species)
{
    return "Genus species number " + std::to_string(species);
}

std::string load()
{
    if (!store_allocate() || !store_begin(max_species, 4).empty()) std::abort();
    for (int s = 0; s < max_species; s++)
        store_put(s, name(s) + "@X" + std::to_string(s * 7), "ACGT", false, s % 4 == 0);
    derive_families();

    std::string frame(leaf_count - 1, '(');
    frame += "g0:371:8:-1";
    for (int i = 1; i < leaf_count; i++)
        frame += ",g" + std::to_string(i) + ":371:8:-1)?:200:8:-1";
    build_frame(parse_fra("v\n" + frame + ";\n").nodes);

    std::string groups;
    for (int i = 0; i < max_species; i++) {
        const int s = static_cast<int>(i * 7919L % max_species);
        groups += name(s) + " , g" + std::to_string(s * 31 % leaf_count) + "\n";
    }
    assign_groups(groups, "nom");
    return groups;
}

} // namespace

const std::string& load_grouped_species()
{
    static const std::string groups = load();
    return groups;
}

} // namespace kq::bench
