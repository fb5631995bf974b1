#include "editor/shown_columns.h"
#include "editor_test.h"
#include "screen/text.h"

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
        const char* what;
        std::vector<Redraw (*)()> moves;
        Redraw last;
        int position, column, first;
    } cases[] = {
        {"start", {}, redraw_none, 0, 1, 0},
        {"to the edge", {[] { return deplace_site_droite(49); }}, redraw_none, 49, 50, 0},
        {"past the edge", {[] { return deplace_site_droite(50); }}, redraw_sequences, 50, 41, 10},
        {"far", {[] { return deplace_site_droite(95); }}, redraw_sequences, 95, 46, 50},
        {"past the end is the end",
         {[] { return deplace_site_droite(500); }},
         redraw_sequences,
         199,
         40,
         160},
        {"the last position is reached",
         {[] { return deplace_site_droite(199); }},
         redraw_sequences,
         199,
         50,
         150},
        {"the end", {goto_fin}, redraw_sequences, 199, 40, 160},
        {"the end again", {goto_fin, goto_fin}, redraw_none, 199, 40, 160},
        {"back within the area",
         {goto_fin, [] { return deplace_site_gauche(39); }},
         redraw_none,
         160,
         1,
         160},
        {"back out of it",
         {goto_fin, [] { return deplace_site_gauche(40); }},
         redraw_sequences,
         159,
         10,
         150},
        {"before the first", {goto_fin, [] { return deplace_site_gauche(900); }}, redraw_sequences, 0, 1, 0},
        {"the start again", {goto_debut}, redraw_none, 0, 1, 0},
    };
    for (const auto& c : cases) {
        load_columns(200, {}, 50);
        Redraw last = redraw_none;
        for (const auto& move : c.moves)
            last = move();
        EXPECT_EQ(last, c.last) << c.what;
        EXPECT_EQ(cursor_position(), c.position) << c.what;
        EXPECT_EQ(colonne_curs, c.column) << c.what;
        EXPECT_EQ(dec_pos_curs, c.first) << c.what;
        EXPECT_EQ(view_error(), "") << c.what;
    }
}

TEST_F(NavigationTest, HiddenColumnsAreSteppedOver)
{
    load_columns(100, {0, 1, 5, 6, 7, 50, 98, 99}, 20);
    EXPECT_EQ(nb_nuc, 92);
    EXPECT_EQ(cursor_position(), 2);
    EXPECT_EQ(colonne_curs, 1);
    deplace_site_droite(3); // 2 3 4 8
    EXPECT_EQ(cursor_position(), 8);
    EXPECT_EQ(colonne_curs, 4);
    deplace_site_gauche(1);
    EXPECT_EQ(cursor_position(), 4);
    EXPECT_EQ(deplace_site_droite(18), redraw_sequences); // column 21: ten shown positions are scrolled away
    EXPECT_EQ(dec_pos_curs, 15);
    EXPECT_EQ(view_error(), "");
    goto_fin();
    EXPECT_EQ(cursor_position(), 97);
    EXPECT_EQ(colonne_curs, 12); // 92 less tens until below 20
    EXPECT_EQ(view_error(), "");
    EXPECT_EQ(goto_debut(), redraw_sequences);
    EXPECT_EQ(dec_pos_curs, 0);
    EXPECT_EQ(cursor_position(), 2);
}

TEST_F(NavigationTest, EveryWidthKeepsTheCursorInside)
{
    for (int width = -10; width <= 30; width++) {
        load_columns(60, {3, 4, 30}, width);
        for (int step = 0; step < 80; step++) {
            deplace_site_droite(1 + step % 3);
            ASSERT_EQ(view_error(), "") << width << " right " << step;
        }
        EXPECT_EQ(cursor_position(), 59);
        for (int step = 0; step < 80; step++) {
            deplace_site_gauche(1 + step % 4);
            ASSERT_EQ(view_error(), "") << width << " left " << step;
        }
        EXPECT_EQ(cursor_position(), 0);
        goto_fin();
        ASSERT_EQ(view_error(), "") << width;
    }
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
        const char* what;
        std::vector<Redraw (*)()> moves;
        Redraw last;
        int top, cursor, row;
    } cases[] = {
        {"down", {[] { return deplace_curseur_bas(1); }}, redraw_none, 0, 1, 2},
        {"to the last row", {[] { return deplace_curseur_bas(21); }}, redraw_none, 0, 21, 22},
        {"beyond it", {[] { return deplace_curseur_bas(24); }}, redraw_all_rows, 3, 24, 22},
        {"round the list", {[] { return deplace_curseur_bas(33); }}, redraw_all_rows, 12, 3, 22},
        {"up from the top", {[] { return deplace_curseur_haut(2); }}, redraw_all_rows, 28, 28, 1},
        {"scrolling keeps the screen row",
         {[] { return deplace_curseur_bas(5); }, [] { return deplace_only_species(-1); }},
         redraw_all_rows,
         29,
         4,
         6},
        {"to the top row", {[] { return deplace_curseur_bas(24); }, magic_move}, redraw_all_rows, 3, 3, 1},
        {"already there", {magic_move}, redraw_none, 0, 0, 1},
    };
    for (const auto& c : cases) {
        enter();
        Redraw last = redraw_none;
        for (const auto& move : c.moves)
            last = move();
        EXPECT_EQ(last, c.last) << c.what;
        EXPECT_EQ(top_row(), (DisplayRow{0, c.top})) << c.what;
        EXPECT_EQ(cursor_row(), (DisplayRow{0, c.cursor})) << c.what;
        EXPECT_EQ(ligne_curs, c.row) << c.what;
        EXPECT_EQ(view_error(), "") << c.what;
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
