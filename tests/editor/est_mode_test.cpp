// EST mode and region selection, played as keys.
#include "core/merging.h"
#include "editor/est_mode.h"
#include "editor/region.h"
#include "editor_test.h"
#include "screen/dialogs.h"

#include <tuple>

using namespace kq;
using test::EditorTest;
using test::Ending;

namespace {

class EstModeTest : public EditorTest {
public:
    // Loads rows of one species, or of the ensembles given.
    void load_fragments(const std::vector<std::string>& rows,
                        const std::vector<std::vector<int>>& ensembles = {})
    {
        load(rows, ensembles);
        for (int species = 0; species < nb_spec; species++)
            set_identifier(species, text_format("Genus species@X.%d", species));
    }
    // Plays keys in EST mode, which the script may leave.
    test::Played merge(std::string_view keys)
    {
        return play(keys, [] {
            for (int e = 0; e < nb_ens; e++)
                compute_consensus(e);
            enter();
            result = gere_mode_est();
        });
    }
    // "", or what is not as the rows say it has to be.
    static std::string stale()
    {
        plain::Texts all, listed;
        for (int e = 0; e < nb_ens; e++) {
            const auto rows = texts(e);
            listed.insert(listed.end(), rows.begin(), rows.end());
            const auto expected = plain::ensemble_consensus(rows, nb_nuc_tot, type_seq, caractere);
            if (collapsed(e) && expected.characters != seq_cons[static_cast<std::size_t>(e)])
                return "the consensus of an ensemble";
        }
        const auto rows = sequences();
        all.assign(rows.begin(), rows.end());
        if (opt_consensus &&
            plain::consensus_line(opt_consensus == 1 ? listed : all, nb_nuc_tot, type_seq) != ligne_consensus)
            return "the consensus line";
        auto hidden = plain::hidden_columns(listed, nb_nuc_tot);
        if (opt_nogap) std::ranges::fill(hidden, 0);
        return std::equal(hidden.begin(), hidden.end(), delcom) ? "" : "the hidden columns";
    }
    static inline int result = 0;
};

} // namespace

TEST_F(EstModeTest, RefusesWhatItCannotPaste)
{
    const struct {
        const char *keys, *message;
    } cases[] = {
        {"R", "You must select a master sequence"},
        {"F2 p", "You are located on the master sequence"},
        {"F2 Down R", "Do you want to fuse sequences from different species?"},
        {"F2 Down L N", ""},
        {"F2 Down R Escape", ""},
        {"F2 End Down*2 R", "Change the type of display of the ensemble n2 before"},
        {"Up F2", "The reference cannot be a consensus sequence"},
    };
    for (const auto& c : cases) {
        load_fragments({"AAAA", "CCCC", "GGGG"}, {{0, 1}, {2}});
        set_identifier(1, "Genus other@X.1");
        set_collapsed(1, true);
        const auto before = sequences();
        merge(c.keys);
        EXPECT_TRUE(shows(c.message)) << c.keys;
        EXPECT_EQ(sequences(), before) << c.keys;
        EXPECT_FALSE(changed()) << c.keys;
    }
    merge("F2 Down R Y");
    EXPECT_EQ(sequence(0), "CCCC");
    set_identifier(1, "Genus species@Y.1"); // what stands behind the "@" does not matter
    replace_text(1, "TTTT");
    merge("F2 Down R");
    EXPECT_EQ(sequence(0), "TTTT");
}

