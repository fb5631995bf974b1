// Realigning a region: with programs that stand in for ClustalW, and with ClustalW itself.
#include "taxonomy/text_file.h"
#include "tools/realignment.h"
#include "tools/region_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

using namespace kq;
using test::Ending;

namespace {

const std::string left_out = "?*-$ ";

class Realignment : public test::RegionTest {
public:
    Realignment()
        : RegionTest({.lines = 34, .columns = 160})
    {
        std::filesystem::create_directories(path("work"));
        std::filesystem::create_directories(path("temporary"));
        work_in("work");
        setenv("TMPDIR", path("temporary").c_str(), 1);
        unsetenv("KQ_CLUSTALW");
    }
    ~Realignment() override
    {
        unsetenv("TMPDIR");
        unsetenv("KQ_CLUSTALW");
    }

    // A shell script in the place of ClustalW: $in is the name of its input, $out of its output, and "answer"
    // and "input" in the directory $root are for its use.
    void stand_in(const std::string& script) const
    {
        write_program("tool", "root='" + root() +
                                  "'\nin=${2#-infile=}\nout=${in%.*}.nxs\n: > \"${in%.*}.dnd\"\n" + script +
                                  "\n");
        setenv("KQ_CLUSTALW", path("tool").c_str(), 1);
    }
    static void mark_region(int first, int last)
    {
        pos_deb = first;
        pos_fin = last;
    }
    static std::string residues(std::string_view text)
    {
        std::string kept;
        for (const char c : text)
            if (left_out.find(c) == std::string::npos) kept += c;
        return kept;
    }
    void expect_no_files_left() const
    {
        EXPECT_EQ(file_names("work"), std::vector<std::string>{});
        EXPECT_EQ(file_names("temporary"), std::vector<std::string>{});
    }

    // Interleaved, in blocks of this width, the rows in any order.
    static std::string nexus(const std::map<int, std::string>& rows, std::size_t width, std::mt19937& random)
    {
        const std::size_t length = rows.begin()->second.size();
        std::string text =
            text_format("#NEXUS\nBEGIN DATA;\ndimensions ntax=%zu nchar=%zu;\nformat missing=?\n\nmatrix\n",
                        rows.size(), length);
        std::vector<int> order;
        for (const auto& [species, row] : rows)
            order.push_back(species);
        for (std::size_t column = 0; column < length; column += width) {
            std::ranges::shuffle(order, random);
            for (const int species : order)
                text += text_format("lcl|%-8d ", species) + rows.at(species).substr(column, width) + '\n';
            text += '\n';
        }
        return text + ";\nend;\n";
    }
};

// What the rows have to become, one character at a time. `aligned` are the rows that came back.
std::vector<std::string> plain_result(std::vector<std::string> rows, const std::set<int>& chosen,
                                      const std::map<int, std::string>& aligned, std::size_t first,
                                      std::size_t last)
{
    const std::size_t width = last - first + 1, length = aligned.begin()->second.size();
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    for (std::size_t species = 0; species < rows.size(); species++) {
        std::string& text = rows[species];
        const bool is_chosen = chosen.contains(static_cast<int>(species));
        if (is_chosen || length > width) text.resize(std::max(text.size(), columns), ' ');
        const std::string own = text.size() > first ? text.substr(first, width) : "";
        if (length > width) {
            const bool missing = text[last] == ' ' && (last + 2 >= columns || text[last + 1] == ' ');
            text.insert(last + 1, length - width, missing ? ' ' : '*');
        }
        if (!is_chosen) continue;
        std::string result;
        if (const auto row = aligned.find(static_cast<int>(species)); row != aligned.end()) {
            const std::string residues = Realignment::residues(own);
            std::size_t next = 0;
            for (const char c : row->second)
                result += c == '-' ? '*' : residues[next++];
            result.resize(std::max(width, length), '*');
        } else {
            result = own;
            plain::compact(result, true);
        }
        text.replace(first, result.size(), result);
    }
    return rows;
}

} // namespace

