// What is known about a species: the box, and the information file behind it.
#include "core/inf_record.h"
#include "taxonomy/group_moves.h"
#include "taxonomy/species_info.h"
#include "tree_fixture.h"

using namespace kq;
using namespace kq::test;

namespace {

class SpeciesInfo : public TreeTest {
public:
    SpeciesInfo()
    {
        load_five_leaves();
        file_ALI = "five.ali";
        set_accession("AB1234");
    }
    static void set_accession(const std::string& accession)
    {
        store_put(0, "Ant alpha@" + accession, "ACGTACGTAC", false, false);
    }
    int info(std::string_view keys)
    {
        int result = -9;
        play(keys, [&] { result = affich_info(0, no_list); });
        return result;
    }
    void write_inf(std::string_view text) const { write_file("seq/five.inf", text); }
    // The rows of the box below the first one.
    std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        const int legend = line_of("Press any key to continue");
        for (int l = 3; l < legend - 1; l++) {
            std::string text = line(l).substr(2);
            text.resize(text.find_last_not_of(" |") + 1);
            texts.push_back(text);
        }
        return texts;
    }
};

constexpr std::string_view two_records =
    "[ORG] Bee beta\n[ACC] XY99\n[SYS] Eukaryota; B.\n\n"
    "[ORG] Ant alpha\n[ACC] AB1234\n[SYS] Eukaryota; Low;\nC.\n[BLA] 1.0\n\n"
    "[ORG] Cat gamma\n[ACC] ZZ77\n";

} // namespace

TEST_F(SpeciesInfo, ShowsTheRecordOfTheAccession)
{
    write_inf(two_records);
    info("");
    EXPECT_SCREEN("species_info");
    open({.lines = 20, .columns = 20});
    info("");
    EXPECT_SCREEN("species_info_tiny");
}

TEST_F(SpeciesInfo, ReadsWhateverTheFileHolds)
{
    using Rows = std::vector<std::string>;
    const std::string long_line(300000, 'x');
    std::string endless = "[ACC] AB1234\n";
    for (int i = 0; i < 1000; i++)
        endless += "line " + std::to_string(i) + "\n";
    const struct {
        const char* what;
        std::string text;
        Rows expected;
    } cases[] = {
        {"CR line ends", "[ORG] Ant\r\n[ACC] AB1234\r\n\r\n[ORG] Bee\r\n", {"[ORG] Ant", "[ACC] AB1234"}},
        {"no newline at the end", "[ORG] Ant\n[ACC] AB1234", {"[ORG] Ant", "[ACC] AB1234"}},
        {"no tags, no commas", "AB1234\nwhatever", {"", "AB1234", "whatever"}},
        {"after it", "[ORG] Bee\n\n[ACC] AB1234\n[ORG] Ant\n", {"[ORG] Ant", "[ACC] AB1234", "[ORG] Ant"}},
        {"the organism of another record", "[ORG] Bee\n[ACC] XY99\n\n[ACC] AB1234\n", {"", "[ACC] AB1234"}},
        {"long", long_line + "\nAB1234\n" + long_line, {"", "AB1234", long_line.substr(0, 76)}},
    };
    for (const auto& [what, text, expected] : cases) {
        write_inf(text);
        info("");
        EXPECT_EQ(rows(), expected) << what;
    }
    write_inf(endless);
    info("");
    EXPECT_EQ(line_of("line 26"), 31) << "as much as there is room for";
    EXPECT_EQ(read_inf_record(path("seq/five.inf"), "AB1234").lines.size(), std::size_t{most_inf_lines});
}

TEST_F(SpeciesInfo, SaysWhatIsMissing)
{
    info("");
    EXPECT_TRUE(shows("The file, " + path("seq/five.inf") + ", does not exist"));
    write_inf("[ACC] AB1\n");
    set_accession("AB1");
    info("");
    EXPECT_TRUE(shows("There is no accession number"));
    info("F8");
    EXPECT_TRUE(shows("It is impossible to automatically affect this species to a group"));
    EXPECT_EQ(info("F8 Q"), 0);
}

TEST_F(SpeciesInfo, F8MovesTheSpeciesToItsGroup)
{
    write_inf(two_records);
    EXPECT_EQ(info("F8 Q"), 1);
    EXPECT_EQ(no_groupe[0], find_group("C"));
    write_inf("[ACC] AB1234\n[SYS] Eukaryota; Nowhere.\n");
    EXPECT_EQ(info("F8 Q"), 0);
    // A window too small to show the classification changes nothing.
    std::string deep = "[ACC] AB1234\n";
    for (int i = 0; i < 50; i++)
        deep += "[DEF] " + std::to_string(i) + "\n";
    write_inf(deep + "[SYS] Eukaryota; and a long way to go before the name of the group comes;\nE.\n");
    open({.lines = 20, .columns = 20});
    EXPECT_EQ(info("F8 Q"), 1);
    EXPECT_EQ(no_groupe[0], find_group("E"));
}
