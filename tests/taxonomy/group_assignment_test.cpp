// Moving species to other groups: file, memory and list follow each other.
#include "taxonomy/group_assignment.h"
#include "taxonomy/group_moves.h"
#include "tree_fixture.h"

#include <filesystem>
#include <numeric>

using namespace kq;
using namespace kq::test;

namespace {

using Names = std::vector<std::string>;

std::string group_of(int species)
{
    return std::string(group_name(no_groupe[static_cast<std::size_t>(species)]));
}

class Assignment : public TreeTest {
public:
    Assignment() { file_ALI = "five.ali"; }
    ~Assignment() override { EXPECT_EQ(selection_error() + frame_error(), ""); }

    // These species on the five leaves, with these lines of the group file.
    void load_groups(const Names& names, const std::string& nom)
    {
        clear_selection();
        load_names(names);
        read_five_leaves(nom);
        pcour = nullptr;
    }
    void list(const std::vector<int>& species)
    {
        std::ranges::copy(species, cor.begin());
        nb_spec_gro = static_cast<int>(species.size());
    }
    // 0 or -1, after playing keys into whatever is shown.
    int change(int species, int shown, std::string_view keys)
    {
        int result = -99;
        play(keys, [&] { result = change_groupe(species, shown, MoveHow::chosen); });
        return result;
    }
    int change_auto(int species, int shown, std::string_view keys, AutoMode mode = AutoMode::interactive)
    {
        int result = -99;
        play(keys, [&] { result = change_groupe_auto(species, shown, mode); });
        return result;
    }
    std::string nom() const { return read_file("zolt/data/five.nom"); }
    std::string bak() const { return read_file("zolt/data/five.bak"); }
    static std::vector<std::string> groups()
    {
        std::vector<std::string> names;
        for (int s = 0; s < nb_spec; s++)
            names.push_back(group_of(s));
        return names;
    }
};

} // namespace

TEST_F(Assignment, AChoiceMovesFileMemoryAndList)
{
    load_groups({"Ant alpha@1", "Bee beta@2", "Ant alpha major@3", "Ant alpha@4"},
                "Ant alpha,A\nAnt alpha major,A\nBee beta,B\n");
    list({0, 1, 2});
    select_species(2);
    const int a = find_group("A");
    EXPECT_EQ(change(0, a, "E Enter"), 0);
    EXPECT_EQ(nom(), "Ant alpha , E\nAnt alpha major,A\nBee beta,B\n");
    EXPECT_EQ(bak(), "Ant alpha,A\nAnt alpha major,A\nBee beta,B\n");
    EXPECT_EQ(groups(), (Names{"E", "B", "E", "A"})) << "the list has the longer name, not the fourth row";
    EXPECT_EQ(working_names(), Names{"Bee beta@2"});
    EXPECT_EQ(nbret_groupe[0][static_cast<std::size_t>(find_group("E"))], 1);

    EXPECT_EQ(change(1, a, "Escape"), -1);
    list({0, 1});
    EXPECT_EQ(change(0, list_without_group, "B Enter"), 0);
    EXPECT_EQ(nb_spec_gro, 2) << "a list that is no group's keeps its species";

    // Without a list, the rows that the line in the file is about.
    list({1, 2});
    EXPECT_EQ(change(3, no_list, "C Enter"), 0);
    EXPECT_EQ(groups(), (Names{"C", "B", "E", "C"}));
    EXPECT_EQ(working_list().size(), 2U);
}

TEST_F(Assignment, WithFamiliesAllCopiesMove)
{
    load_groups({"x-Homo sapiens@1", "y-Homo sapiens@2", "y-Mus musculus@3", "Homo sapiens@4",
                 "z z-Homo sapiens@5", "x-Homo sapiens minor@6"},
                "Homo sapiens,A\nMus musculus,B\n");
    ASSERT_EQ(nb_family, 2);
    EXPECT_EQ(groups(), (Names{"A", "A", "B", "Cupboard", "A", "Cupboard"}));
    list({0});
    EXPECT_EQ(change(0, find_group("A"), "E Enter"), 0);
    EXPECT_EQ(nom(), "Homo sapiens , E\nMus musculus,B\n");
    // The last one's text after the family begins with the key, too: it leaves "Cupboard" for its family.
    EXPECT_EQ(groups(), (Names{"E", "E", "B", "Cupboard", "E", "E"}));
    EXPECT_EQ(no_family[5], 0);
    EXPECT_EQ(nbtot_groupe[0][static_cast<std::size_t>(find_group("E"))], 2);
    EXPECT_EQ(nb_spec_gro, 0);

    // To "Cupboard" and back; the one that no family knows stays there.
    EXPECT_EQ(change(1, no_list, "F2 Home C Down Enter"), 0);
    EXPECT_EQ(groups(), (Names{"Cupboard", "Cupboard", "B", "Cupboard", "Cupboard", "E"}));
    EXPECT_EQ(change(1, no_list, "A Enter"), 0);
    EXPECT_EQ(groups(), (Names{"A", "A", "B", "Cupboard", "Cupboard", "E"}));
}

