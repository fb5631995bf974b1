// A sequence in FASTA form: the box, the file, the viewer.
#include "editor/fasta_view.h"
#include "editor_test.h"
#include "raster/keys.h"

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

using namespace kq;
using test::EditorTest;
namespace fs = std::filesystem;

namespace {

// In a working directory of its own, with a viewer that notes its arguments.
class FastaTest : public EditorTest {
public:
    FastaTest()
    {
        work_in("work");
        const std::string noting = path("noting$$"), noted_file = path("noted");
        write_program("viewer", "exec 2>/dev/null\nfor a; do echo \"<$a>\"; done >" + noting + "\nmv " +
                                    noting + " " + noted_file + "\n");
        setenv("KQ_VIEWER", path("viewer").c_str(), 1);
    }
    ~FastaTest() override { unsetenv("KQ_VIEWER"); }
    // What the viewer was called with; it runs in the background.
    std::string noted() const
    {
        for (int i = 0; i < 1000 && !has_file("noted"); i++)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return read_file("noted");
    }
};

std::string residues(std::size_t count)
{
    std::string text;
    while (text.size() < count)
        text += "ACGT"[text.size() / 10 % 4];
    return text;
}

} // namespace

TEST_F(FastaTest, ASpeciesIsShownWrittenAndHandedToTheViewer)
{
    load({"?-AC*G $T", residues(140)});
    edit("F");
    EXPECT_EQ(read_file("work/test.fasta"), ">Genus_a species@1\nACGT\n");
    EXPECT_EQ(noted(), "<test.fasta>\n");
    edit("Down f");
    EXPECT_EQ(read_file("work/test.fasta"), ">Genus_b species@2\n" + residues(140) + "\n");
    EXPECT_SCREEN("fasta_box");

    load({"AC*T", "AC*T", "GGGG"}, {{0, 1}, {2}}); // a collapsed ensemble
    edit("E F");
    EXPECT_EQ(read_file("work/test.fasta"), ">Ensemble1|ensemble A\nACT\n");
}

TEST_F(FastaTest, HostileFileNamesReachTheViewerAsTheyAre)
{
    load({"ACGT"});
    file_ALI = "-rf; touch owned; $(touch owned) 'x\" &.y.ali";
    edit("F");
    EXPECT_EQ(noted(), "<./-rf; touch owned; $(touch owned) 'x\" &.fasta>\n");
    EXPECT_EQ(file_names("work"), std::vector<std::string>{"-rf; touch owned; $(touch owned) 'x\" &.fasta"});
}

TEST_F(FastaTest, WithoutViewerOrFileTheBoxIsThere)
{
    load({"ACGT"});
    setenv("KQ_VIEWER", "/nowhere/viewer", 1);
    edit("F");
    EXPECT_TRUE(shows("ACGT"));
    EXPECT_EQ(errors(), "");

    setenv("KQ_VIEWER", path("viewer").c_str(), 1);
    fs::remove("test.fasta");
    fs::create_directories("test.fasta/in_the_way");
    edit("F");
    EXPECT_TRUE(shows("Problem in changing name"));
    EXPECT_EQ(file_names("work"), std::vector<std::string>{"test.fasta"}) << "nothing is left half-written";
}

TEST_F(FastaTest, LongSequencesPage)
{
    load({residues(70 * 100)}); // 102 rows, of which 20 are shown
    const struct {
        const char *keys, *place, *first;
    } cases[] = {
        {"F Down", "2-21 of 102", "AAAAAAAAAACCCCCCCCCC"},
        {"F PgDn*9", "83-102 of 102", "TTTTTTTTTTAAAAAAAAAA"},
        {"F End Home Down", "2-21 of 102", "AAAAAAAAAACCCCCCCCCC"},
    };
    for (const auto& [keys, place, first] : cases) {
        edit(keys);
        EXPECT_TRUE(shows(place)) << keys << "\n" << line(22);
        EXPECT_TRUE(line(2).substr(2).starts_with(first)) << keys << "\n" << line(2);
    }
    int closed_by = 0;
    load({"ACGT"});
    play("Down", [&] { closed_by = affich_fasta(0); });
    EXPECT_EQ(closed_by, key::down) << "where nothing scrolls, any key closes";
    open({.lines = 20, .columns = 20});
    load({residues(300)});
    edit("F PgDn");
    EXPECT_SCREEN("fasta_tiny");
}
