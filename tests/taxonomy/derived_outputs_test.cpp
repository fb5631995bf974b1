// The files written for other programs: each one is compared with a golden file and read back by a reader of
// its own.
#include "core/column_subset.h"
#include "core/ensemble_columns.h"
#include "editor/editor_test.h"
#include "screen/dialogs.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/process.h"
#include "screen/process_end.h"
#include "support/golden.h"
#include "support/kel_reader.h"
#include "support/plain_reference.h"
#include "taxonomy/derived_outputs.h"
#include "taxonomy/frame_files.h"
#include "tree_fixture.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <random>

namespace kq {
namespace {

namespace fs = std::filesystem;
using test::Ending;
using Strings = std::vector<std::string>;

// Everything that is in a directory.
Strings names_in(const std::string& directory)
{
    Strings names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

std::string replaced;

// An editor on five species in two ensembles that share one, in a working directory of its own.
class DerivedOutputs : public test::EditorTest {
public:
    DerivedOutputs()
        : before_(fs::current_path())
    {
        setenv("TZ", "UTC", 1);
        tzset();
        set_clock([] { return std::time_t{1179302400}; }); // 16 May 2007, 8 hours
        fs::create_directory(path("work"));
        fs::current_path(path("work"));
        set_replacement([](const std::string& program) {
            replaced = program;
            return true;
        });
        file_NOM = "/d/zolt/data/five.nom";
        file_COL = "/d/zolt/data/five.col";
        file_KEL.clear();
        replaced.clear();
        add_group("Birds, and so on");
    }
    ~DerivedOutputs() override
    {
        fs::current_path(before_);
        set_replacement(nullptr);
    }

protected:
    // The fifth and ninth columns hold no residue of an ensemble; the last species is in none of them.
    void load_five()
    {
        load({"A*C *GU*-A", "A CC$G-A*-", "AC", "  CA*-UU A", "CCCCCCCCCC"}, {{0, 1, 2}, {3, 1}});
        edit_name(2, "no accession");
        edit_name(3, "two@parts@of it");
        new_est[1] = -1;
        mask[3] = -1;
        no_groupe[0] = no_groupe[4] = 0;
        no_groupe[1] = no_groupe[2] = no_groupe[3] = 1;
        set_destroyed(4, true);
        write_file("seq/test.ali", "#\n#\n>a\nA\n");
        const timespec then[2] = {{0, 0}, {1136214245, 0}}; // 2 January 2006, 15 hours
        utimensat(AT_FDCWD, path("seq/test.ali").c_str(), then, 0);
        enter();
    }
    static void edit_name(int species, std::string_view name) { set_identifier(species, name); }

    test::Played output(std::string_view keys)
    {
        return play(keys, [this] { result = write_file_kel_ali(); });
    }
    std::string written(const std::string& name) const { return read_file("work/" + name); }
    std::string file(const std::string& name) const { return path("work/" + name); }
    void expect_nothing_written()
    {
        EXPECT_EQ(names_in(path("work")), Strings{});
        EXPECT_EQ(names_in(path("seq")), Strings{"test.ali"});
    }
    int result = -99;

private:
    fs::path before_;
};

// The golden text of a whole file.
#define EXPECT_FILE(name, text) EXPECT_EQ(test::golden_text(name, text), text)

TEST_F(DerivedOutputs, SelectedSpeciesInAKelFile)
{
    load_five();
    output("Enter Enter");
    EXPECT_EQ(result, ok);
    EXPECT_EQ(file_KEL, "test.kel");
    EXPECT_FILE("outputs_kel", written("test.kel"));
    const auto kel = test::read_kel(file("test.kel"));
    EXPECT_EQ(kel.error, "");
    EXPECT_EQ(kel.positions, (std::vector<int>{1, 2, 3, 4, 6, 7, 8, 10}));
    EXPECT_EQ(kel.names.size(), 5u);
    EXPECT_EQ(kel.names[1], kel.names[4]) << "a species of two ensembles is written twice";
    EXPECT_EQ(names_in(path("work")), Strings{"test.kel"});

    output("Down*3 Enter End BackSpace*4 \"groups\" Enter");
    EXPECT_FILE("outputs_kel_groups", written("groups.kel"));
    const auto groups = test::read_kel(file("groups.kel"));
    EXPECT_EQ(groups.names, (Strings{"Genus_a species@Cupboard", "Genus_b species@Birds, and so on",
                                     "no accession@Birds, and so on", "two@Birds, and so on",
                                     "Genus_b species@Birds, and so on"}));
    EXPECT_EQ(groups.sequences, kel.sequences);
}

TEST_F(DerivedOutputs, TheConsensusLeavesEverySpeciesOnDisplay)
{
    load_five();
    set_collapsed(1, true);
    set_ensemble_name(1, "the second one");
    output("Down*4 Enter Enter");
    EXPECT_FILE("outputs_kel_consensus", written("test.kel"));
    const auto kel = test::read_kel(file("test.kel"));
    EXPECT_EQ(kel.names, (Strings{">Ensemble1|ensemble A", ">Ensemble2|the second one"}));
    for (int e = 0; e < 2; e++) {
        EXPECT_EQ(type_affich_ens[static_cast<std::size_t>(e)], -1);
        plain::Texts texts;
        for (const int species : members(e))
            texts.emplace_back(row(species).data(), row(species).size());
        const auto consensus = plain::ensemble_consensus(texts, nb_nuc_tot, type_seq, caractere).characters;
        std::string shown;
        for (const int position : kel.positions)
            shown += consensus[static_cast<std::size_t>(position - 1)];
        EXPECT_EQ(kel.sequences[static_cast<std::size_t>(e)], shown);
    }
}

TEST_F(DerivedOutputs, ReducedAlignmentsStandBesideTheAlignment)
{
    load_five();
    output("Down Enter \"2\" Enter");
    EXPECT_EQ(result, ok);
    EXPECT_FILE("outputs_ali", read_file("seq/test2.ali"));
    output("Up*4 Enter \"3\" Enter");
    EXPECT_FILE("outputs_ali_new", read_file("seq/test3.ali"));
    const auto plain_names = test::read_reduced_ali(path("seq/test2.ali"));
    const auto with_new = test::read_reduced_ali(path("seq/test3.ali"));
    EXPECT_EQ(plain_names.error + with_new.error, "");
    EXPECT_EQ(plain_names.comments, (Strings{"Molecule", "Domain"}));
    EXPECT_EQ(with_new.names[1], plain_names.names[1] + "#NEW#");
    EXPECT_EQ(with_new.sequences, plain_names.sequences);
}

TEST_F(DerivedOutputs, OneAlignmentForEachEnsemble)
{
    load_five();
    std::ofstream(file("test1.ali")) << "an older one";
    file_ALI = "test.part.ali"; // an extension begins at the first point
    const auto multiple = [] { write_multiple_ali(); };
    play("", multiple);
    EXPECT_SCREEN("outputs_multiple");
    EXPECT_EQ(play("Z", multiple).ending, Ending::returned);
    EXPECT_EQ(names_in(path("work")), (Strings{"test0.ali", "test1.ali"}));
    EXPECT_FILE("outputs_ali_0", written("test0.ali"));
    EXPECT_FILE("outputs_ali_1", written("test1.ali"));
    EXPECT_EQ(test::read_reduced_ali(file("test0.ali")).names.size(), 3u);
    EXPECT_EQ(test::read_reduced_ali(file("test1.ali")).names.size(), 2u);
}

TEST_F(DerivedOutputs, SpeciesAndGroupsInByteOrder)
{
    load_five();
    edit_name(3, "genus small");
    edit_name(2, "\xC9lan high"); // beyond ASCII: last
    const auto nom = [this] { result = write_file_nom(); };
    play("\"list\" Enter", nom);
    EXPECT_EQ(result, ok);
    EXPECT_FILE("outputs_nom", written("list.nom"));
    const auto list = test::read_nom_list(file("list.nom"));
    ASSERT_EQ(list.size(), 5u) << "deleted rows too";
    EXPECT_EQ(list[2].first, "Genus_e species@5");
    EXPECT_EQ(list[3], std::make_pair(std::string("genus small"), std::string("Birds, and so on")));

    play("\"list\" Enter", nom);
    EXPECT_TRUE(shows("list.nom exists already and will be overwritten"));
    file_NOM = file("list.nom");
    play("\"list\" Enter Enter", nom);
    EXPECT_TRUE(shows("is the group file you are working with"));
    result = -99;
    play("Escape", nom);
    EXPECT_EQ(result, escaped);
    EXPECT_EQ(names_in(path("work")), Strings{"list.nom"});
}

TEST_F(DerivedOutputs, TheMenuAndTheQuestionsBeforeWriting)
{
    load_five();
    output("Down*3");
    EXPECT_SCREEN("outputs_menu");
    mark_changed();
    output("Enter");
    EXPECT_TRUE(shows("Do you want to save your modifications?"));
    output("Enter \"N\"");
    EXPECT_SCREEN("outputs_name");
    for (const char* keys : {"Escape", "Enter Escape", "Down Enter Escape", "Enter \"N\" Escape",
                             "Down Enter \"N\" Escape", "Down*5 Enter Escape"}) {
        result = -99;
        output(keys);
        EXPECT_EQ(result, escaped) << keys;
        EXPECT_EQ(file_KEL, "");
        expect_nothing_written();
    }
    EXPECT_TRUE(changed());
}

TEST_F(DerivedOutputs, TheOpenAlignmentIsNeverReplaced)
{
    load_five();
    fs::create_symlink("test.ali", path("seq/other.ali"));
    const std::string whole = read_file("seq/test.ali");
    for (const char* name : {"", "BackSpace*4 \"other\" "}) {
        result = -99;
        output("Down Enter " + std::string(name) + "Enter Enter");
        EXPECT_TRUE(shows("is the alignment you are working on")) << name;
        output("Down Enter " + std::string(name) + "Enter Enter Z Escape");
        EXPECT_EQ(result, escaped);
        EXPECT_EQ(read_file("seq/test.ali"), whole);
    }
}

TEST_F(DerivedOutputs, WithoutAColumnToShowNothingIsWritten)
{
    load({"*-* ", "  "}, {{0}, {1}});
    write_file("seq/test.ali", "");
    output("Enter Enter");
    EXPECT_TRUE(shows("There are no more nucleotides"));
    output("Enter Enter Z");
    EXPECT_EQ(result, escaped);
    play("Z", [] { write_multiple_ali(); });
    expect_nothing_written();
    opt_nogap = 1; // every column is shown
    output("Enter Enter");
    EXPECT_EQ(test::read_kel(file("test.kel")).sequences, (Strings{"*-* ", "    "}));
}

TEST_F(DerivedOutputs, WhatCannotBeWrittenIsAWarning)
{
    load_five();
    set_collapsed(0, true);
    write_file("work/test.kel", "the older one");
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tiny = {16, limit.rlim_max};
    const auto nom = [this] { result = write_file_nom(); };
    setrlimit(RLIMIT_FSIZE, &tiny);
    output("Enter Enter Enter");
    const bool said = shows("Problem in writing file");
    output("Enter Enter Enter Z");
    const int kel_result = result;
    play("\"x\" Enter Z", nom);
    play("Z", [] { write_multiple_ali(); });
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(said);
    EXPECT_EQ(kel_result, escaped);
    EXPECT_EQ(result, escaped);
    EXPECT_EQ(written("test.kel"), "the older one");
    EXPECT_EQ(names_in(path("work")), Strings{"test.kel"});

    dir_SEQ = path("none/");
    output("Down Enter \"2\" Enter");
    EXPECT_TRUE(shows("It is not possible to write in the directory"));
    fs::remove_all(path("work"));
    output("Up*2 Enter Enter");
    EXPECT_TRUE(shows("Problem in opening file"));
    EXPECT_TRUE(collapsed(0)) << "nothing was written, nothing has changed";
}

TEST_F(DerivedOutputs, KelTakesThePlaceOfTheEditor)
{
    load_five();
    output("Up Enter Enter");
    EXPECT_EQ(replaced, dir_ZOLTEXE + "kel");
    EXPECT_EQ(test::read_kel(file("test.kel")).error, "");

    set_replacement([](const std::string&) { return false; });
    set_rescue([] { return std::string("saved.ali"); });
    const auto played = output("Up Enter Enter Enter");
    EXPECT_EQ(played.ending, Ending::program_ended);
    EXPECT_EQ(played.status, 1);
    EXPECT_NE(errors().find("There is not enough memory to load KEL\n"), std::string::npos);
    EXPECT_NE(errors().find("saved.ali"), std::string::npos);
}

// ---- in the editor and on the tree ------------------------------------------------------------------------

TEST_F(DerivedOutputs, TheEditorStaysAsItWas)
{
    load_five();
    edit("Down*3 Right*2 S-F5 Enter Enter");
    EXPECT_EQ(cursor_species(), 3);
    EXPECT_EQ(cursor_position(), 2);
    EXPECT_EQ(names_in(path("work")), Strings{"test.kel"});

    edit("\"E\" End \"M\" S-F5 Down*4 Enter Enter Enter");
    EXPECT_EQ(view_error(), "");
    EXPECT_EQ(nb_spec_affich, 5);
    EXPECT_FALSE(collapsed(0));
    EXPECT_EQ(cursor_position(), 9);
    EXPECT_EQ(line(1).substr(0, 15), "Genus_a species");
}

class TreeOutputs : public test::TreeTest {
protected:
    TreeOutputs()
        : before_(fs::current_path())
    {
        fs::create_directory(path("work"));
        fs::current_path(path("work"));
        load_five_leaves();
        columns_allocate(nb_nuc_tot);
        consensus_allocate(0, nb_nuc_tot);
        set_caractere();
        reset_ensembles();
        file_ALI = "test.ali";
        mark_saved();
    }
    ~TreeOutputs() override { fs::current_path(before_); }

private:
    fs::path before_;
};

TEST_F(TreeOutputs, WriteTheSelectionWithoutTouchingTheEditor)
{
    play_tree("S-F5");
    EXPECT_TRUE(shows("You must select at least two species"));
    clear_selection();
    play_tree("F2 S-F5 Z Home F4 Enter");
    EXPECT_EQ(names_in(path("work")), Strings{});

    const std::vector<unsigned char> flags(delcom, delcom + nb_nuc_tot + 1);
    const int shown_before = nb_nuc, row_before = ens_curs, column_before = pos_curs;
    const auto played = play_tree("Home F2 S-F5 Enter Enter S-F9 \"all\" Enter");
    EXPECT_EQ(played.ending, Ending::script_ended);
    const auto kel = test::read_kel(path("work/test.kel"));
    EXPECT_EQ(kel.error, "");
    EXPECT_EQ(kel.names, ensemble_names()) << "what is selected is the ensemble";
    EXPECT_EQ(kel.names.size(), 5u) << "all but the masked one";
    EXPECT_EQ(kel.positions.size(), 10u);
    EXPECT_EQ(test::read_nom_list(path("work/all.nom"))[3],
              std::make_pair(std::string("Dog delta@4"), std::string("C")));
    EXPECT_TRUE(std::equal(flags.begin(), flags.end(), delcom));
    EXPECT_EQ(nb_nuc, shown_before);
    EXPECT_EQ(ens_curs, row_before);
    EXPECT_EQ(pos_curs, column_before);
    EXPECT_EQ(selection_error(), "");
}

// ---- shown columns against a plain recomputation ----------------------------------------------------------

TEST_F(DerivedOutputs, ShownColumnsEqualAPlainRecomputation)
{
    for (unsigned seed = 1; seed <= 60; seed++) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        const int species = 1 + static_cast<int>(random() % 12),
                  columns = static_cast<int>(1 + random() % 40);
        const std::string letters = random() % 3 ? "* $-*****A" : "*-ACGU";
        Strings rows;
        for (int s = 0; s < species; s++) {
            std::string text(s == 0 ? static_cast<std::size_t>(columns) : random() % (columns + 1U), ' ');
            for (char& c : text)
                c = letters[random() % letters.size()];
            rows.push_back(text);
        }
        std::vector<std::vector<int>> ensembles(1 + random() % 3);
        for (auto& list : ensembles)
            for (int s = 0; s < species; s++)
                if (random() % 2) list.push_back(s);
        load(rows, ensembles);
        for (int s = 0; s < species; s++) {
            std::string text = rows[static_cast<std::size_t>(s)];
            if (random() % 4 == 0) text += "ACGU"; // beyond the alignment's last column
            if (random() % 2) replace_text(s, text);
            if (random() % 5 == 0) set_destroyed(s, true);
        }
        std::vector<int> listed;
        plain::Texts texts;
        for (int e = 0; e < nb_ens; e++) {
            if (random() % 4 == 0) continue;
            listed.push_back(e);
            for (const int s : members(e))
                texts.emplace_back(row(s).data(), row(s).size());
        }
        const auto hidden = hidden_columns(listed, false);
        ASSERT_EQ(hidden, plain::hidden_columns(texts, nb_nuc_tot));
        const ColumnSubset subset(hidden);
        for (const auto& text : texts) {
            std::string cut, expected;
            for (int p = 0; p < nb_nuc_tot; p++)
                if (!hidden[static_cast<std::size_t>(p)])
                    expected +=
                        static_cast<std::size_t>(p) < text.size() ? text[static_cast<std::size_t>(p)] : ' ';
            subset.append(cut, text);
            ASSERT_EQ(cut, expected);
            ASSERT_EQ(static_cast<int>(cut.size()), subset.count());
        }
    }
}

} // namespace
} // namespace kq
