// The similarity search, played as keys: what its boxes show, what a hit that is applied leaves, and which
// species are found.
#include "core/work_buffer.h"
#include "editor/align_all.h"
#include "editor/shown_columns.h"
#include "editor/similarity.h"
#include "editor_test.h"
#include "screen/dialogs.h"
#include "support/plain_similarity.h"

using namespace kq;
using test::EditorTest;

namespace {

class SimilarityTest : public EditorTest {
public:
    SimilarityTest()
        : EditorTest({})
    {
        set_pattern("");
        allocate_buffer();
    }

    // Leaves the loaded rows room for so many more columns.
    static void limit_growth(int columns)
    {
        const auto rows = sequences();
        lenseq_tot = nb_nuc_tot + columns + 2;
        for (int species = 0; species < nb_spec; species++) {
            const std::string name(identifier(species));
            store_put(species, name, rows[static_cast<std::size_t>(species)], false, false);
        }
        counts_forget();
    }
};

// A long row with a pattern in it, one that begins with the pattern, five columns before it, and that
// aligned.
const std::string pattern20 = "ACGGUUACGAUCCGAUAGCU", rest = "UUUUUUUUUUUU";
const std::string top_with_pattern = "GGGGG***" + pattern20 + rest;
const std::string own_with_pattern = pattern20 + rest + "********", aligned = "********" + pattern20 + rest;

} // namespace

// ---- applying a hit ---------------------------------------------------------------------------------------

TEST_F(SimilarityTest, KeysAlignOnTheTopRow)
{
    const std::string top = top_with_pattern, own = own_with_pattern, far(15, 'A'), gaps(15, '*');
    const std::string behind = "*****" + pattern20 + "*****", rival = "CCGGCCUU";
    const std::string distant = std::string(100, 'G') + "ACAC", short_one = "ACAC" + std::string(100, ' ');
    const struct {
        const char* what;
        std::string top, before;
        const char* keys;
        std::string after; // of the second row
        int cursor;
    } cases[] = {
        {"comma applies a near hit at once, the cursor stays", top, own, "Down ,", aligned, 0},
        {"slash asks, and moves the cursor past the gaps", top, own, "Down / .", aligned, 8},
        {"any other key leaves", top, own, "Down / X", own, 0},
        {"left of the cursor", pattern20 + "*********U", behind, "Down Right*5 , Right", behind, 6},
        {"nothing is shown for a hit at the cursor", "ACGU", "ACGU", "Down , Right", "ACGU", 1},
        {"far without a rival: no answer needed", far + pattern20, pattern20, "Down ,", gaps + pattern20, 0},
        {"with one it is", far + rival + "AACCGGCCAA", rival, "Down , ,", gaps + rival + "          ", 0},
        {"of equal hits the leftmost is applied", "AAACCGAACCG*", "CCG*********", "Down ,", "***CCG******",
         0},
        {"less than 100 columns away", distant, short_one, "Down ; .", std::string(98, '*') + "ACAC  ", 98},
        {"a point goes to the next gap behind the cursor", "*CG*UAGCA*", "ACGUAGCA**", "Down .", "ACG*UAGCA*",
         4},
        {"and at the end to the last column", "ACGU", "ACGU", "Down .", "ACGU", 3},
    };
    for (const auto& c : cases) {
        load({c.top, c.before, "A"});
        const auto played = edit(c.keys);
        EXPECT_EQ(sequence(1), c.after) << c.what;
        EXPECT_EQ(cursor_position(), c.cursor) << c.what;
        EXPECT_EQ(played.keys_left, 0) << c.what;
        EXPECT_EQ(model_error(), "") << c.what;
        EXPECT_EQ(changed(), c.after != c.before.substr(0, c.after.size())) << c.what;
    }
}

TEST_F(SimilarityTest, HiddenColumnsInTheSpanAreCountedBeforeAndAfter)
{
    // Columns 3 to 5 are hidden before, 0 to 2 once the second row has gaps there.
    load({"******ACGUACGU***", "CCC***ACGUACGU***"}, {{1}, {0}});
    set_members(0, std::vector{0, 1});
    remove_ensemble(1);
    edit("Down");
    ASSERT_EQ(shown_between(0, 9), 6);
    set_pattern("ACGUACGU");
    seek_in_top_row(typed_pattern, rank_only, 1, whole_row);
    EXPECT_EQ(posi[0], 7);
    play(".", [] { calcul_similitude(sequence(0), show_hits, 1, whole_row, ""); });
    EXPECT_EQ(sequence(1), "******CCC***ACGUACGU");
    // Six columns, three hidden before and six after: three shown positions on from the first shown one.
    EXPECT_EQ(cursor_position(), 9);
}

