// A BLAST search from the editor: with stand-ins for the programs, and with the programs themselves.
#include "editor/editor_test.h"
#include "editor/similarity_hits.h"
#include "tools/blast_search.h"

#include <cstdlib>
#include <filesystem>

using namespace kq;
using test::EditorTest;
using test::Ending;

namespace {

class BlastSearchTest : public EditorTest {
public:
    BlastSearchTest()
    {
        work_in("work");
        std::filesystem::create_directory(path("bin"));
        setenv("KQ_BLAST_BIN", path("bin").c_str(), 1);
        setenv("TMPDIR", path("temporary").c_str(), 1);
        std::filesystem::create_directory(path("temporary"));
    }
    ~BlastSearchTest() override
    {
        unsetenv("KQ_BLAST_BIN");
        unsetenv("TMPDIR");
    }

    // A shell script in place of a program; $database, $query and $output are what its options name.
    void stand_in(const std::string& program, const std::string& script) const
    {
        write_program("bin/" + program, "for a; do case $a in -d*) database=${a#-d};; -i*) query=${a#-i};; "
                                        "-o*) output=${a#-o};; esac; done\n" +
                                            script + '\n');
    }
    // What the box of a warning says, on one line.
    std::string box_text() const
    {
        std::string text;
        for (int l = 6; line(l).find('|') != std::string::npos; l++) {
            const std::string row = line(l).substr(line(l).find('|') + 2);
            text += row.substr(0, row.find_last_not_of(" |") + 1) + ' ';
        }
        return text;
    }
    bool nothing_is_left() const { return file_names("work").empty() && file_names("temporary").empty(); }
};

std::string hit(int species, const std::string& scores)
{
    return text_format("lcl|0\tlcl|%d\t97.5\t120\t3\t0\t1\t120\t1\t120\t", species) + scores + '\n';
}

TEST_F(BlastSearchTest, FillsScoresAndTableFromWhatTheProgramsSay)
{
    open({.lines = 24, .columns = 130});
    std::vector<std::string> rows(50, "AC-g*T $?A");
    load(rows);
    read_frame_of_three_groups();
    new_est[2] = -1;
    set_destroyed(4, true);
    replace_text(3, "AC");
    replace_text(5, "*- ?");
    std::string table =
        hit(1, "1e-120\t2863") + hit(1, "5\t20") + hit(2, "3.05e-29\t107") + hit(3, "0.0\t41.5");
    for (int s = 6; s < 50; s++)
        table += hit(s, "2.5\t20.1");
    write_file("table", table);
    stand_in("formatdb", "{ for a; do echo \"[$a]\"; done; cat \"$query\"; } > " + path("said"));
    stand_in("blastall", "cat \"$query\" >> " + path("said") + "; echo Warning: slow >&2; cp " +
                             path("table") + " \"$output\"");

    EXPECT_EQ(edit("Down Z").ending, Ending::script_ended);
    EXPECT_SCREEN("blast_hits");
    edit("Down Z End");
    EXPECT_TRUE(line(21).starts_with("| 2.5         20      98      120    Genus_q species@43")) << line(21);
    edit("Down Z Enter");
    EXPECT_EQ(line(1).substr(0, 28), "Genus_a species@1           ");
    EXPECT_EQ(line(2).substr(0, 28), "Genus_b species@2   1.0e-120");
    EXPECT_EQ(opt_evalue, 2);
    EXPECT_EQ(tophits, 40);
    EXPECT_EQ(blasttable[39].species, 42);
    EXPECT_EQ(evalue[49][1], 2.5);
    EXPECT_EQ(evalue[4][1], -1.0);
    EXPECT_EQ(std::pair(pos_deb, pos_fin), std::pair(0, 9));
    const std::string said = read_file("said");
    const std::string beginning = "[-itest.ali.forblast.fasta]\n[-pF]\n[-oF]\n>lcl|0\nACgTA\n";
    EXPECT_EQ(said.substr(0, beginning.size()), beginning);
    EXPECT_NE(said.find(">lcl|3\nAC\n>lcl|6\n"), std::string::npos) << said;
    EXPECT_TRUE(said.ends_with(">lcl|49\nACgTA\n>lcl|1\nACgTA\n")) << said;
    EXPECT_TRUE(nothing_is_left());
}

TEST_F(BlastSearchTest, ThatFailsChangesNothing)
{
    const struct {
        std::string formatdb, blastall, keys, warning;
    } cases[] = {
        {"none", "", "Z", "/bin/formatdb could not be started (No such file or directory)."},
        {"", "none", "Z", "/bin/blastall could not be started"},
        {"echo 'Warning: x' >&2; echo 'No room' >&2; exit 1", "", "Z",
         "formatdb has ended with status 1. No room"},
        {"", "kill -9 $$", "Z", "blastall was ended by signal 9"},
        {"", "true", "Z", "test.ali.query.blastn"},
        {"sleep 100", "", "Z early Esc", ""},
        {"", "sleep 100 & sleep 100", "Z early Esc", ""},
        {"", "", "Down Z", "The sequence has no residues"},
        {"", "", "F4 Enter Z", "Change the type of display of the ensemble n1 before"},
    };
    for (const auto& c : cases) {
        load({"ACGT", "*-- "}, {{0}, {1}});
        for (const auto& [program, script] : {std::pair("formatdb", c.formatdb), {"blastall", c.blastall}})
            if (script == "none")
                std::filesystem::remove(path("bin") + '/' + program);
            else
                stand_in(program, script);
        evalue[0] = {3.0, 0.5};
        opt_evalue = tophits = 1;
        blasttable[0].species = 1;
        EXPECT_EQ(edit(c.keys).ending, Ending::script_ended) << c.warning;
        EXPECT_NE(box_text().find(c.warning), std::string::npos) << c.warning << " is not in: " << box_text();
        EXPECT_EQ(c.warning.empty(), !shows("Press any key")) << c.warning;
        EXPECT_EQ(evalue[0], (std::array{3.0, 0.5})) << c.warning;
        EXPECT_EQ(std::tuple(opt_evalue, tophits, blasttable[0].species), std::tuple(1, 1, 1)) << c.warning;
        EXPECT_TRUE(nothing_is_left()) << c.warning;
        opt_evalue = 0;
    }
}

TEST_F(BlastSearchTest, CountsWhatComesBeforeRubbish)
{
    load({"ACGT", "ACGA", "ACGC"});
    evalue[2] = {-1.0, 7.0};
    write_file("table", hit(1, "1e-9\t30") + "rubbish\n" + hit(2, "1e-9\t30"));
    stand_in("formatdb", "");
    stand_in("blastall", "cp " + path("table") + " \"$output\"");
    edit("Z");
    EXPECT_TRUE(shows("BLAST's table of hits cannot be read from line 2 on"));
    edit("Z Enter");
    EXPECT_TRUE(shows("Evalue"));
    EXPECT_EQ(tophits, 1);
    EXPECT_EQ(evalue[1][1], 1e-9);
    EXPECT_EQ(evalue[2][1], -1.0);
    write_file("table", "");
    edit("Z");
    EXPECT_FALSE(shows("ESCAPE:Cancel")) << "the waiting box is larger than a table without hits";
}

} // namespace