TEST_F(Assignment, WhatCannotBeWrittenIsNotMoved)
{
    load_groups({"Ant alpha@1", "Ant, var. major@2"}, "Ant alpha,A\n");
    list({0, 1});
    const auto before = groups();
    EXPECT_EQ(change(1, no_list, "B Enter Q"), -1) << "a warning takes the key";
    EXPECT_EQ(nom(), "Ant alpha,A\n");
    std::filesystem::remove(file_NOM);
    play("B Enter", [] { change_groupe(0, list_without_group, MoveHow::chosen); });
    EXPECT_TRUE(shows("Problem in opening file " + file_NOM));
    EXPECT_EQ(change(0, find_group("A"), "B Enter Q"), -1);
    EXPECT_FALSE(has_file("zolt/data/five.nom"));
    write_file("seq/five.inf", "[ACC] 1\n[SYS] B.\n");
    play("Q", [] { EXPECT_EQ(change_groupe_auto_list(list_without_group), 0); });
    EXPECT_EQ(groups(), before);
    EXPECT_EQ(nb_spec_gro, 2);
}

TEST_F(Assignment, TheInformationFileLeadsToTheGroup)
{
    load_groups({"Ant alpha@A1", "Bee beta@A2", "Cat gamma@A3", "Dog delta"},
                "Ant alpha,A\nBee beta,A\nCat gamma,E\nDog delta,A\n");
    const int a = find_group("A");
    list({0, 1, 3});
    EXPECT_EQ(change_auto(0, a, ""), -99) << "no information file";
    EXPECT_EQ(line_of("It is impossible to automatically affect this species to a group"), 11);
    write_file("seq/five.inf", "[ACC] A1\r\n[SYS] Root; High;\r\nB.\r\n\r\n[ACC] A2\n[SYS] Nothing here\n\n"
                               "[ACC] A3\nfrom [SYS] C; D\n");
    change_auto(0, a, "");
    EXPECT_EQ(line_of("Ant alpha@A1 is now in the group B"), 11);
    EXPECT_EQ(group_of(0), "B") << "the last word that names a group";
    list_species_of_group(a);
    EXPECT_EQ(working_names(), (Names{"Bee beta@A2", "Dog delta"}));
    EXPECT_EQ(change_auto(0, a, ""), auto_done) << "no longer there";
    change_auto(1, a, "");
    EXPECT_EQ(line_of("There is no corresponding name of group in the frame"), 11);
    EXPECT_EQ(change_auto(3, a, "Q"), auto_failed) << "no accession";
    const int e = find_group("E");
    list({2});
    EXPECT_EQ(change_auto(2, e, "Q"), auto_failed) << "the text does not begin with [SYS]";
    EXPECT_EQ(change_auto(2, e, "", AutoMode::batch), auto_done);
    EXPECT_EQ(group_of(2), "D");
    list({0});
    EXPECT_EQ(change_auto(0, find_group("B"), "Q"), auto_done);
    EXPECT_EQ(group_of(0), "B") << "it is there already: the list is not empty";
    EXPECT_EQ(nb_spec_gro, 1);
    move_species_to_group(0, 0, a);
    EXPECT_EQ(change_auto(0, a, "Q"), auto_group_empty);
    EXPECT_EQ(nb_spec_gro, 0);

    // A branch shows the species of all groups below it.
    pcour = node_named("High");
    const int high = find_group("High");
    move_species_to_group(0, 0, a);
    collect_species_below(*pcour);
    EXPECT_EQ(change_auto(0, high, "Q"), auto_done);
    EXPECT_EQ(working_names(), (Names{"Bee beta@A2", "Dog delta", "Ant alpha@A1"}));
}

