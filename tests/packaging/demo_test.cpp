// The demo's frames and groups fit its alignments, and what the launcher writes fits the program's reading.
#include "core/ali_reader.h"
#include "taxonomy/taxonomy_session.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <set>

using namespace kq;
using namespace kq::test;
namespace fs = std::filesystem;

namespace {

const std::string source = KQ_SOURCE_DIRECTORY;
const std::string demo = source + "/demo";
using Names = std::set<std::string>;

// Loads an alignment with its frame and groups.
void load(const std::string& alignment, const std::string& frame, const std::string& groups)
{
    reset_taxonomy();
    ASSERT_TRUE(store_allocate());
    ASSERT_EQ(load_ali(alignment, check_ali(alignment)), "");
    derive_families();
    const FraFile file = parse_fra(read_bytes(frame));
    ASSERT_EQ(file.error, "");
    ASSERT_EQ(build_frame(file.nodes), "");
    ASSERT_EQ(assign_groups(read_bytes(groups), groups), "");
}

// The species, as group files name them, that no group took.
Names unassigned()
{
    Names names;
    for (int s = 0; s < nb_spec; s++)
        if (no_groupe[static_cast<std::size_t>(s)] == cupboard()) names.emplace(nom_key(identifier(s)));
    return names;
}

// Collects what one view of the tree shows, from its head down to leaves and collapsed heads.
void collect_view(const node& top, std::multimap<int, std::string>& rows)
{
    for (const node* child : {top.child2, top.child1}) {
        if (child->expanded())
            collect_view(*child, rows);
        else
            rows.emplace((child->file_y - 8) / 16, group_name(child->no));
    }
}

class Demo : public testing::Test {
protected:
    ~Demo() override { reset_taxonomy(); }
};

} // namespace

TEST_F(Demo, EverySpeciesHasItsGroup)
{
    const Names bacteria = {"Chlorogloeopsis sp.", "Deferribacter thermophilus"};
    const struct {
        std::string alignment, frame, groups;
        Names cupboard;
    } cases[] = {
        {"ssu_small", "DEMO", "demo", bacteria},
        {"ssu_frag", "DEMO", "demo", {}},
        {"ovomucoid", "DEMO", "demo", {"Goose"}},
        {"proteases", "DEMO", "demo", {"Cavia porcellus"}},
        {"klk_bz", "DEMO", "demo", {"Cavia porcellus"}},
        {"ssu_small", "BACTERIA", "bacteria", bacteria},
        {"ovomucoid", "BIRDS", "birds", {"Goose"}},
        {"proteases", "ANIMALS", "animals", {"Cavia porcellus"}},
    };
    for (const auto& [alignment, frame, groups, cupboard] : cases) {
        SCOPED_TRACE(alignment + " with " + frame);
        ASSERT_NO_FATAL_FAILURE(load(demo + "/ZOLT/seq/" + alignment + ".ali",
                                     demo + "/ZOLTEXE/zoltexe/" + frame + ".fra",
                                     demo + "/ZOLT/zolt/data/" + groups + ".nom"));
        EXPECT_EQ(unassigned(), cupboard);
    }
}

TEST_F(Demo, EveryViewOfTheJoinedFrameFitsTheScreenAndEveryLeafHasItsColour)
{
    ASSERT_NO_FATAL_FAILURE(load(demo + "/ZOLT/seq/ssu_small.ali", demo + "/ZOLTEXE/zoltexe/DEMO.fra",
                                 demo + "/ZOLT/zolt/data/demo.nom"));
    Names heads;
    for (int i = 0; i < nb_arbre; i++) {
        const node& head = *p_arbre[static_cast<std::size_t>(i)];
        heads.emplace(group_name(head.no));
        std::multimap<int, std::string> rows;
        collect_view(head, rows);
        // One row after the other, from the top of the view.
        int expected = 0;
        for (const auto& [row, name] : rows)
            EXPECT_EQ(row, expected++) << name;
        EXPECT_LE(rows.size(), 30U);
    }
    EXPECT_EQ(heads, (Names{"Life", "Bacteria", "Metazoa", "Aves", "Phasianidae"}));

    constexpr int none = 200;
    int leaves = 0;
    for (int& colour : color_groupe)
        if (colour != -1) colour = none, leaves++;
    ASSERT_EQ(assign_colours(read_bytes(demo + "/ZOLT/zolt/data/demo.col"), "demo.col"), "");
    for (int g = 0; g < nb_groupe; g++)
        EXPECT_NE(color_groupe[static_cast<std::size_t>(g)], none) << group_name(g);
    EXPECT_EQ(leaves, 61);
}

TEST_F(Demo, TheStarterFilesPutEverySpeciesIntoOneLeaf)
{
    const fs::path home = "/tmp/kqstarter" + std::to_string(getpid());
    fs::create_directories(home / "ZOLT");
    fs::copy(demo + "/ZOLT/seq", home / "ZOLT/seq");
    const std::string start = "KQ_PROGRAM=/bin/true KQ_SHARE='" + source + "/packaging' DISPLAY=:none '" +
                              source + "/packaging/kq-start' " + home.string() + " 2>/dev/null";
    ASSERT_EQ(std::system(start.c_str()), 0);
    for (const auto& entry : fs::directory_iterator(home / "ZOLT/seq")) {
        if (entry.path().extension() != ".ali") continue;
        SCOPED_TRACE(entry.path());
        ASSERT_NO_FATAL_FAILURE(
            load(entry.path(), home / "ZOLTEXE/zoltexe/START.fra", home / "ZOLT/zolt/data/start.nom"));
        EXPECT_EQ(unassigned(), Names{});
    }
    fs::remove_all(home);
}
