// The demo's frames and groups fit its alignments, and what the launcher writes fits the program's reading.
#include "core/ali_reader.h"
#include "taxonomy/taxonomy_session.h"

#include <cstdlib>
#include <filesystem>

using namespace kq;
using namespace kq::test;
namespace fs = std::filesystem;

namespace {

const std::string source = KQ_SOURCE_DIRECTORY;

using Demo = TaxonomyTest;

} // namespace

TEST_F(Demo, TheStarterFilesPutEverySpeciesIntoOneLeaf)
{
    const Folder folder;
    const fs::path home = folder.path();
    fs::create_directory(home / "ZOLT");
    fs::copy(source + "/demo/ZOLT/seq", home / "ZOLT/seq");
    const std::string start = "KQ_PROGRAM=/bin/true KQ_SHARE='" + source + "/packaging' DISPLAY=:none '" +
                              source + "/packaging/kq-start' " + home.string() + " 2>/dev/null";
    ASSERT_EQ(std::system(start.c_str()), 0);
    for (const auto& entry : fs::directory_iterator(home / "ZOLT/seq")) {
        if (entry.path().extension() != ".ali") continue;
        SCOPED_TRACE(entry.path());
        reset_taxonomy();
        ASSERT_TRUE(store_allocate());
        ASSERT_EQ(load_ali(entry.path(), check_ali(entry.path())), "");
        derive_families();
        ASSERT_EQ(build_frame(parse_fra(folder.read("ZOLTEXE/zoltexe/START.fra")).nodes), "");
        ASSERT_EQ(assign_groups(folder.read("ZOLT/zolt/data/start.nom"), "start.nom"), "");
        for (int s = 0; s < nb_spec; s++)
            EXPECT_NE(no_groupe[static_cast<std::size_t>(s)], cupboard()) << identifier(s);
    }
}