// Random sets and alignments of what is sent.
TEST_F(Realignment, TakesOverTheGapsAndNothingElse)
{
    stand_in("cat \"$in\" > $root/input; cat $root/answer > \"$out\"");
    int widened = 0, narrowed = 0;
    for (unsigned round = 0; round < 60; round++) {
        SCOPED_TRACE(round);
        std::mt19937 random(round);
        auto rows = load_ten(random, "AAACGUacgn*- ?$");
        const auto set = random() % 3;
        const int minimum = static_cast<int>(random() % 6);
        const auto first = static_cast<std::size_t>(pos_deb), last = static_cast<std::size_t>(pos_fin);

        // What the program has to get, and a random alignment of that.
        std::string input;
        std::map<int, std::string> aligned;
        std::size_t length = 0;
        for (const int species : species_of_set[set]) {
            const auto& row = rows[static_cast<std::size_t>(species)];
            const auto own = residues(row.size() > first ? row.substr(first, last - first + 1) : "");
            if (species == 4 || own.empty() || std::ssize(own) < minimum) continue;
            input += ">lcl|" + std::to_string(species) + '\n' + own + '\n';
            aligned[species] = own;
            length = std::max(length, own.size());
        }
        length += random() % 9;
        for (auto& [species, row] : aligned) {
            while (row.size() < length)
                row.insert(random() % (row.size() + 1), 1, '-');
            if (random() % 2) strupr(row.data());
        }
        const bool enough = aligned.size() >= 2;
        if (enough) {
            write_file("answer", nexus(aligned, 1 + random() % 70, random));
            (length > last - first + 1 ? widened : narrowed)++;
            rows = plain_result(rows, {species_of_set[set].begin(), species_of_set[set].end()}, aligned,
                                first, last);
        }
        play("Q", [&] { do_clustalw(static_cast<SpeciesSet>(set), 1, minimum); });
        ASSERT_EQ(sequences(), rows);
        ASSERT_EQ(changed(), enough);
        ASSERT_TRUE(!enough || read_file("input") == input);
        ASSERT_EQ(columns_error() + store_error(), "");
        expect_no_files_left();
    }
    EXPECT_GT(widened, 10);
    EXPECT_GT(narrowed, 10);
}

TEST_F(Realignment, AProgramThatFailsChangesNothing)
{
    const std::vector<std::string> rows{"AC*GT*A", "ACCG**A", "A**GT*A", "*******"};
    std::mt19937 random(1);
    write_file("answer", nexus({{0, "C-GT"}, {1, "CCG-"}, {2, "--GT"}}, 50, random));
    write_file("two", nexus({{0, "C-GT"}, {1, "CCG-"}}, 50, random));
    const auto long_row = [](const std::string& text) { return text + std::string(150000, '-'); };
    write_file("long", nexus({{0, long_row("CGT")}, {1, long_row("CCG")}, {2, long_row("-GT")}}, 50, random));
    const std::pair<std::string, std::string> cases[] = {
        {"exit 3", "tool has ended with status 3: see terminal window"},
        {"kill -9 $$", "tool was ended by signal 9"},
        {"rm \"$in\"", "Problem in opening file test.ali.2-6.nxs (No such file or directory)"},
        {": > \"$out\"", "The result of ClustalW cannot be used: it is empty"},
        {"echo Error > \"$out\"", "it does not begin as a NEXUS alignment does"},
        {"sed 's/lcl|2/     /' $root/answer > \"$out\"", "is not the row of a species"},
        {"sed 's/lcl|2/lcl|1/' $root/answer > \"$out\"",
         "Genus_b species@2 comes again before all rows have come"},
        {"sed 's/lcl|2/lcl|3/' $root/answer > \"$out\"", "Genus_d species@4 was not sent"},
        {"sed 's/lcl|2/lcl|9/' $root/answer > \"$out\"", "species 9 was not sent"},
        {"sed 's/ntax=3/ntax=4/' $root/answer > \"$out\"", "it has 3 rows and announces 4"},
        {"cat $root/two > \"$out\"", "Genus_c species@3 is missing"},
        {"sed '/lcl.0/s/C-GT/C-GA/' $root/answer > \"$out\"",
         "Genus_a species@1 has other residues than were sent"},
        {"sed '/lcl.0/s/C-GT/C-G-/' $root/answer > \"$out\"",
         "Genus_a species@1 has other residues than were sent"},
        {"sed '/lcl.0/s/C-GT/CAGT/' $root/answer > \"$out\"",
         "Genus_a species@1 has other residues than were sent"},
        {"cat $root/long > \"$out\"", "The sequences are too long (see DOC)"},
    };
    const auto try_it = [&](const std::string& what, const std::string& warning,
                            const std::string& keys = "") {
        load(rows);
        enter();
        mark_region(1, 5);
        const auto played = play(keys, [] { do_clustalw(SpeciesSet::all_species, 0, 0); });
        EXPECT_EQ(played.ending, warning.empty() ? Ending::returned : Ending::script_ended) << what;
        EXPECT_TRUE(shows(warning)) << what << '\n' << line(6) << line(7);
        expect_no_files_left();
        EXPECT_EQ(sequences(), rows) << what;
        EXPECT_FALSE(changed()) << what;
        EXPECT_EQ(columns_error() + store_error(), "") << what;
    };
    for (const auto& [script, warning] : cases) {
        stand_in(script);
        try_it(script, warning);
    }
    stand_in("cat $root/answer > \"$out\"; sleep 1000"); // what it has written by then does not count
    try_it("it hangs", "", "early Esc");
    setenv("KQ_CLUSTALW", "../none/clustalw", 1);
    try_it("missing",
           "work/../none/clustalw could not be started (No such file or directory): KQ_CLUSTALW may");
}

