// The demo's frames and groups fit its alignments, and what the launcher writes fits the program's reading.
#include "core/ali_reader.h"
#include "taxonomy/taxonomy_session.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
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

class Demo : public testing::Test {
protected:
    ~Demo() override { reset_taxonomy(); }
};

} // namespace

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
