// Commands on whole ensembles: chosen from the list, collapsed, built anew, discarded, sorted; and what
// stands beside the names of species.
#include "core/merging.h"
#include "editor/ensemble_commands.h"
#include "editor_test.h"

#include <array>

using namespace kq;
using test::EditorTest;
using test::Ending;

namespace {

class Ensembles : public EditorTest {
public:
    static std::string consensus(int e)
    {
        return plain::ensemble_consensus(texts(e), nb_nuc_tot, type_seq, caractere).characters;
    }
};

const std::vector<std::string> six_rows = {"ACGTACGT*A", "ACGAACGT*A", "TTTTACG**A",
                                           "TTTAACG*CC", "GG*GACGTCA", "GG*GACCTC*"};

} // namespace

// ---- the list ---------------------------------------------------------------------------------------------

TEST_F(Ensembles, AreChosenFromAList)
{
    load(six_rows, {{0, 1}, {2, 3}, {4, 5}});
    edit("F4 Down*2 Q Left Enter");
    EXPECT_TRUE(collapsed(2));
    edit("F4 Up Enter"); // from the first to the last
    EXPECT_FALSE(collapsed(2));
    edit("F4 Down*4 Enter"); // and past the last
    EXPECT_TRUE(collapsed(1));
    edit("F4 Escape F2 Escape F6 Escape");
    EXPECT_EQ(nb_ens, 3);
    EXPECT_EQ(nb_spec_affich, 5);
}

TEST_F(Ensembles, AListLongerThanTheScreenScrolls)
{
    open({.lines = 34, .columns = 80});
    load(six_rows, std::vector(50, std::vector{0}));
    edit("Right");
    const auto before = screen_dump();
    edit("Right F6 Down*40");
    EXPECT_SCREEN("ensemble_list_scrolled");
    edit("Right F6 Down*40 Escape");
    EXPECT_EQ(screen_dump(), before) << "the menu line is back, too";

    open({.lines = 20, .columns = 20});
    edit("F4 Down*20 Right");
    EXPECT_TRUE(shows(" 21: ensemble U"));
}

// ---- commands ---------------------------------------------------------------------------------------------

TEST_F(Ensembles, CollapsingPutsTheCursorOnTheTopRow)
{
    load(six_rows, {{0, 1, 2}, {3, 4}, {5}});
    edit("+ Down*3 F4 Enter"); // the top row was the second of the ensemble
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 0}));
    EXPECT_EQ(ligne_curs, 1);
    EXPECT_EQ(nb_spec_affich, 4);
    edit("+ Down F4 Down*2 Enter");
    EXPECT_EQ(cursor_row(), (DisplayRow{1, 0})) << "the top row was another ensemble's";
    EXPECT_EQ(nb_spec_affich, 4) << "an ensemble of one species has one row either way";
}

TEST_F(Ensembles, DiscardingRenumbersTheOthers)
{
    load(six_rows, {{0, 1}, {2, 3}, {4, 5}});
    edit("F4 Enter F4 Down Enter F4 Down*2 Enter Right*3 F6 Enter");
    EXPECT_EQ(nb_ens, 2);
    EXPECT_STREQ(ens_names[0], "ensemble B");
    EXPECT_STREQ(ens_names[1], "ensemble C");
    EXPECT_STREQ(ens_names[2], "");
    EXPECT_EQ(nb_spec_affich, 2);
    EXPECT_EQ(cursor_position(), 0);
    edit("F6 Enter F6 Down Enter F6");
    EXPECT_EQ(nb_ens, 1) << "the last one stays";

    load({"ACGT", "****"}, {{0}, {1}, {}});
    edit("F6 Enter"); // no column would be left
    EXPECT_TRUE(shows("gap columns are shown"));
    edit("F6 Enter Q");
    EXPECT_EQ(nb_spec_affich, 0);
    EXPECT_EQ(model_error(), "");
}

TEST_F(Ensembles, AreSortedByByteOrder)
{
    load(std::vector<std::string>(6, "ACGT"), {{3, 1, 0}, {5, 4, 3, 2, 1, 0}});
    const char* const names[] = {"bee", "Zebra", "ant", "bee", "Ape", "\xc9mu"};
    for (int s = 0; s < 6; s++)
        set_identifier(s, names[s]);
    edit("Down T Down Enter");
    EXPECT_EQ(ensemble(1), (std::vector{4, 1, 2, 3, 0, 5})) << "the two bees keep their order";
    EXPECT_EQ(ensemble(0), (std::vector{3, 1, 0}));
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 1}));
    edit("T Escape F6 Down Enter T");
    EXPECT_EQ(ensemble(0), (std::vector{1, 3, 0})) << "the only ensemble is not asked for";
    EXPECT_FALSE(changed());
    EXPECT_EQ(model_error(), "");
}