TEST_F(Realignment, AnyNameOfTheAlignmentWillDo)
{
    std::mt19937 random(1);
    write_file("answer", nexus({{0, "C-GT"}, {1, "CCG-"}}, 50, random));
    write_file("own", "the user's own");
    const struct {
        std::string name, input;
    } cases[] = {
        {"test.ali", "test.ali.2-5.fasta"},
        {"a-b_2.ali", "a-b_2.ali.2-5.fasta"},
        {"my ali;touch x.ali", "region.fasta"},
        {"-infile=x.ali", "region.fasta"},
        {"$(touch x)`'\"&|.ali", "region.fasta"},
        {std::string(250, 'l'), "region.fasta"},
        {"own.ali", "region.fasta"},  // the user has a file of the name that it would have
        {"link.ali", "region.fasta"}, // or a link that leads nowhere
    };
    write_file("work/own.ali.2-5.dnd", "the user's own");
    std::filesystem::create_symlink(path("nowhere"), path("work/link.ali.2-5.nxs"));
    stand_in("echo \"$# $2\" > $root/input; pwd >> $root/input; cat $root/answer > \"$out\"");
    for (const auto& c : cases) {
        load({"ACG*TA", "ACCG*A"});
        file_ALI = c.name;
        enter();
        mark_region(1, 4);
        EXPECT_EQ(play("", [] { do_clustalw(SpeciesSet::one_ensemble, 0, 0); }).ending, Ending::returned)
            << c.name;
        EXPECT_EQ(sequences(), (std::vector<std::string>{"AC*GTA", "ACCG*A"})) << c.name;
        const std::string input = read_file("input");
        EXPECT_EQ(input.substr(0, input.find('\n')), "2 -infile=" + c.input) << c.name;
        EXPECT_EQ(input.ends_with("/work\n"), c.input != "region.fasta") << input;
        EXPECT_EQ(file_names("work"), (std::vector<std::string>{"link.ali.2-5.nxs", "own.ali.2-5.dnd"}))
            << c.name;
        EXPECT_EQ(file_names("temporary"), std::vector<std::string>{}) << c.name;
    }
    EXPECT_EQ(read_file("work/own.ali.2-5.dnd"), "the user's own");
}

TEST_F(Realignment, IsReachedByKeys)
{
    std::mt19937 random(1);
    write_file("answer", nexus({{0, "C-GT"}, {2, "-CGT"}}, 50, random));
    stand_in("cat $root/answer > \"$out\"");
    const std::string region = "O Down*3 Enter Right ( Right*2 ) ";
    const std::vector<std::string> rows{"ACGTA", "ACG*A", "ACGTA"}, done{"AC*GTA", "ACG**A", "A*CGTA"};
    const struct {
        std::string keys;
        std::vector<std::string> rows;
        std::string shown;
    } cases[] = {
        {region + "BackSpace \"3\" Enter Down Enter", done, ""},
        {region + "BackSpace \"3\" Enter Enter Down Enter", done, ""},
        {region + "Enter Down*2 Enter", rows,
         "Fewer than two of the species have enough residues in the region"},
        {region + "Enter Enter Escape", rows, ""},
        {region + "Enter Escape", rows, ""},
        {region + "Escape", rows, ""},
        {"O Down*3 Enter ( Escape", rows, ""},
        {region + "\"9\" Enter", rows, "to be realigned (0-5) ="}, // 59 is refused
    };
    for (const auto& c : cases) {
        load(rows, {{1}, {0, 2, 1}});
        EXPECT_EQ(edit(c.keys).ending, Ending::script_ended) << c.keys;
        EXPECT_EQ(sequences(), c.rows) << c.keys;
        EXPECT_EQ(changed(), c.rows != rows) << c.keys;
        EXPECT_TRUE(shows(c.shown)) << c.keys;
        EXPECT_EQ(model_error(), "") << c.keys;
        expect_no_files_left();
    }
    open({.lines = 24, .columns = 80});
    load(rows);
    edit(region);
    EXPECT_SCREEN("realignment_minimum");
    edit(region + "Enter");
    EXPECT_SCREEN("realignment_sets");
}

