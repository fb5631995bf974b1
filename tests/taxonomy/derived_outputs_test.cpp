// The files written for other programs: compared with golden files, and read back by readers of their own.
#include "core/ensemble_columns.h"
#include "editor/editor_test.h"
#include "screen/dialogs.h"
#include "screen/files.h"
#include "screen/process.h"
#include "screen/process_end.h"
#include "support/kel_reader.h"
#include "taxonomy/derived_outputs.h"
#include "tree_fixture.h"

#include <sys/resource.h>

#include <filesystem>

namespace kq {
namespace {

namespace fs = std::filesystem;
using test::Ending;
using Strings = std::vector<std::string>;

// An editor whose working directory is root()/work.
class DerivedOutputs : public test::EditorTest {
public:
    DerivedOutputs()
    {
        stop_clock(1179302400); // 16 May 2007, 8 hours
        work_in("work");
        file_NOM = "/d/zolt/data/five.nom";
        file_COL = "/d/zolt/data/five.col";
        file_KEL.clear();
        add_group("Birds, and so on");
    }
    ~DerivedOutputs() override { set_replacement(nullptr); }

protected:
    // The fifth and ninth columns hold no residue of an ensemble; the last species, a deleted one, is in
    // none.
    void load_five()
    {
        load({"A*C *GU*-A", "A CC$G-A*-", "AC", "  CA*-UU A", "CCCCCCCCCC"}, {{0, 1, 2}, {3, 1}});
        set_identifier(2, "\xC9lan high"); // beyond ASCII, no accession
        set_identifier(3, "genus two@parts@of it");
        new_est[1] = mask[3] = -1;
        no_groupe[0] = no_groupe[4] = 0;
        no_groupe[1] = no_groupe[2] = no_groupe[3] = 1;
        set_destroyed(4, true);
        write_file("seq/test.ali", "#\n#\n>a\nA\n");
        set_file_time("seq/test.ali", 1136214245); // 2 January 2006, 15 hours
        enter();
    }
    test::Played output(std::string_view keys)
    {
        return play(keys, [this] { result = write_file_kel_ali(); });
    }
    test::Played nom(std::string_view keys)
    {
        return play(keys, [this] { result = write_file_nom(); });
    }
    // The names in work/ and seq/.
    Strings files() const
    {
        Strings names = file_names("work");
        std::ranges::copy(file_names("seq"), std::back_inserter(names));
        return names;
    }
    int result = -99;
};

TEST_F(DerivedOutputs, FilesOfEveryKind)
{
    load_five();
    set_collapsed(1, true);
    const struct {
        const char *golden, *keys, *file;
    } cases[] = {{"outputs_kel", "Enter Enter", "work/test.kel"},
                 {"outputs_kel_groups", "Down*3 Enter \"2\" Enter", "work/test2.kel"},
                 {"outputs_kel_consensus", "Down*4 Enter \"3\" Enter", "work/test3.kel"},
                 {"outputs_ali", "Down Enter \"2\" Enter", "seq/test2.ali"},
                 {"outputs_ali_new", "Down*2 Enter \"3\" Enter", "seq/test3.ali"}};
    for (const auto& c : cases) {
        EXPECT_EQ(output(c.keys).ending, Ending::returned) << c.golden;
        const auto text = read_file(c.file);
        EXPECT_EQ(test::golden_text(c.golden, text), text);
        const bool kel = file_KEL.ends_with(".kel");
        EXPECT_EQ((kel ? test::read_kel(path(c.file)) : test::read_reduced_ali(path(c.file))).error, "");
    }
    EXPECT_FALSE(collapsed(1)) << "the consensus leaves every species on display";
    nom("\"list\" Enter");
    const auto list = read_file("work/list.nom");
    EXPECT_EQ(test::golden_text("outputs_nom", list), list);
    file_ALI = "test.part.ali"; // an extension begins at the first point
    write_file("work/test1.ali", "an older one");
    play("", write_multiple_ali);
    EXPECT_SCREEN("outputs_multiple");
    EXPECT_EQ(play("Z", write_multiple_ali).ending, Ending::returned);
    const auto both = read_file("work/test0.ali") + read_file("work/test1.ali");
    EXPECT_EQ(test::golden_text("outputs_ali_each", both), both);
    EXPECT_EQ(files(), (Strings{"list.nom", "test.kel", "test0.ali", "test1.ali", "test2.kel", "test3.kel",
                                "test.ali", "test2.ali", "test3.ali"}));
}

TEST_F(DerivedOutputs, CancelledOrRefusedNothingIsWritten)
{
    load_five();
    output("Down*3");
    EXPECT_SCREEN("outputs_menu");
    mark_changed();
    output("Enter \"N\"");
    EXPECT_SCREEN("outputs_name");
    // Neither under its own name nor under another one is the open alignment replaced.
    fs::create_symlink("test.ali", path("seq/other.ali"));
    for (const char* keys :
         {"Escape", "Enter Escape", "Down Enter Escape", "Enter \"N\" Escape", "Down Enter \"N\" Escape",
          "Down Enter \"N\" Enter*2 Z Escape", "Down Enter \"N\" BackSpace*4 \"other\" Enter*2 Z Escape"}) {
        result = -99;
        EXPECT_EQ(output(keys).keys_left, 0) << keys;
        EXPECT_EQ(result, escaped) << keys;
    }
    nom("Escape");
    EXPECT_EQ(result, escaped);
    write_file("work/in_use.nom", "");
    file_NOM = path("work/in_use.nom");
    nom("\"in_use\" Enter*2 Z Escape");
    EXPECT_EQ(result, escaped);
    EXPECT_EQ(files(), (Strings{"in_use.nom", "other.ali", "test.ali"}));
    EXPECT_EQ(read_file("seq/test.ali"), "#\n#\n>a\nA\n");
    EXPECT_EQ(file_KEL, "");
    EXPECT_TRUE(changed());
}

TEST_F(DerivedOutputs, WithoutAColumnToShowNothingIsWritten)
{
    load({"*-* ", "  "}, {{0}, {1}});
    output("Enter Enter");
    EXPECT_TRUE(shows("There are no more nucleotides"));
    play("Z", [] { write_multiple_ali(); });
    EXPECT_EQ(files(), Strings{});
    opt_nogap = 1; // every column is shown
    output("Enter Enter");
    EXPECT_EQ(test::read_kel("test.kel").sequences, (Strings{"*-* ", "    "}));
}

TEST_F(DerivedOutputs, WhatCannotBeWrittenIsAWarning)
{
    load_five();
    set_collapsed(0, true);
    write_file("work/test.kel", "the older one");
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit tiny = {16, limit.rlim_max}; // as if the disk were full
    setrlimit(RLIMIT_FSIZE, &tiny);
    output("Enter*3");
    const bool said = shows("Problem in writing file");
    nom("\"x\" Enter Z");
    play("Z", [] { write_multiple_ali(); });
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_TRUE(said);
    EXPECT_EQ(result, escaped);
    EXPECT_EQ(read_file("work/test.kel"), "the older one");
    EXPECT_EQ(files(), (Strings{"test.kel", "test.ali"}));

    dir_SEQ = path("none/");
    output("Down Enter \"2\" Enter");
    EXPECT_TRUE(shows("It is not possible to write in the directory"));
    fs::remove_all(path("work"));
    output("Up*2 Enter Enter");
    EXPECT_TRUE(shows("Problem in opening file"));
    EXPECT_TRUE(collapsed(0)) << "nothing was written, nothing has changed";
}

TEST_F(DerivedOutputs, KelTakesThePlaceOfTheEditorOnceTheFileIsThere)
{
    load_five();
    set_replacement([](const std::string& program) {
        return program == dir_ZOLTEXE + "kel" && test::read_kel("test.kel").error.empty();
    });
    EXPECT_EQ(output("Up Enter Enter").ending, Ending::returned);

    set_replacement([](const std::string&) { return false; });
    set_rescue([] { return std::string("saved.ali"); });
    EXPECT_EQ(output("Up Enter*3").status, 1);
    EXPECT_NE(errors().find("There is not enough memory to load KEL\n"), std::string::npos);
    EXPECT_NE(errors().find("saved.ali"), std::string::npos);
}

// ---- in the editor and on the tree ------------------------------------------------------------------------

TEST_F(DerivedOutputs, TheEditorStaysWhereItWas)
{
    load_five();
    edit("Down*3 Right*2 S-F5 Enter Enter");
    EXPECT_EQ(cursor_species(), 3);
    EXPECT_EQ(cursor_position(), 2);
    edit("\"E\" End S-F5 Down*4 Enter Enter Enter");
    EXPECT_EQ(view_error(), "");
    EXPECT_EQ(nb_spec_affich, 5);
    EXPECT_EQ(cursor_position(), 9);
}

class TreeOutputs : public test::TreeTest {};

TEST_F(TreeOutputs, WriteTheSelectionWithoutTouchingTheEditor)
{
    work_in("zolt");
    load_five_leaves();
    columns_allocate(nb_nuc_tot);
    delcom[3] = 255; // whatever the editor has hidden
    reset_ensembles();
    file_ALI = "test.ali";
    play_tree("S-F5");
    EXPECT_TRUE(shows("You must select at least two species"));

    play_tree("Home F2 S-F5 Enter Enter S-F9 \"all\" Enter");
    const auto kel = test::read_kel("test.kel");
    EXPECT_EQ(kel.error, "");
    EXPECT_EQ(kel.names, ensemble_names()) << "what is selected is the ensemble";
    EXPECT_EQ(kel.names.size(), 5U) << "all but the masked one";
    EXPECT_EQ(kel.positions.size(), 10U);
    EXPECT_TRUE(has_file("zolt/all.nom"));
    EXPECT_EQ(std::count(delcom, delcom + nb_nuc_tot, 255), 1);
}

// ---- against a plain recomputation ------------------------------------------------------------------------

TEST_F(DerivedOutputs, ShownColumnsEqualAPlainRecomputation)
{
    std::mt19937 random(7);
    const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    for (int round = 0; round < 60; round++) {
        SCOPED_TRACE(round);
        const int species = 2 + pick(10), columns = 1 + pick(40);
        const std::string letters = pick(3) ? "* $-*****A" : "*-ACGU";
        load(Strings(static_cast<std::size_t>(species), std::string(static_cast<std::size_t>(columns), '*')));
        for (int s = 0; s < species; s++) {
            std::string text(random() % static_cast<unsigned>(columns + 5), ' '); // shorter or longer
            for (char& c : text)
                c = letters[random() % letters.size()];
            replace_text(s, text);
            set_destroyed(s, pick(5) == 0);
        }
        for (int e = 0; e < 3; e++) { // which may share species
            std::vector<int> list;
            for (int s = 0; s < species; s++)
                if (pick(2)) list.push_back(s);
            set_members(e == 0 ? 0 : add_ensemble(), list);
        }
        plain::Texts all;
        for (int e = 0; e < nb_ens; e++)
            std::ranges::copy(texts(e), std::back_inserter(all));
        EXPECT_EQ(hidden_columns(std::vector{0}, false), plain::hidden_columns(texts(0), nb_nuc_tot));
        const auto hidden = plain::hidden_columns(all, nb_nuc_tot);
        std::vector<int> positions;
        for (int p = 0; p < nb_nuc_tot; p++)
            if (!hidden[static_cast<std::size_t>(p)]) positions.push_back(p + 1);
        if (positions.empty()) continue;
        Strings expected;
        for (const auto text : all) {
            expected.emplace_back();
            for (const int p : positions)
                expected.back() += p <= std::ssize(text) ? text[static_cast<std::size_t>(p) - 1] : ' ';
        }
        fs::remove("test.kel");
        fs::remove(path("seq/test2.ali"));
        output("Enter Enter");
        const auto kel = test::read_kel("test.kel");
        EXPECT_EQ(kel.positions, positions);
        EXPECT_EQ(kel.sequences, expected);
        output("Down Enter \"2\" Enter");
        EXPECT_EQ(test::read_reduced_ali(path("seq/test2.ali")).sequences, expected);
    }
}

} // namespace
} // namespace kq
