#include "editor/shown_columns.h"
#include "editor_test.h"

#include <array>

using namespace kq;
using test::EditorTest;

namespace {

class NavigationTest : public EditorTest {
public:
    // One row of `columns` residues in which the columns of `gaps` are gaps, in a window with `width`
    // columns in the area.
    void load_columns(int columns, const std::vector<int>& gaps, int width)
    {
        std::string text(static_cast<std::size_t>(columns), 'A');
        for (const int p : gaps)
            text[static_cast<std::size_t>(p)] = '*';
        load({text});
        open({.lines = 24, .columns = width + 30});
        enter();
    }
};

} // namespace

TEST_F(NavigationTest, SidewaysMovesScrollByTens)
{
    const struct {
        const char* keys;
        int position, column, first;
    } cases[] = {
        {"Right*49", 49, 50, 0},     {"Right*50", 50, 41, 10},    // past the edge
        {"Right*199", 199, 50, 150}, {"Right*500", 199, 40, 160}, // past the end is the end
        {"End End", 199, 40, 160},   {"End Left*39", 160, 1, 160}, {"End Left*40", 159, 10, 150},
        {"End Left*900", 0, 1, 0},   {"End Home", 0, 1, 0},
    };
    for (const auto& c : cases) {
        load_columns(200, {}, 50);
        edit(c.keys);
        EXPECT_EQ(cursor_position(), c.position) << c.keys;
        EXPECT_EQ(colonne_curs, c.column) << c.keys;
        EXPECT_EQ(dec_pos_curs, c.first) << c.keys;
        EXPECT_EQ(view_error(), "") << c.keys;
    }
    load_columns(200, {}, 50);
    EXPECT_EQ(deplace_site_droite(95), redraw_sequences); // far at once
    EXPECT_EQ((std::array{cursor_position(), colonne_curs, dec_pos_curs}), (std::array{95, 46, 50}));
    EXPECT_EQ(deplace_site_droite(500), redraw_sequences); // past the end is the end
    EXPECT_EQ((std::array{cursor_position(), colonne_curs, dec_pos_curs}), (std::array{199, 40, 160}));
    EXPECT_EQ(goto_fin(), redraw_none);
}

TEST_F(NavigationTest, HiddenColumnsAreSteppedOver)
{
    load_columns(100, {0, 1, 5, 6, 7, 50, 98, 99}, 20);
    EXPECT_EQ(nb_nuc, 92);
    const auto expect_cursor = [](int position, int column, int first) {
        EXPECT_EQ((std::array{cursor_position(), colonne_curs, dec_pos_curs}),
                  (std::array{position, column, first}));
        EXPECT_EQ(view_error(), "");
    };
    expect_cursor(2, 1, 0);
    deplace_site_droite(3); // 2 3 4 8
    expect_cursor(8, 4, 0);
    deplace_site_gauche(1);
    expect_cursor(4, 3, 0);
    EXPECT_EQ(deplace_site_droite(18), redraw_sequences); // column 21: ten shown positions are scrolled away
    expect_cursor(25, 11, 15);
    goto_fin();
    expect_cursor(97, 12, 86); // 92 less tens until below 20
    EXPECT_EQ(goto_debut(), redraw_sequences);
    expect_cursor(2, 1, 0);
}

TEST_F(NavigationTest, RowsGoRoundTheEnsemblesThatHaveAny)
{
    load({"AAAA", "CCCC", "GGGG", "TTTT", "AACC"}, {{}, {0, 1}, {}, {2, 3, 4}, {1, 0}, {}});
    set_collapsed(4, true);
    set_collapsed(2, true); // an empty one has no row either way
    enter();
    EXPECT_EQ(nb_spec_affich, 6);
    std::vector<DisplayRow> rows;
    for (DisplayRow row = first_row(); rows.size() < 7; row = next_row(row)) {
        EXPECT_EQ(previous_row(next_row(row)), row);
        rows.push_back(row);
    }
    const std::vector<DisplayRow> expected = {{1, 0}, {1, 1}, {3, 0}, {3, 1}, {3, 2}, {4, 0}, {1, 0}};
    EXPECT_EQ(rows, expected);
    EXPECT_EQ(cursor_row(), (DisplayRow{1, 0})) << "the first ensemble is empty";
    EXPECT_EQ(rows_away({1, 0}, -1), (DisplayRow{4, 0}));
}

TEST_F(NavigationTest, VerticalMovesScrollOnceTheEdgeIsReached)
{
    load(std::vector<std::string>(30, "ACGT")); // on 22 rows
    const struct {
        const char* keys;
        int top, cursor, row;
    } cases[] = {
        {"Down", 0, 1, 2},      {"Down*21", 0, 21, 22},
        {"Down*24", 3, 24, 22}, {"Down*33", 12, 3, 22}, // round the list
        {"Up*2", 28, 28, 1},    {"Down*5 -", 29, 4, 6}, // scrolling keeps the screen row
        {"Down*24 M", 3, 3, 1}, {"M", 0, 0, 1},
    };
    for (const auto& c : cases) {
        edit(c.keys);
        EXPECT_EQ(top_row(), (DisplayRow{0, c.top})) << c.keys;
        EXPECT_EQ(cursor_row(), (DisplayRow{0, c.cursor})) << c.keys;
        EXPECT_EQ(ligne_curs, c.row) << c.keys;
        EXPECT_EQ(view_error(), "") << c.keys;
    }
}

TEST_F(NavigationTest, NextDifferenceIsFoundFromTheTopRow)
{
    load({"ACGTACGTAC", "ACGAACGTAC", "ACGTACGTAC"});
    enter();
    deplace_curseur_bas(1);
    cherche_diff();
    EXPECT_EQ(cursor_position(), 3);
    cherche_diff();
    EXPECT_EQ(cursor_position(), 9) << "no further difference: the last position";
    goto_debut();
    deplace_curseur_bas(1);
    cherche_diff();
    EXPECT_EQ(cursor_position(), 9);
    goto_debut();
    magic_move();
    cherche_diff();
    EXPECT_EQ(cursor_position(), 0) << "nothing on the top row";
}

TEST_F(NavigationTest, AnEditThatHidesTheCursorsColumnMovesItOn)
{
    load({"AC-T", "A*-T", "AC**"}, {{1, 2}});
    enter();
    EXPECT_EQ(nb_nuc, 3); // the third column: "-" and "*"
    deplace_site_droite(1);
    EXPECT_EQ(cursor_position(), 1);
    overwrite(2, 1, "*");
    reactualise(0);
    EXPECT_EQ(cursor_position(), 3);
    EXPECT_EQ(colonne_curs, 2);
    overwrite(1, 3, "*");
    reactualise(0);
    EXPECT_EQ(cursor_position(), 0) << "nothing further right: the last shown position";
    EXPECT_EQ(view_error(), "");
}

TEST_F(NavigationTest, AnAlignmentOfGapsIsFatal)
{
    load({"*-$ ", "****"});
    const auto played = edit("Right");
    EXPECT_EQ(played.ending, test::Ending::program_ended);
    EXPECT_NE(errors().find("There are no more nucleotides"), std::string::npos);
    opt_nogap = 1; // every column is shown
    EXPECT_EQ(edit("Right").ending, test::Ending::script_ended);
    EXPECT_EQ(cursor_position(), 1);
}
