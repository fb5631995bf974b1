// Reordering the selection by typed numbers: the rule, and the screen.
#include "taxonomy/reorder_screen.h"
#include "taxonomy/species_order.h"
#include "tree_fixture.h"

#include <numeric>

using namespace kq;
using namespace kq::test;

TEST(SpeciesOrder, NumbersLeadToTheirPlaces)
{
    constexpr int none = no_number;
    const struct {
        std::vector<int> numbers, order; // entries from 0
    } cases[] = {
        {{}, {}},
        {{none, none, none}, {0, 1, 2}},
        {{3, none, none, none, none}, {1, 2, 0, 3, 4}},
        {{1, 1, none}, {0, 1, 2}},          // the later one is placed among the others
        {{none, none, 1, 1}, {2, 0, 1, 3}}, //
        {{5, 4, 3, 2, 1}, {4, 3, 2, 1, 0}}, //
        {{0, 0, 0}, {}},                    //
        {{none, 0, none}, {0, 2}},          //
        {{0, 3, none}, {2, 1}},             // places close up
        {{none, 9, none}, {0, 1, 2}},       // beyond the list
        {{2, 2, 2, 0}, {1, 0, 2}},          //
    };
    for (const auto& [numbers, order] : cases)
        EXPECT_EQ(reordered(numbers), order) << testing::PrintToString(numbers);
}

namespace {

class Reorder : public TreeTest {
public:
    void select(int count)
    {
        load_many(count, [](int i) { return std::string(1, "ABC"[i % 3]); });
        std::vector<int> all(static_cast<std::size_t>(count));
        std::iota(all.begin(), all.end(), 0);
        set_selection(all);
    }
    Played type(std::string_view keys)
    {
        return play(keys, [this] { redraw = gere_reorder_specie_retenue(); });
    }
    TreeRedraw redraw{};
};

} // namespace

TEST_F(Reorder, NumbersAreTypedAndApplied)
{
    select(5);
    type("3 Down 2 4 Down*2 BackSpace");
    EXPECT_SCREEN("reorder"); // 24 is more than there are: 5
    EXPECT_EQ(type("3 F3").ending, Ending::returned);
    EXPECT_EQ(redraw, TreeRedraw::screen);
    EXPECT_EQ(ranked(), (std::vector{1, 2, 0, 3, 4}));
    type("Down 1 F2 5 F3"); // the cursor stays on the second entry
    EXPECT_EQ(ranked(), (std::vector{2, 0, 3, 4, 1}));
    type("1 2 BackSpace BackSpace Down 0 Escape");
    EXPECT_EQ(ranked(), (std::vector{2, 0, 3, 4, 1})) << "escape discards the numbers";
    type("0 Down 0 F3");
    EXPECT_EQ(ranked(), (std::vector{3, 4, 1}));
    EXPECT_EQ(selection_error(), "");
    EXPECT_EQ(type("0 Down 0 Down 0 F2").ending, Ending::returned) << "nothing remains";
    EXPECT_EQ(redraw, TreeRedraw::screen);
    EXPECT_EQ(nb_retenu, 0);
    EXPECT_EQ(selection_error(), "");
    type("");
    EXPECT_EQ(line_of("You have not yet selected any species"), 8);
    type("Q");
    EXPECT_EQ(redraw, TreeRedraw::tree);
}

TEST_F(Reorder, ShowsWhatIsKnownAboutASpecies)
{
    select(3);
    type("3 Down ?");
    EXPECT_TRUE(shows("This species is Genus species2@X (B)"));
    type("3 Down ? Q");
    EXPECT_TRUE(shows("   3 [   1] Genus species1@X")) << "what was typed is still there";
    EXPECT_TRUE(shows("List of species selected"));
}

TEST_F(Reorder, TheViewFollowsTheCursor)
{
    select(60);
    type("Right*2 Left Down*26 1");
    EXPECT_EQ(screen_line(3).substr(8, 6), "[  27]");
    EXPECT_TRUE(shows("   1 [  53] Genus species53"));
    open({.lines = 20, .columns = 20});
    type("Down*31 Up 3 Left F2 PgUp*5 0 F3");
    EXPECT_EQ(nb_retenu, 59);
    EXPECT_EQ(selection_error(), "");
}

TEST_F(Reorder, NamesStandWholeAfterPositionsOfFiveDigits)
{
    select(10001);
    type("PgDn*1001");
    const int line = line_of("[10001]");
    ASSERT_GT(line, 0);
    EXPECT_NE(screen_line(line).find("[10001] Genus species10001@X "), std::string::npos)
        << screen_line(line);
}
