// EST mode and region selection, played as keys.
#include "core/ali_reader.h"
#include "core/merging.h"
#include "core/work_buffer.h"
#include "editor/est_mode.h"
#include "editor/region.h"
#include "editor_test.h"
#include "screen/dialogs.h"
#include "support/golden.h"
#include "support/plain_reference.h"
#include "support/shared_data.h"

#include <numeric>
#include <random>
#include <utility>

using namespace kq;
using test::EditorTest;
using test::Ending;

namespace {

class EstModeTest : public EditorTest {
public:
    void name(int species, const char* identifier) { set_identifier(species, identifier); }
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
    static std::string steps(std::string_view key, int count)
    {
        std::string script;
        for (int i = 0; i < count; i++)
            script += std::string(key) + ' ';
        return script;
    }
    // "", or what is not as the rows say it has to be.
    static std::string stale()
    {
        const auto rows = sequences();
        plain::Texts all, listed;
        for (int e = 0; e < nb_ens; e++) {
            plain::Texts texts;
            for (const int species : members(e))
                texts.push_back(rows[static_cast<std::size_t>(species)]);
            listed.insert(listed.end(), texts.begin(), texts.end());
            const auto expected = plain::ensemble_consensus(texts, nb_nuc_tot, type_seq, caractere);
            if (collapsed(e) && expected.characters != seq_cons[static_cast<std::size_t>(e)])
                return "the consensus of an ensemble";
        }
        all.assign(rows.begin(), rows.end());
        if (opt_consensus &&
            plain::consensus_line(opt_consensus == 1 ? listed : all, nb_nuc_tot, type_seq) != ligne_consensus)
            return "the consensus line";
        auto hidden = plain::hidden_columns(listed, nb_nuc_tot);
        if (opt_nogap) std::ranges::fill(hidden, 0);
        return std::equal(hidden.begin(), hidden.end(), delcom) ? "" : "the hidden columns";
    }
    void expect_whole(const char* what) const
    {
        EXPECT_EQ(view_error() + store_error() + columns_error(), "") << what;
    }

    static inline int result = 0;
};

} // namespace

TEST_F(EstModeTest, PastesWhatIsNoBlank)
{
    const struct {
        const char* what;
        const char* keys;
        const char* master;
    } cases[] = {
        {"from the cursor on", "F2 Down Right*3 R", "ACGA*A-AGT"},
        {"before the cursor", "F2 Down Right*3 l", "TTGTACGTAC"},
        {"before the first position: nothing", "F2 Down L", "ACGTACGTAC"},
        {"one character", "F2 Down Right*3 p", "ACGAACGTAC"},
        {"no blank as one character", "F2 Down Right*2 P", "ACGTACGTAC"},
        {"everything", "F2 Down R", "TTGA*A-AGT"},
        {"into a master further down", "Down F2 Up Right*8 R", "TT A*A-AAC"},
    };
    for (const auto& c : cases) {
        load_fragments({"ACGTACGTAC", "TT A*A-AGT"});
        opt_nogap = 1;
        merge(c.keys);
        EXPECT_EQ(sequence(no_seq_ref), c.master) << c.what;
        EXPECT_TRUE(changed()) << c.what;
        expect_whole(c.what);
    }
}

TEST_F(EstModeTest, TextBeyondTheAlignmentIsNeitherCopiedNorLost)
{
    load_fragments({"ACGTAC", "TTTTTT"});
    replace_text(0, "AC");
    replace_text(1, "TT TTTGGG");
    merge("F2 Down End R");
    EXPECT_EQ(sequence(0), "AC   T") << "a short master is filled up";
    merge("Down F2 Up Home R");
    EXPECT_EQ(sequence(1), "AC TTTGGG");
    merge("F2 Down R"); // back into the first one, from the longer text
    EXPECT_EQ(sequence(0), "AC TTT");
    expect_whole("short and long rows");
}