TEST_F(SimilarityTest, CollapsedRowsAreSearchedAndEditedWhole)
{
    const std::vector<std::string> rows = {top_with_pattern, top_with_pattern, own_with_pattern,
                                           own_with_pattern, own_with_pattern};
    load(rows, {{0, 1}, {2, 3}, {3, 4}});
    edit("E Down*2 E Down ,"); // the first two ensembles are collapsed; the second is under the cursor
    ASSERT_TRUE(collapsed(0) && collapsed(1));
    EXPECT_EQ(sequence(0), rows[0]);
    EXPECT_EQ(sequence(2), aligned);
    EXPECT_EQ(sequence(3), aligned) << "also a member of the third ensemble";
    EXPECT_EQ(sequence(4), rows[4]);
    EXPECT_EQ(std::string(row_text(cursor_row()).text), aligned);
    EXPECT_EQ(view_error() + columns_error(), "");
}

TEST_F(SimilarityTest, AnAlignmentThatCannotGrowKeepsItsResidues)
{
    for (const char* keys : {"Down ,", "Down A"}) {
        load({"*********ACGUACGUAAAA", "ACGUACGU************C", "A"});
        limit_growth(2);
        edit(keys);
        EXPECT_TRUE(shows("The sequences are too long (see DOC)")) << keys;
        EXPECT_EQ(edit(std::string(keys) + " Q Right").keys_left, 0);
        EXPECT_EQ(nb_nuc_tot, 23);
        EXPECT_EQ(residues_from(sequence(1), 0, 40), "ACGUACGUC") << keys;
        EXPECT_EQ(model_error(), "") << keys;
    }
}

// ---- all gaps ---------------------------------------------------------------------------------------------

namespace {

// A top row with gaps, rows derived from it with gaps elsewhere, some collapsed or in two ensembles.
void load_random(EditorTest& test, std::mt19937& random)
{
    const int columns = 30 + static_cast<int>(random() % 120);
    const auto letters = random() % 4 ? "ACGU" : "AC-a";
    auto top = plain::random_text(random, letters, columns);
    std::vector<std::string> rows;
    for (int r = 0; r < 5; r++) {
        std::string row;
        for (const char c : top)
            if (random() % 8 != 0) row += random() % 10 ? c : letters[random() % 4];
        for (int gaps = static_cast<int>(random() % 10); gaps > 0; gaps--)
            row.insert(random() % (row.size() + 1), 1 + random() % 14, "**** "[random() % 5]);
        if (random() % 2) row += std::string(random() % 30, "* "[random() % 2]);
        rows.push_back(row);
    }
    const std::vector<std::vector<int>> ensembles[] = {
        {{0, 1, 2, 3, 4}}, {{0}, {1, 2, 3, 4}}, {{0, 4}, {1, 2}, {3, 2}}, {{0, 1}, {1, 2, 3}}};
    test.load(rows, ensembles[random() % std::size(ensembles)]);
}

struct Outcome {
    std::vector<std::string> rows;
    int cursor, columns;
    test::Ending ending;
    bool operator==(const Outcome&) const = default;
};

} // namespace

TEST_F(SimilarityTest, KeyADoesWhatManyPointsDo)
{
    for (unsigned seed = 1; seed <= 150; seed++) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto play_it = [&](const std::function<void()>& align) {
            std::mt19937 random(seed);
            load_random(*this, random);
            opt_nogap = random() % 3 == 0;
            limit_growth(static_cast<int>(random() % 40));
            const auto keys = test::random_keys(random, "Down|Down|E|Right*3", 4);
            edit(keys);
            const auto answers = test::random_keys(random, ",|.|Enter", 60);
            const auto ending = play(answers, align).ending;
            EXPECT_EQ(columns_error() + store_error() + view_error(), "");
            return Outcome{sequences(), cursor_position(), nb_nuc_tot, ending};
        };
        const auto expected = play_it([] {
            for (int before = -1; before < cursor_position();) {
                before = cursor_position();
                if (aligne_proche() != ok) break;
            }
        });
        ASSERT_TRUE(play_it([] { align_all_key(); }) == expected);
    }
    opt_nogap = 0;
}

// ---- boxes ------------------------------------------------------------------------------------------------