TEST_F(Ensembles, AreBuiltAnewOnTheTree)
{
    open({.lines = 34, .columns = 80});
    load(six_rows, {{0, 1}, {2, 3}});
    read_frame_of_three_groups();
    // The cursor is elsewhere; the new list replaces the old one and the name stays.
    edit("F4 Down Enter Down Right*4 F2 Down Enter Home F2 F3");
    EXPECT_EQ(ensemble(1), (std::vector{2, 3, 0, 1, 4, 5})) << "the old members come first";
    EXPECT_STREQ(ens_names[1], "ensemble B");
    EXPECT_EQ(cursor_row(), (DisplayRow{0, 0}));
    EXPECT_EQ(nb_spec_affich, 3);
    EXPECT_EQ(model_error(), "");

    mark_changed();
    const auto refused = edit("* F2 Enter S-F1 Escape Q");
    EXPECT_EQ(refused.ending, Ending::script_ended) << "the changes are asked for: the tree stays";
    EXPECT_TRUE(changed());
    const auto left = edit("F2 Enter S-F1 N Y");
    EXPECT_EQ(left.ending, Ending::returned);
    EXPECT_EQ(ensemble(0), (std::vector{0, 1})) << "as it was";
}

// Create, rebuild, discard, collapse, sort and edit at random; a species may be in several ensembles. What
// each slot of consensus strings has to hold is known from the commands that compute it: discarding an
// ensemble deliberately leaves the strings where they are.
TEST_F(Ensembles, AnyOrderOfCommandsKeepsEverythingConsistent)
{
    open({.lines = 24, .columns = 60});
    for (unsigned round = 0; round < 12; round++) {
        SCOPED_TRACE(round);
        std::mt19937 random(round);
        const auto pick = [&random](long n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        std::vector<std::string> rows(12, std::string(30, 'A'));
        for (auto& text : rows)
            std::ranges::generate(text, [&] { return "ACGT*- "[pick(7)]; });
        load(rows, {{0, 1, 2, 3}, {2, 3, 4}, {5}});
        read_frame_of_three_groups();
        opt_consensus = pick(3);
        opt_nogap = pick(2);
        std::array<std::string, max_ensembles> slots; // blanks until they are computed
        const auto compute = [&slots](int e) {
            if (collapsed(e)) slots[static_cast<std::size_t>(e)] = consensus(e);
        };
        edit("Right");
        for (int step = 0; step < 60; step++) {
            const int e = pick(nb_ens);
            const auto chosen = text_format("Down*%d Enter ", e + nb_ens); // once around
            const std::string commands[] = {
                "F4 " + chosen,
                "F2 " + chosen + "Home F4 Enter F2 F3 \"all\" Enter",
                "F2 " + chosen + "Home F4 Enter Down*2 F2 Down F2 F3 \"two groups\" Enter",
                "F3 Y Home Down F2 F3 \"fresh\" Enter",
                "F6 " + chosen,
                "T " + chosen,
                "D Y",
                "Right*3 Down *",
            };
            const auto& keys = commands[pick(std::ssize(commands))];
            SCOPED_TRACE(keys);
            // Played without a fresh start of the editor, so that the cursor goes on where it was.
            const auto played = play(keys, [] {
                while (gere_affich_seq() == 0) {
                }
            });
            ASSERT_EQ(played.ending, Ending::script_ended);
            ASSERT_EQ(model_error(), "");
            if (keys.starts_with("F4") || keys.starts_with("F2")) compute(e);
            if (keys.starts_with("F3")) slots[static_cast<std::size_t>(nb_ens - 1)].clear();
            for (int k = 0; keys.ends_with("*") && k < nb_ens; k++)
                compute(k);
            for (auto& slot : slots) // what the alignment grew by
                slot.resize(static_cast<std::size_t>(nb_nuc_tot), ' ');
            for (std::size_t k = 0; k < static_cast<std::size_t>(nb_ens); k++)
                if (collapsed(static_cast<int>(k))) {
                    ASSERT_EQ(std::string(seq_cons[k]), slots[k]) << k;
                }
        }
    }
}

// ---- beside the names -------------------------------------------------------------------------------------

TEST_F(Ensembles, ScoresAndMergeMarksStandBesideNames)
{
    load(six_rows, {{0, 1, 2, 3}, {4, 5}});
    set_identifier(1, "Genus_b with a name longer than the column@2");
    for (auto& scores : evalue)
        scores = {-1.0, -1.0};
    evalue[0] = {0.0, 3.4e-7};
    evalue[1] = {1.5e-100, -1.0};
    evalue[4] = {12.0, 10.0};
    edit("F4 Down Enter B");
    EXPECT_SCREEN("editor_scores");
    edit("B");
    EXPECT_EQ(line(1).substr(0, 28), "Genus_a species@1    3.4e-07");
    EXPECT_EQ(line(2).substr(0, 28), "Genus_b with a name longer t");
    edit("B");
    EXPECT_EQ(line(1).substr(0, 28), "Genus_a species@1           ");

    mergeable[0] = mergeable[1] = 1;
    edit("Right");
    EXPECT_EQ(line(1).substr(27, 1), " ") << "in EST mode only";
    kq_mode = 1;
    opt_evalue = 1;
    edit("Right");
    EXPECT_EQ(line(1).substr(0, 28), "Genus_a species@1   0.0e+00+");
    EXPECT_EQ(line(2).substr(0, 28), "Genus_b with a nam 1.5e-100+");
    libere_memoire();
    EXPECT_EQ(mergeable[0], 0);
}