TEST_F(EstModeTest, RefusesWhatItCannotPaste)
{
    const struct {
        const char* keys;
        const char* message;
    } cases[] = {
        {"R", "You must select a master sequence"},
        {"l", "You must select a master sequence"},
        {"P", "You must select a master sequence"},
        {"F2 R", "You are located on the master sequence"},
        {"F2 Right P", "You are located on the master sequence"},
        {"F2 Down R", "Do you want to fuse sequences from different species?"},
        {"F2 Down R N", ""},
        {"F2 Down R Escape", ""},
        {"F2 End Down*2 R", "Change the type of display of the ensemble n2 before"},
        {"Up F2", "The reference cannot be a consensus sequence"},
    };
    for (const auto& c : cases) {
        load_fragments({"AAAA", "CCCC", "GGGG"}, {{0, 1}, {2}});
        name(1, "Genus other@X.1");
        set_collapsed(1, true);
        const auto before = sequences();
        merge(c.keys);
        EXPECT_TRUE(shows(c.message)) << c.keys;
        EXPECT_EQ(sequences(), before) << c.keys;
        EXPECT_FALSE(changed()) << c.keys;
    }
    merge("F2 Down R Y");
    EXPECT_EQ(sequence(0), "CCCC");
    name(1, "Genus species@Y.1"); // what stands behind the "@" does not matter
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
            name(species, c.names[species]);
        merge("F2");
        EXPECT_TRUE(std::ranges::equal(c.marks, std::span(mergeable).first(5))) << c.names[0];
    }
    merge("F2 Down*4 F2 N");
    EXPECT_EQ(no_seq_ref, 0);
    merge("F2 Down*4 F2 Y");
    EXPECT_EQ(no_seq_ref, 4);
    EXPECT_EQ(mergeable[0], 0);
    merge("");
    EXPECT_EQ(no_seq_ref, -1) << "forgotten when the mode begins again";
    EXPECT_EQ(mergeable[4], 0);
}

TEST_F(EstModeTest, DestroysWithoutQuestions)
{
    load_fragments({"AC*-T ", "CCCC  ", "GGGGGG"}, {{0, 1, 2}, {0}});
    merge("F2 Down F12");
    EXPECT_EQ(read_file("seq/test.non"), "#Molecule\n#Domain\n#mode EST\n>Genus species@X.1\nCCCC\n");
    EXPECT_TRUE(destroy[1]);
    EXPECT_EQ(no_seq_ref, 0);
    merge("F2 F12 N");
    EXPECT_FALSE(destroy[0]);
    EXPECT_EQ(no_seq_ref, 0);
    merge("F2 F12 Y");
    EXPECT_TRUE(destroy[0]);
    EXPECT_EQ(no_seq_ref, -1);
    EXPECT_EQ(mergeable[0], 0);
    expect_whole("destroyed");

    load_fragments({"AAAA", "CCCC"}); // the master leaves its ensemble, but not the alignment
    merge("F2 D Y R");
    EXPECT_EQ(sequence(0), "CCCC");
}

TEST_F(EstModeTest, AMasterThatCannotBeRejectedStays)
{
    load_fragments({"ACGT", "ACGT"});
    ASSERT_EQ(std::system(("mkdir " + path("seq/test.non")).c_str()), 0);
    merge("F2 F12 Y Q");
    EXPECT_FALSE(destroy[0]);
    EXPECT_EQ(no_seq_ref, 0);
}

TEST_F(EstModeTest, BringsEverythingThatHoldsTheMasterUpToDate)
{
    // The master is in two ensembles, one of them collapsed, and shares the first with another species.
    load_fragments({"AC*****", "A***GTC", "A****TG"}, {{1, 2}, {0, 1}, {0}});
    set_collapsed(2, true);
    opt_consensus = 1;
    merge("Down*2 F2 Up*2 Right R");
    EXPECT_EQ(sequence(0), "A***GTC");
    EXPECT_EQ(std::string(seq_cons[2]), "A***GTC");
    EXPECT_EQ(cursor_position(), 4) << "column 1 has become hidden";
    EXPECT_EQ(stale(), "");
    expect_whole("pasted");
}