TEST_F(SimilarityTest, FortyHitsArePaged)
{
    std::vector<std::string> rows(45, "ACGU" + std::string(46, '*'));
    rows[0] = "*ACCUACGUACGGACGUACAUACGUACGUUCGUACGUACGUACGUACGUAC";
    load(rows);
    edit("Down Down / PgDn");
    EXPECT_EQ(tophits, max_hits);
    EXPECT_SCREEN("similarity_hits_below");
    edit("Down Down / PgDn*5 Home , Right");
    EXPECT_EQ(sequence(2), "*****ACGU" + std::string(42, '*')) << "paging does not leave, a comma applies";
}

TEST_F(SimilarityTest, BoxesFitSmallWindows)
{
    open({.lines = 20, .columns = 20});
    load({"ACGUACGU", "ACGU****", "A"});
    edit("Down /");
    EXPECT_SCREEN("similarity_tiny");
    edit("S Down*4 Enter Enter Right*2");
    EXPECT_EQ(line(2), "| Species          |");
}

TEST_F(SimilarityTest, PatternsAreTypedFromAProposal)
{
    load({"ACGUACGUAC", "-$ac* *GUAC"}, {{0}, {1}});
    const struct {
        const char *what, *keys, *pattern;
    } cases[] = {
        {"from the cursor row, in upper case", "Down S Enter Enter", "-$ACGUAC"},
        {"from the cursor on", "Down Right S Enter Enter", "$ACGUAC"},
        {"from the top row", "Down S Down Enter Enter", "ACGUACGUAC"},
        {"typed", "Down S Enter BackSpace*8 \"gattaca\" Up Down Enter", "GATTACA"},
        {"Escape leaves the one before", "Down S Enter BackSpace*8 \"x\" Escape S Escape", "UAC"},
    };
    for (const auto& c : cases) {
        set_pattern("UAC");
        edit(c.keys);
        EXPECT_EQ(pattern(), c.pattern) << c.what;
    }
    edit("Down S Enter");
    EXPECT_SCREEN("similarity_pattern");
}

TEST_F(SimilarityTest, TheMenuSearchesWhereItSays)
{
    load({"AACGUUGGA*", "GGACCUUAAC", "ACCUUUGGCC"}, {{0, 2}, {1}});
    // Of the current sequence, with the first one's residues.
    edit("Down*2 S Down Enter Home BackSpace Enter");
    EXPECT_TRUE(shows("SEQ=AACGUUGGA"));
    EXPECT_EQ(sim[0], 4);
    EXPECT_EQ(posi[0], 2);
    // With the top ensemble collapsed, the consensus of the cursor's ensemble is looked at: there is none.
    edit("E Down S Down Enter Enter");
    EXPECT_EQ(sim[0], -1);
    EXPECT_EQ(posi[0], 0);
}

TEST_F(SimilarityTest, FourDirections)
{
    load({"GGAACAGAAGUCUUGUUCC", "GAACA**************", "A"});
    const char* suffixes[] = {" (normal)", " (inverse)", " (inverse & complementary)", " (complementary)"};
    const char* patterns[] = {"GAACA", "ACAAG", "UGUUC", "CUUGU"};
    const int places[] = {2, 6, 14, 12};
    std::string keys = "Down S Down*2 Enter Enter";
    for (int i = 0; i < 4; i++, keys += " Enter") {
        EXPECT_EQ(edit(keys).ending, test::Ending::script_ended);
        EXPECT_TRUE(shows("SEQ=" + std::string(patterns[i]) + suffixes[i])) << suffixes[i];
        if (i == 2) {
            EXPECT_SCREEN("similarity_inverse");
        }
        EXPECT_EQ(posi[0], places[i]) << suffixes[i];
    }
    // A consensus at the top is only searched with the pattern as it is and reversed.
    load({"GGAACAGAAG", "CCCUUGUUCC", "CCCUUGUUCC", "GAACA*****"}, {{0, 1, 2}, {3}});
    edit("E Down S Down*2 Enter Enter Enter Enter");
    EXPECT_EQ(pattern(), "UGUUC");
    EXPECT_LT(sim[0], 5) << "the first species, not its consensus";
    load({"MKV", "MKV", "A"}, {}, test::protein);
    edit("Down S Down*2 Enter Enter Enter Enter Right");
    EXPECT_EQ(cursor_position(), 1) << "a protein has no complement";
}

// ---- all species ------------------------------------------------------------------------------------------

