// A tree screen on real files: frame, groups and colours in the session's own directories.
#pragma once

#include "core/ali_reader.h"
#include "screen/directories.h"
#include "support/screen_test.h"
#include "taxonomy/ensembles.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/frame_screen.h"
#include "taxonomy/group_file_screen.h"
#include "taxonomy_session.h"

namespace kq::test {

// One alignment of the demo.
struct DataSet {
    std::string alignment, frame, groups;
};
inline const DataSet ssu_small{"ssu_small", "BACTERIA", "bacteria"};
inline const DataSet birds{"ovomucoid", "BIRDS", "birds"};
inline const DataSet proteases{"proteases", "ANIMALS", "animals"};

class TreeTest : public ScreenTest {
public:
    explicit TreeTest(const Geometry& geometry = {})
        : ScreenTest(geometry)
    {
        reset_taxonomy();
        file_frame.clear();
        file_NOM.clear();
        file_COL.clear();
    }
    ~TreeTest() override { reset_taxonomy(); }

    // Reads frame, groups and colours from the session's files, as the program does after a load.
    void read_taxonomy(const std::string& frame, const std::string& groups)
    {
        write_file("zolt/data/afas.ref", frame + "\n" + path("zolt/data/" + groups + ".nom") + "\n" +
                                             path("zolt/data/" + groups + ".col") + "\n");
        read_FRA_NOM_COL();
        read_frame();
        adjust_frame();
        read_file_NOM();
    }

    // "Genus species1@X" and so on, each in the group that is told.
    void load_many(int count, const std::function<std::string(int)>& group_of,
                   const std::string& frame = "FIVE")
    {
        std::vector<std::string> names;
        std::string groups;
        for (int i = 0; i < count; i++) {
            const std::string name = "Genus species" + std::to_string(i + 1);
            names.push_back(name + "@X");
            groups += name + "," + group_of(i) + "\n";
        }
        reset_taxonomy();
        load_names(names);
        read_five_leaves(groups, frame);
    }

    // The frame of `five_leaves` (or another one), its colours and these lines of groups.
    void read_five_leaves(const std::string& nom, const std::string& frame = "FIVE")
    {
        write_file("zoltexe/FIVE.fra", "1 May\n" + std::string(five_leaves) + "\n");
        write_file("zolt/data/five.nom", nom);
        write_file("zolt/data/five.col", "10,A\n3,B\n14,C\n5,E\n");
        read_taxonomy(frame, "five");
    }

    // A frame of these leaves only, "Genus n0" and so on in them.
    void load_leaves(const std::vector<std::string>& leaves)
    {
        std::vector<std::string> names;
        std::string frame(leaves.size() - 1, '('), groups, colours;
        for (const auto& leaf : leaves) {
            const std::string number = std::to_string(names.size());
            names.push_back("Genus n" + number);
            groups += names.back() + "," + leaf + "\n";
            colours += std::to_string(1 + (names.size() - 1) % 15) + "," + leaf + "\n";
            frame += (number == "0" ? "" : ",") + leaf + ":371:8:-1" + (number == "0" ? "" : ")?:200:8:-1");
        }
        load_names(names);
        write_file("zoltexe/LEAVES.fra", "v\n" + frame + ";\n");
        write_file("zolt/data/leaves.nom", groups);
        write_file("zolt/data/leaves.col", colours);
        read_taxonomy("LEAVES", "leaves");
    }

    // Six species on the five leaves of `five_leaves`.
    void load_five_leaves()
    {
        load_rows({{.name = "Ant alpha@1", .text = "ACGTACGTAC"},
                   {.name = "Bee beta@2", .text = "ACGT*CGTAC"},
                   {.name = "Cat gamma@3", .text = "AC??**  AC", .is_new = true},
                   {.name = "Dog delta@4", .text = "ACGTACGTAC", .masked = true},
                   {.name = "Elk epsilon@5", .text = "**********"},
                   {.name = "Fox zeta@6", .text = "ACGTACGTNN"}});
        read_five_leaves("Ant alpha,A\nBee beta,B\nCat gamma,C\nDog delta,C\nElk epsilon,A\nFox zeta,E\n");
    }

    void load(const DataSet& set, const std::string& folder = KQ_SOURCE_DIRECTORY "/demo")
    {
        const std::string frame = "zoltexe/" + set.frame + ".fra";
        const std::string groups = "zolt/data/" + set.groups;
        write_file(frame, read_bytes(folder + "/ZOLTEXE/" + frame));
        for (const char* extension : {".nom", ".col"})
            write_file(groups + extension, read_bytes(folder + "/ZOLT/" + groups + extension));
        ASSERT_TRUE(store_allocate());
        const std::string alignment = folder + "/ZOLT/seq/" + set.alignment + ".ali";
        ASSERT_EQ(load_ali(alignment, check_ali(alignment)), "");
        derive_families();
        read_taxonomy(set.frame, set.groups);
    }

    // Plays keys into the tree screen of ensemble 0.
    Played play_tree(std::string_view keys)
    {
        return play(keys, [this] { constructed = construct_ensemble(0); });
    }
    std::vector<std::string> ensemble_names() const
    {
        std::vector<std::string> names;
        for (const int s : members(0))
            names.emplace_back(identifier(s));
        return names;
    }
    int constructed = -99; // what construct_ensemble returned
};

} // namespace kq::test