// The whole list at once is what one species after the other would have made, with and without families, in
// a list of a group, of a branch, of a search.
TEST_F(Assignment, ABatchIsAsManySingleMoves)
{
    std::mt19937 random(2025);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const std::string_view prefixes[] = {"", "x-", "y-", "x y-"},
                           names[] = {"A", "A b", "A b c", "Bb b", "C,c"},
                           words[] = {"A;", "B.", "c", "Low;", "Cupboard", "none", "?"};
    int moved = 0;
    for (int round = 0; round < 36; round++) {
        Names identifiers;
        const bool families = round % 2;
        for (int i = 2 + pick(12); i > 0; i--)
            identifiers.push_back(std::string(prefixes[families ? 1 + pick(3) : pick(4)]) +
                                  std::string(names[pick(pick(5) ? 4 : 5)]) + "@N" + std::to_string(pick(9)));
        std::string lines, inf;
        for (const auto* name : {"A", "A b", "Bb b"})
            if (pick(3)) lines += std::string(name) + "," + "ABCE"[pick(4)] + "\n";
        for (int i = 0; i < 9; i++) {
            inf += "[ACC] N" + std::to_string(i) + "\n";
            if (pick(5) == 0) continue;
            inf += pick(5) ? "[SYS]" : "see [SYS]";
            for (int w = pick(4); w > 0; w--)
                inf += " " + std::string(words[pick(7)]);
            inf += "\n\n";
        }
        Names outcomes[2]; // the groups, how many have moved, the list, the file
        const auto seed = random();
        for (const int batch : {0, 1}) {
            std::mt19937 same(seed);
            load_groups(identifiers, lines);
            std::filesystem::remove(path("zolt/data/five.bak"));
            write_file("seq/five.inf", inf);
            for (int s = 0; s < nb_spec; s++)
                if (same() % 2) select_species(s);
            int shown = list_without_group;
            const auto kind = same() % 3;
            if (kind == 0) {
                std::iota(cor.begin(), cor.end(), 0);
                nb_spec_gro = nb_spec - static_cast<int>(same() % 2);
            } else {
                if (kind == 2) pcour = p_arbre[0]->child2;
                shown = kind == 2 ? pcour->no : no_groupe[0];
                list_species_of_group(shown);
            }
            const std::vector<int> all(working_list().begin(), working_list().end());
            int sum = 0;
            play("Q*20", [&] {
                if (batch) {
                    sum = change_groupe_auto_list(shown);
                    return;
                }
                for (const int species : all)
                    sum += change_groupe_auto(species, shown, AutoMode::batch);
            });
            outcomes[batch] = groups();
            outcomes[batch].push_back(std::to_string(sum));
            std::ranges::copy(working_names(), std::back_inserter(outcomes[batch]));
            outcomes[batch].push_back(nom());
            moved += sum;
            if (batch && has_file("zolt/data/five.bak")) {
                EXPECT_EQ(bak(), lines);
            }
            ASSERT_EQ(selection_error(), "");
        }
        SCOPED_TRACE("round " + std::to_string(round) + "\n" + lines + inf);
        ASSERT_EQ(outcomes[1], outcomes[0]);
    }
    EXPECT_GT(moved, 60);
}

// Moves from the editor leave in memory what the file will give back.
TEST_F(Assignment, MemoryIsWhatTheFileSays)
{
    std::mt19937 random(51);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (const bool families : {false, true}) {
        Names names;
        for (int i = 0; i < 12; i++)
            names.push_back((families ? "xy"[i % 2] + std::string("-") : "") + "Genus " +
                            std::string(static_cast<std::size_t>(1 + i / 4), 'a') + "@" + std::to_string(i));
        load_groups(names, "");
        for (int round = 0; round < 20; round++) {
            const std::string_view targets[] = {"A.", "b;", "low", "CUPBOARD", "e"};
            const std::string text = "[SYS] " + std::string(targets[pick(5)]);
            if (pick(3) == 0) select_species(pick(nb_spec));
            ASSERT_EQ(change_groupe(pick(nb_spec), no_list, MoveHow::silent, text), 0);
            ASSERT_EQ(selection_error(), "");
            const auto group = no_groupe;
            const auto total = nbtot_groupe;
            ASSERT_EQ(assign_groups(nom(), file_NOM), "");
            if (!families) {
                ASSERT_EQ(total, nbtot_groupe);
            }
            ASSERT_EQ(group, no_groupe) << nom();
        }
    }
}