namespace {

// Species 1 holds the pattern of the first one; 2 to 5 hold less and less of it, 6 as much as 2, and 7
// nothing.
void load_relatives(EditorTest& test)
{
    test.load({"**ACGUACGUACGU", "*ACGUACGUACGU*", "ACGUACGUAAAA**", "ACGUACGAAAAA**", "ACGUAAAAAAAA**",
               "ACAAAAAAAAAA**", "CCACGUACGUAAAA", "**************"},
              {{0, 1}, {2, 3, 1}});
    nb_groupe = 3;
    copy_field(groupe[0], "Blue_group");
    copy_field(groupe[1], "Bright_group_of_21_ch");
    copy_field(groupe[2], "Cupboard");
    color_groupe[0] = 1, color_groupe[1] = 10, color_groupe[2] = 7;
    for (std::size_t s = 0; s < 8; s++)
        no_groupe[s] = static_cast<int>(s % 3);
    new_est[1] = new_est[2] = new_est[3] = -1;
    selection_reset();
}

// Those of the last ranking, up to the first place without one.
std::vector<int> ranked_species()
{
    return {esp_tous.begin(), std::ranges::find_if(esp_tous, [](int s) { return s < 0; })};
}

std::vector<int> selected_species()
{
    chercher_specie_retenue();
    return {working_list().begin(), working_list().end()};
}

} // namespace

TEST_F(SimilarityTest, AllSpeciesAreRankedAndShown)
{
    load_relatives(*this);
    destroy[4] = 1;
    edit("S Down*4 Enter Enter");
    EXPECT_SCREEN("similarity_species");
    EXPECT_EQ(ranked_species(), (std::vector{1, 2, 6, 3, 5})) << "of equal scores the lower number first";
    EXPECT_EQ(posi_tous[2], 3);
    EXPECT_EQ(tophits, 7);
    EXPECT_EQ(nb_retenu, 0);
    edit("S Down*3 Enter Enter");
    EXPECT_EQ(ranked_species(), (std::vector{1, 2, 3})) << "the members of any ensemble, once";
    edit("E S Down*3 Enter Enter");
    EXPECT_EQ(ranked_species(), (std::vector{0, 1, 2, 3})) << "a collapsed row is none of the species";
}

TEST_F(SimilarityTest, RelativesOfAFragmentAreSelected)
{
    const struct {
        const char *what, *keys;
        int scope;
        std::vector<int> selected; // in order
    } cases[] = {
        {"three are proposed; masked ones are passed by", "Enter Enter", all_species, {1, 6}},
        {"as many as asked for", "Enter BackSpace 5 Enter", all_species, {1, 6, 3, 4}},
        {"from a position", "BackSpace \"11\" Enter BackSpace 1 Enter", all_species, {1}},
        {"position 0 is the first", "BackSpace 0 Enter BackSpace 1 Enter", all_species, {1}},
        {"of the working list", "Enter Enter", listed_species, {3, 5}},
        {"of all ensembles", "Enter Enter", ensemble_species, {1, 3}},
        {"none", "Enter BackSpace 0 Enter", all_species, {}},
        {"given up", "Enter Escape", all_species, {}},
        {"given up at once", "Escape", all_species, {}},
        {"at most all", "Enter BackSpace 8 Enter BackSpace 7 Enter", all_species, {1, 6, 3, 4, 5}},
    };
    for (const auto& c : cases) {
        load_relatives(*this);
        mask[2] = -1;
        cor[0] = 5, cor[1] = 3, cor[2] = 0;
        nb_spec_gro = 3;
        int count = -1;
        const auto played = play(c.keys, [&] { count = simil_tous(1, 0, c.scope); });
        EXPECT_EQ(played.ending, test::Ending::returned) << c.what;
        EXPECT_EQ(played.keys_left, 0) << c.what;
        EXPECT_EQ(count, std::ssize(c.selected)) << c.what;
        EXPECT_EQ(selected_species(), c.selected) << c.what;
    }
}

TEST_F(SimilarityTest, ALongRankingScrollsBesideItsQuestion)
{
    load(std::vector<std::string>(60, "ACGUACGUACGU"));
    play("Enter", [] { simil_tous(1, 0, all_species); });
    EXPECT_SCREEN("similarity_question");
    play("Enter Down*20 BackSpace \"50\" Up Enter", [] { simil_tous(1, 0, all_species); });
    EXPECT_EQ(nb_retenu, 50) << "more than are shown";
    EXPECT_EQ(esp_tous[49], 50);
}
