// Compacting a region of an alignment, by call and by keys.
#include "tools/gap_compaction.h"
#include "tools/region_fixture.h"

using namespace kq;
using test::Ending;

namespace {

class GapCompactionTest : public test::RegionTest {
public:
    // What a row has to become, its text being longer or shorter than the alignment.
    static std::string expected(std::string text, Direction direction)
    {
        if (std::ssize(text) < nb_nuc_tot) text.resize(static_cast<std::size_t>(nb_nuc_tot), ' ');
        const auto first = static_cast<std::size_t>(pos_deb),
                   count = static_cast<std::size_t>(pos_fin - pos_deb + 1);
        plain::compact(std::span(text).subspan(first, count), direction == Direction::left);
        return text;
    }
};

} // namespace

TEST_F(GapCompactionTest, ChangesTheSetAndNothingElse)
{
    for (unsigned round = 0; round < 60; round++) {
        std::mt19937 random(round);
        auto rows = load_ten(random, "ACn*- ?$");
        const auto direction = random() % 2 ? Direction::left : Direction::right;
        const auto set = round % 3;
        for (const int species : species_of_set[set])
            rows[static_cast<std::size_t>(species)] =
                expected(rows[static_cast<std::size_t>(species)], direction);
        do_compaction(direction, static_cast<SpeciesSet>(set), 1);
        ASSERT_EQ(sequences(), rows) << round;
        ASSERT_EQ(columns_error() + store_error(), "") << round;
        ASSERT_TRUE(changed());
    }
    pos_deb = 0;
    compact_seq(Direction::left, 9);
    EXPECT_EQ(columns_error(), "");
}

TEST_F(GapCompactionTest, IsReachedByKeys)
{
    const std::string left = "O Down Enter ", right = "O Down*2 Enter ";
    const struct {
        std::string keys;
        std::vector<std::string> rows;
        int mode;
    } cases[] = {
        {left + "Right ( Right*2 ) Enter Enter", {"AC**T", "AC*GT", "A*G*T"}, 0},
        {left + "Right ( Right*2 ) Enter Down Enter", {"A*C*T", "AC*GT", "AG**T"}, 0},
        {right + "Right ( Right*2 ) Down Enter", {"A**CT", "AC*GT", "A**GT"}, 0},
        {left + "Right*3 ( Left*2 ) Down*2 Enter", {"AC**T", "ACG*T", "AG**T"}, 0},
        {left + "Right ( Right*2 ) Enter Escape", {"A*C*T", "AC*GT", "A*G*T"}, 0},
        {left + "Right ( Escape", {"A*C*T", "AC*GT", "A*G*T"}, 0},
        {left + "Right (", {"A*C*T", "AC*GT", "A*G*T"}, 2},
    };
    for (const auto& c : cases) {
        load({"A*C*T", "AC*GT", "A*G*T"}, {{0}, {2}});
        opt_nogap = 1;
        EXPECT_EQ(edit(c.keys).ending, Ending::script_ended) << c.keys;
        EXPECT_EQ(sequences(), c.rows) << c.keys;
        EXPECT_EQ(kq_mode, c.mode) << c.keys;
        EXPECT_EQ(model_error(), "") << c.keys;
    }
}

TEST_F(GapCompactionTest, HidesTheColumnsThatItEmpties)
{
    open({.lines = 34, .columns = 80});
    load({"AC*GTACG*T", "A*C*TA*GGT"});
    opt_consensus = 1;
    edit("End O Down Enter ( Home ) Down*2");
    EXPECT_SCREEN("compaction_sets");
    edit("End O Down Enter ( Home ) Down*2 Enter");
    EXPECT_EQ(sequence(0), "ACGTACGT**");
    EXPECT_EQ(nb_nuc, 8);
    EXPECT_EQ(cursor_position(), 0);
    EXPECT_EQ(view_error() + columns_error(), "");
    load(std::vector<std::string>(20, std::string(60, 'A')));
    edit("O Down Enter ( ) Enter");
    EXPECT_EQ(area(14), area(16)) << "nothing is left of the larger of two boxes";
}