TEST_F(EstModeTest, MarksWhatCanBeMerged)
{
    load({"A", "A", "A", "A", "A"});
    const struct {
        const char* names[5];
        std::array<int, 5> marks; // with the first species as master
    } cases[] = {
        {{"G. s@X.1.2", "G. s@X.2", "G. s@X", "G. s@XY", "G. t@X"}, {1, 1, 1, 1, 0}},
        {{"Gen.1", "Gen.2", "Gen", "Ge.1", "Genus@X.1"}, {1, 1, 1, 0, 1}},
        {{"Gen@X", "Gen@X.1", "Gen@Y", "Gen", "gen@X"}, {1, 1, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        for (int species = 0; species < 5; species++)
            set_identifier(species, c.names[species]);
        merge("F2");
        EXPECT_TRUE(std::ranges::equal(c.marks, std::span(mergeable).first(5))) << c.names[0];
    }
    merge("F2 Down*4 F2 N");
    EXPECT_EQ(no_seq_ref, 0);
    merge("F2 Down*4 F2 Y");
    EXPECT_EQ(no_seq_ref, 4);
    EXPECT_EQ(mergeable[0], 0);
}

TEST_F(EstModeTest, DestroysWithoutQuestions)
{
    load_fragments({"AC*-T ", "CCCC  ", "GGGGGG"}, {{0, 1, 2}, {0}});
    merge("F2 Down F12");
    EXPECT_EQ(read_file("seq/test.non"), "#Molecule\n#Domain\n#mode EST\n>Genus species@X.1\nCCCC\n");
    EXPECT_TRUE(destroy[1]);
    EXPECT_EQ(no_seq_ref, 0);
    merge("F2 F12 N F12 Y");
    EXPECT_TRUE(destroy[0]);
    EXPECT_EQ(no_seq_ref, -1);
    EXPECT_EQ(mergeable[0], 0);
    load_fragments({"AAAA", "CCCC"}); // the master leaves its ensemble, but not the alignment
    merge("F2 D Y R");
    EXPECT_EQ(sequence(0), "CCCC");

    ASSERT_EQ(std::system(("mkdir " + path("seq/refused.non")).c_str()), 0);
    load_fragments({"ACGT", "ACGT"});
    file_ALI = "refused.ali";
    merge("F2 F12 Y Q");
    EXPECT_FALSE(destroy[0]);
    EXPECT_EQ(no_seq_ref, 0) << "a master that cannot go to the rejects stays";
}

// Random rows of several lengths, hidden columns, ensembles that share species, some of them collapsed.
TEST_F(EstModeTest, RandomPastesEqualThePlainOnes)
{
    for (unsigned round = 0; round < 120; round++) {
        std::mt19937 random(round);
        const auto below = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        const int columns = 2 + below(40), master = below(4), fragment = (master + 1 + below(3)) % 4;
        std::vector<std::string> rows(4, std::string(static_cast<std::size_t>(columns), 'A'));
        for (auto& row : rows)
            for (auto c = row.begin() + 1; c != row.end(); ++c)
                *c = "ACG*-  *"[below(8)];
        load_fragments(rows, {{0, 1, 2, 3}, {master, fragment}, {master}, {fragment}});
        for (const int species : {master, fragment})
            replace_text(species, sequence(species).substr(0, 1 + random() % 60) + (below(3) ? "" : "GG"));
        opt_nogap = below(2);
        opt_consensus = below(3);
        for (int e = 1; e < 4; e++)
            set_collapsed(e, below(2));

        std::string master_text = sequence(master);
        const std::string text = sequence(fragment);
        const auto script = text_format("Down*%d Up F2 Up*%d Down*%d Up Right*%d Left ", master + 1,
                                        master + 1, fragment + 2, 1 + below(columns));
        merge(script);
        const int position = cursor_position();
        const char pressed = "RLP"[below(3)];
        const int first = pressed == 'L' ? 0 : position;
        const int last = pressed == 'R' ? columns : pressed == 'L' ? position : position + 1;
        const auto pasted = text.substr(0, static_cast<std::size_t>(last));
        for (auto i = static_cast<std::size_t>(first); i < pasted.size(); i++) {
            if (pasted[i] == ' ') continue;
            if (std::ssize(master_text) < columns) master_text.resize(static_cast<std::size_t>(columns), ' ');
            master_text[i] = pasted[i];
        }
        merge(script + pressed);
        ASSERT_EQ(sequence(master), master_text) << "round " << round << ": " << script << pressed;
        ASSERT_EQ(sequence(fragment), text) << "round " << round;
        ASSERT_EQ(stale() + view_error() + columns_error(), "") << "round " << round;
        ASSERT_TRUE(changed());
    }
}

TEST_F(EstModeTest, KeysOfTheEditorWorkAndOthersDoNot)
{
    load_fragments({"ACGT****", "AC*T****"});
    merge("Down Right*2 *");
    EXPECT_EQ(sequence(1), "AC**T***");
    EXPECT_TRUE(shows("r:Paste-Right l:Paste-Left F2:Select-Master F12:Delete ESC:return"));
    const auto before = sequences();
    EXPECT_EQ(merge("A-BackSpace Y Enter F3 Y O Enter S-Tab Enter Down P").ending, Ending::script_ended);
    EXPECT_EQ(sequences(), before);
    EXPECT_EQ(ligne_curs, 2) << "no box has taken the key";
    EXPECT_TRUE(shows("You must select a master sequence")) << "P pastes here";
}

TEST_F(EstModeTest, ShowsTheCounter)
{
    load_fragments({"ACGTACGTACGTACGTACGT", "ACGTTCGTACGTACTTACGA", "AAAAAAAAAAAAAAAAAAAA"}, {{0, 1}, {2}});
    set_collapsed(1, true);
    opt_consensus = 1;
    merge("F2 Down Right*6");
    EXPECT_SCREEN("est_mode");
    for (const char* keys : {"Down", "F2", "F2 Down*2"}) {
        merge(keys);
        EXPECT_EQ(line(23).size(), 13U) << keys;
    }
    open({.lines = 20, .columns = 62});
    merge("F2 Down");
    EXPECT_EQ(line(19).substr(13), "   Diff left:   0 ( 0.0)   Diff right:   3 ( 7.5)");
    open({.lines = 20, .columns = 50});
    merge("F2 Down");
    EXPECT_EQ(line(19).substr(13), std::string(16, ' ') + "  0 ( 0.0)   3 ( 7.5)");
}

// ---- regions

namespace {

class RegionTest : public EstModeTest {
public:
    test::Played mark(std::string_view keys)
    {
        return play(keys, [] {
            enter();
            result = select_region();
        });
    }
};

} // namespace

TEST_F(RegionTest, HasTwoEndsInEitherOrder)
{
    load({std::string(60, 'A'), std::string(60, 'C')});
    const struct {
        const char* keys;
        int result, first, last;
    } cases[] = {
        {"Right*3 ( Down C-Right )", ok, 3, 33}, {"End ( C-Left )", ok, 29, 59},     {"Right ( )", ok, 1, 1},
        {") Q Right ( Right ( Q )", ok, 1, 2},   {"Right ( Escape", escaped, 1, -1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(mark(c.keys).ending, Ending::returned) << c.keys;
        EXPECT_EQ(std::tuple(result, pos_deb, pos_fin, kq_mode), std::tuple(c.result, c.first, c.last, 0))
            << c.keys;
    }
    mark("( Right (");
    EXPECT_TRUE(shows("You have already selected the beginning of the region"));
    mark(")");
    EXPECT_TRUE(shows("You must first select the beginning of the region"));
    EXPECT_EQ(mark("* Space Delete e E d U x Tab F11 F2 F12 O P Right Down m").ending, Ending::script_ended);
    EXPECT_FALSE(changed()) << "keys of the editor";
    EXPECT_EQ(nb_spec_affich, 2);
    EXPECT_EQ(cursor_position(), 1);
    EXPECT_EQ(ligne_curs, 1) << "m works in lower case, too";
}

TEST_F(RegionTest, ShowsItsBounds)
{
    load({std::string(150, 'A'), std::string(150, 'C')});
    open({.lines = 20, .columns = 100});
    mark("Right*4 ( Down");
    EXPECT_SCREEN("region");
    const struct {
        int columns;
        const char* bounds;
    } cases[] = {
        {100, "Beginning of selected region      5    End of selected region     35"},
        {80, "Beginning of selected region      5  End     35"},
        {60, "Beginning      5  End     35"},
        {45, "     5     35"},
    };
    for (const auto& c : cases) {
        open({.lines = 20, .columns = c.columns});
        mark("Right*4 ( C-Right )");
        EXPECT_EQ(line(19).substr(29), c.bounds) << c.columns;
    }
}