// Random rows of several lengths, hidden columns, ensembles that share species, some of them collapsed.
TEST_F(EstModeTest, RandomPastesEqualThePlainOnes)
{
    for (unsigned round = 0; round < 120; round++) {
        std::mt19937 random(round);
        const auto below = [&random](std::size_t n) { return static_cast<int>(random() % n); };
        const int columns = 2 + below(40), master = below(4), fragment = (master + 1 + below(3)) % 4;
        std::vector<std::string> rows(4, std::string(static_cast<std::size_t>(columns), 'A'));
        for (auto& row : rows)
            for (std::size_t p = 1; p < row.size(); p++)
                row[p] = "ACG*-  *"[below(8)];
        load_fragments(rows, {{0, 1, 2, 3}, {master, fragment}, {master}, {fragment}});
        for (const int species : {master, fragment}) {
            auto text = rows[static_cast<std::size_t>(species)];
            if (below(3) == 0)
                text.resize(static_cast<std::size_t>(1 + below(static_cast<std::size_t>(columns))));
            if (below(3) == 0) text += "GG";
            replace_text(species, text);
        }
        opt_nogap = below(2);
        opt_consensus = below(3);
        for (int e = 1; e < 4; e++)
            set_collapsed(e, below(2));
        const auto before = sequences();
        const char pressed = "RLP"[below(3)];
        std::string script = steps("Down", master) + "F2 " + steps("Up", master) + steps("Down", fragment);
        merge(script += steps("Right", below(static_cast<std::size_t>(columns))));
        const int position = cursor_position();
        merge(script + pressed);

        auto expected = before[static_cast<std::size_t>(master)];
        const auto text = before[static_cast<std::size_t>(fragment)];
        const auto read = text.substr(0, static_cast<std::size_t>(columns));
        bool pasted = false;
        for (int p = 0; p < std::ssize(read); p++) {
            const auto i = static_cast<std::size_t>(p);
            if (pressed == 'R' ? p < position : pressed == 'L' ? p >= position : p != position) continue;
            if (read[i] == ' ') continue;
            if (!std::exchange(pasted, true) && std::ssize(expected) < columns)
                expected.resize(static_cast<std::size_t>(columns), ' ');
            expected[i] = read[i];
        }
        ASSERT_EQ(sequence(master), expected) << "round " << round << ": " << script << pressed;
        ASSERT_EQ(sequence(fragment), text) << "round " << round;
        ASSERT_EQ(stale(), "") << "round " << round << ": " << script << pressed;
        expect_whole("random");
    }
}