// ---- ClustalW itself

namespace {

struct RealCase {
    std::string name; // of the alignment
    std::string file;
    int type;
    std::size_t first, count;
    bool narrowed; // else widened
};

// The first twenty rows of an alignment of the demo, the given columns. Every second column is empty, so that
// the region becomes narrower; or each row lacks a piece elsewhere and the rest is packed, so that it becomes
// wider.
std::vector<std::string> region_of_demo(const RealCase& c)
{
    std::vector<std::string> rows;
    std::size_t width = 0;
    const std::string bytes = test::read_bytes(KQ_SOURCE_DIRECTORY "/demo/ZOLT/seq/" + c.file);
    for (std::string_view text = bytes; rows.size() < 20;) {
        std::string line(take_line(text)), own;
        if (line.starts_with('>') || line.starts_with('#')) continue;
        line.resize(std::max(line.size(), c.first + c.count), ' ');
        for (const char residue : line.substr(c.first, c.count))
            own += c.narrowed ? std::string{residue, '*'} : Realignment::residues({&residue, 1});
        if (!c.narrowed) own.erase(std::min(own.size(), 5 + 3 * rows.size()), 6);
        width = std::max(width, own.size());
        rows.push_back(own);
    }
    for (auto& row : rows)
        row.resize(width, '*');
    return rows;
}

} // namespace

TEST_F(Realignment, ClustalWRealignsRealSequences)
{
    if (std::system("command -v clustalw > /dev/null") != 0) GTEST_SKIP() << "there is no clustalw";
    const RealCase cases[] = {
        {"ssu.ali", "ssu_small.ali", test::nucleic, 180, 90, true},
        {"two words;x.ali", "ssu_small.ali", test::nucleic, 180, 90, false},
        {"prot.ali", "ovomucoid.ali", test::protein, 0, 88, false},
        {"prot.ali", "proteases.ali", test::protein, 600, 80, true},
    };
    const std::string left = "ACDEFGHIKL", right = "LKIHGFEDCA"; // of the region; they stay
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name + " " + c.file);
        auto before = region_of_demo(c);
        const auto width = before[0].size();
        before[5] = "A$C?" + std::string(width - 4, '*'); // too short
        strlwr(before[6].data());
        std::vector<std::string> rows;
        for (const auto& region : before)
            rows.push_back(left + region + right);
        load(rows, {}, c.type);
        file_ALI = c.name;
        set_destroyed(7, true);
        enter();
        mark_region(10, static_cast<int>(9 + width));
        EXPECT_EQ(play("", [] { do_clustalw(SpeciesSet::all_species, 0, 5); }).ending, Ending::returned);

        ASSERT_TRUE(changed());
        const auto wider = static_cast<std::size_t>(nb_nuc_tot) - rows[0].size();
        EXPECT_EQ(wider > 0, !c.narrowed);
        std::size_t longest = 0;
        for (std::size_t i = 0; i < rows.size(); i++) {
            const std::string now = sequence(static_cast<int>(i));
            ASSERT_EQ(now.size(), rows[i].size() + wider);
            const std::string region = now.substr(10, width + wider);
            EXPECT_EQ(now, left + region + right);
            if (i == 5 || i == 7) {
                plain::compact(before[i], true);
                EXPECT_EQ(region, before[i] + std::string(wider, '*'));
                continue;
            }
            EXPECT_EQ(residues(region), residues(before[i]));
            EXPECT_EQ(region.find_first_of("-$? "), std::string::npos);
            longest = std::max(longest, region.find_last_not_of('*') + 1);
        }
        EXPECT_EQ(longest < width, c.narrowed);
        expect_no_files_left();
    }
}
