// Groups of 20000 species: the batch assignment from an information file beside single moves, and moves on
// the list of groups outside drawing.
#include "core/families.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "screen/directories.h"
#include "taxonomy/fra_file.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_build.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_assignment.h"
#include "taxonomy/group_files.h"
#include "taxonomy/group_list.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/selection.h"
#include "timing.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <string>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

constexpr int species_count = max_species, leaf_count = 299; // a frame of 597 nodes, "Cupboard": 598 groups
constexpr int single_moves = 40;

void write_text(const std::string& path, const std::string& text)
{
    std::ofstream(path, std::ios::binary) << text;
}

// All species in "Cupboard"; every record names one group of the frame. The records are in another order than
// the species.
void prepare(bool with_lines)
{
    alignment_reset();
    store_allocate();
    store_begin(species_count, 4);
    for (int s = 0; s < species_count; s++)
        store_put(s, species_name(s), "ACGT", false, false);
    derive_families();
    std::string frame(leaf_count - 1, '(');
    frame += "G0:371:8:-1";
    for (int i = 1; i < leaf_count; i++)
        frame += ",G" + std::to_string(i) + ":371:8:-1)Branch" + std::to_string(i) + ":200:8:-1";
    build_frame(parse_fra("v\n" + frame + ";\n").nodes);

    std::string nom, inf;
    for (int i = 0; i < species_count; i++) {
        const int s = static_cast<int>(i * 7919L % species_count);
        const std::string name = species_name(s);
        const std::string accession = name.substr(name.find('@') + 1);
        inf += "[ORG] " + name.substr(0, name.find('@')) + "\n[ACC] " + accession +
               "\n[DEF] 16S ribosomal RNA gene, partial sequence, of the strain that the record "
               "describes\n[SYS] "
               "Bacteria; Proteobacteria; Gammaproteobacteria; Enterobacterales;\ng" +
               std::to_string(s * 31L % leaf_count) + "; Some_family;\nEscherichia.\n[BLA] 1.0e-100\n\n";
        if (with_lines) nom += std::string(nom_key(name)) + " , Cupboard\n";
    }
    write_text(folder() + "large.inf", inf);
    write_text(folder() + "large.nom", nom);
    dir_SEQ = folder();
    file_ALI = "large.ali";
    file_NOM = folder() + "large.nom";
    assign_groups(nom, file_NOM);
    selection_reset();
    list_species_of_group(cupboard());
}

int moved_species()
{
    int count = 0;
    for (int s = 0; s < species_count; s++)
        count += no_groupe[static_cast<std::size_t>(s)] != cupboard();
    return count;
}

void assign(bool with_lines)
{
    prepare(with_lines);
    const std::vector<int> list(working_list().begin(), working_list().end());
    const double one_by_one = seconds([&] {
        for (int i = 0; i < single_moves; i++)
            change_groupe_auto(list[static_cast<std::size_t>(i) * (species_count / single_moves)], cupboard(),
                               AutoMode::batch);
    });
    const int singles = moved_species();
    prepare(with_lines);
    const double batch = seconds([] { change_groupe_auto_list(cupboard()); });
    if (singles != single_moves || moved_species() != species_count || !selection_error().empty()) {
        std::fprintf(stderr, "species are not where they should be\n");
        std::exit(1);
    }
    const double all_singles = one_by_one / single_moves * species_count;
    std::printf(
        "%s: all %d species %.3f s; %d single moves %.1f ms each, which makes %.0f s for all: ratio %.0f\n",
        with_lines ? "a line for each species" : "an empty group file", species_count, batch, single_moves,
        one_by_one / single_moves * 1000, all_singles, all_singles / batch);
}

// The actions of the keys, without what the loop draws after each.
void moves_on_the_list()
{
    std::vector<int> groups(static_cast<std::size_t>(nb_groupe));
    std::iota(groups.begin(), groups.end(), 0);
    constexpr int rounds = 1000;
    int keys = 0;
    GroupListScreen screen(groups, GroupListMode::choose);
    const double time = seconds([&] {
        for (int round = 0; round < rounds; round++) {
            for (const GroupListAction action :
                 {&GroupListScreen::down, &GroupListScreen::page_down, &GroupListScreen::right,
                  &GroupListScreen::left, &GroupListScreen::page_up, &GroupListScreen::up,
                  &GroupListScreen::end, &GroupListScreen::home, &GroupListScreen::sub_list,
                  &GroupListScreen::full_list}) {
                (screen.*action)('G');
                keys++;
            }
        }
    });
    std::printf("a key on the list of %d groups, outside drawing: %.1f ns\n", nb_groupe, time / keys * 1e9);
}

} // namespace

int main()
{
    std::filesystem::create_directories(folder());
    assign(true);
    assign(false);
    moves_on_the_list();
    std::filesystem::remove_all(folder());
}