TEST_F(EstModeTest, PiecesOfRealSequencesBecomeWhole)
{
    const auto data = test::shared_data();
    if (!data) GTEST_SKIP() << "no shared alignments here";
    load({"A"}); // makes room for an alignment
    const std::string file = *data + "/ssu_small/ZOLT/seq/ssu_frag.ali";
    ASSERT_TRUE(allocate_buffer());
    ASSERT_EQ(load_ali(file, check_ali(file)), "");
    std::vector<int> all(static_cast<std::size_t>(nb_spec));
    std::iota(all.begin(), all.end(), 0);
    set_members(0, all);
    const auto before = sequences();
    // The first of three pieces is the master of the two below it, which go to the rejects.
    std::string script = "Down*11 ";
    for (const char* master : {"F2 ", "F2 Y ", "F2 Y ", "F2 Y "})
        script += std::string(master) + "Home Down R F12 R F12 ";
    file_ALI = "frag.ali";
    merge(script);
    EXPECT_TRUE(changed());
    for (int whole = 0; whole < 4; whole++) {
        const int master = 11 + 3 * whole;
        EXPECT_TRUE(sequence(master) == before[static_cast<std::size_t>(whole)]) << identifier(master);
        EXPECT_TRUE(destroy[static_cast<std::size_t>(master + 1)] &&
                    destroy[static_cast<std::size_t>(master + 2)]);
    }
    EXPECT_EQ(nb_spec_ens[0], 15);
    const auto rejects = read_file("seq/frag.non");
    EXPECT_NE(rejects.find("#mode EST\n>Clostridium tetani@X74770.3\n"), std::string::npos);
    EXPECT_EQ(stale(), "");
    expect_whole("merged");
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
    EXPECT_EQ(line(23),
              "     7/     7" + std::string(16, ' ') + "Diff left:   1 ( 0.0)   Diff right:   2 ( 5.0)");
    EXPECT_SCREEN("est_mode");
    for (const char* keys : {"Down", "F2", "F2 Down*2", ""}) {
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

TEST_F(RegionTest, IsMarkedAtEitherEndFirst)
{
    load({std::string(60, 'A'), std::string(60, 'C')});
    EXPECT_EQ(mark("Right*3 ( Down C-Right )").ending, Ending::returned);
    EXPECT_EQ(result, ok);
    EXPECT_EQ(pos_deb, 3);
    EXPECT_EQ(pos_fin, 33);
    mark("End ( C-Left )");
    EXPECT_EQ(pos_deb, 29);
    EXPECT_EQ(pos_fin, 59);
    mark("Right ( )");
    EXPECT_EQ(pos_deb, 1);
    EXPECT_EQ(pos_fin, 1);
    EXPECT_EQ(kq_mode, 0);
    EXPECT_EQ(mark("Right ( Escape").ending, Ending::returned);
    EXPECT_EQ(result, escaped);
    EXPECT_EQ(kq_mode, 0);
}

TEST_F(RegionTest, RefusesSecondBeginningsAndEndsWithoutOne)
{
    load({"ACGT", "ACGT"});
    mark("( Right (");
    EXPECT_TRUE(shows("You have already selected the beginning of the region"));
    EXPECT_EQ(pos_deb, 0);
    mark(")");
    EXPECT_TRUE(shows("You must first select the beginning of the region"));
    EXPECT_EQ(mark(") Q Right ( Left )").ending, Ending::returned);
    EXPECT_EQ(pos_fin, 1);
}

TEST_F(RegionTest, OnlyItsKeysWork)
{
    load({"AC*T", "AC*T"});
    EXPECT_EQ(mark("* Space Delete e E d U x Tab F11 F2 F12 O P Right m").ending, Ending::script_ended);
    EXPECT_FALSE(changed());
    EXPECT_EQ(nb_spec_affich, 2);
    EXPECT_EQ(cursor_position(), 1);
    mark("Down m");
    EXPECT_EQ(ligne_curs, 1);
    mark("Down M");
    EXPECT_EQ(ligne_curs, 1);
}

TEST_F(RegionTest, ShowsItsBounds)
{
    load({std::string(150, 'A'), std::string(150, 'C')});
    open({.lines = 20, .columns = 100});
    mark("Right*4 ( Down");
    EXPECT_SCREEN("region");
    const struct {
        int columns;
        const char* beginning;
        const char* both;
    } cases[] = {
        {100, "Beginning of selected region      5",
         "Beginning of selected region      5    End of selected region     35"},
        {80, "Beginning of selected region      5", "Beginning of selected region      5  End     35"},
        {60, "Beginning      5", "Beginning      5  End     35"},
        {45, "     5", "     5     35"},
    };
    for (const auto& c : cases) {
        open({.lines = 20, .columns = c.columns});
        mark("Right*4 (");
        EXPECT_EQ(line(19).substr(29), c.beginning) << c.columns;
        mark("Right*4 ( C-Right )");
        EXPECT_EQ(line(19).substr(29), c.both) << c.columns;
    }
}
