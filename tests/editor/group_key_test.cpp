// The group of the cursor's species, changed from the editor; ensembles as the bacterial split leaves them.
#include "editor_test.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/group_files.h"

#include <random>

using namespace kq;
using namespace kq::test;

namespace {

class GroupKey : public EditorTest {
public:
    // Groups "Ant" and "Bee" beside "Cupboard", and a file that the species are in.
    void load_groups()
    {
        load({"ACGT", "ACGT", "ACGT"});
        nb_groupe = 0;
        for (const char* name : {"Ant", "Bee", "Cupboard"})
            add_group(name);
        color_groupe[0] = 10;
        color_groupe[1] = 12;
        write_file("zolt/data/x.nom", nom);
        file_NOM = path("zolt/data/x.nom");
        ASSERT_EQ(assign_groups(nom, file_NOM), "");
    }
    const std::string nom = "Genus_a species,Ant\nGenus_b species,Ant\nGenus_c species,Bee\n";
};

} // namespace

TEST_F(GroupKey, MovesTheSpeciesUnderTheCursor)
{
    load_groups();
    cor[0] = 2; // of an earlier list
    nb_spec_gro = 1;
    edit("Down F10 b Enter");
    EXPECT_EQ(read_file("zolt/data/x.nom"),
              "Genus_a species,Ant\nGenus_b species , Bee\nGenus_c species,Bee\n");
    EXPECT_EQ(no_groupe[1], 1);
    EXPECT_EQ(no_groupe[0], 0);
    EXPECT_EQ(color_of("Genus_b"), 12) << "the screen is drawn again";
    EXPECT_EQ(selection_error(), "");
    edit("F10 Escape");
    EXPECT_EQ(no_groupe[0], 0);
    set_collapsed(0, true);
    edit("F10");
    EXPECT_TRUE(shows("Change the type of display of the ensemble n1 before"));
}

TEST_F(GroupKey, TheEditorSurvivesEnsemblesWithoutSpecies)
{
    std::mt19937 random(9);
    for (const auto& ensembles : std::vector<std::vector<std::vector<int>>>{
             {{}, {0, 1}, {}, {2}, {}}, {{0}, {}, {}, {}, {}}, {{}, {}, {}, {}, {2}}}) {
        load({"ACGT", "AC*T", "A  T"}, ensembles);
        for (int e = 1; e < nb_ens; e++) {
            set_collapsed(e, true);
            compute_consensus(e);
        }
        const std::string keys = random_keys(
            random, "Up|Down|PgDn|PgUp|Left|Right|End|Home|e|m|c|+|-|F10 Q|Space|BackSpace|Tab|*", 60);
        SCOPED_TRACE(keys);
        EXPECT_EQ(edit(keys).ending, Ending::script_ended);
        EXPECT_EQ(view_error(), "");
    }
}
