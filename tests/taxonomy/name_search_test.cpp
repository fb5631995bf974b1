// Finding species by the beginning or a part of their name.
#include "core/edit.h"
#include "taxonomy/name_search.h"
#include "tree_fixture.h"

using namespace kq;
using namespace kq::test;

namespace {

using NameSearch = TreeTest;

} // namespace

TEST_F(NameSearch, ComparesBytes)
{
    load_names({"Ant alpha@1", "ant alpha@2", "Bantam", "Ant", "\xc3\x89lan", "Antler", "9 lives"});
    set_masked(3, true);
    set_destroyed(5, true);
    using Names = std::vector<std::string>;
    const Names usable = {"Ant alpha@1", "ant alpha@2", "Bantam", "\xc3\x89lan", "9 lives"};
    const struct {
        const char* text;
        Names beginning, part;
    } cases[] = {
        {"ant", {"Ant alpha@1"}, {"ant alpha@2", "Bantam"}},
        {"ANT", {}, {}},
        {"ant alpha@1", {"Ant alpha@1"}, {}},
        {"alpha@", {}, {"Ant alpha@1", "ant alpha@2"}},
        {"\xc3", {"\xc3\x89lan"}, {"\xc3\x89lan"}},
        {"", usable, usable},
    };
    for (const auto& [text, beginning, part] : cases) {
        part_spec = text;
        select_begin_part_ident(search_part);
        EXPECT_EQ(working_names(), part) << text;
        EXPECT_EQ(part_spec, text);
        select_begin_part_ident(search_beginning);
        EXPECT_EQ(working_names(), beginning) << text;
    }
}

TEST_F(NameSearch, ShowsWhatItFindsOnTheSpeciesScreen)
{
    load_five_leaves();
    play_tree("F10 Tab \"ph\"");
    EXPECT_SCREEN("name_search");
    play_tree("F9 \"fox\" Enter");
    EXPECT_TRUE(shows("List of species with specific characters") && shows("Fox zeta@6") && !shows("Bee"));
    for (const char* key : {"F9", "F10"}) {
        play_tree(std::string(key) + " \"zz\" Enter");
        EXPECT_EQ(line_of("There are no species beginning with these characters"), 5) << key;
    }
    set_members(0, {});
    EXPECT_EQ(play_tree("F9 \"fox\" Enter*2 Escape F10 \"zz\" Enter Q BackSpace*2 \"ph\" Enter Down*9 Enter "
                        "Escape F9 Escape F3 Escape")
                  .ending,
              Ending::returned);
    EXPECT_EQ(ensemble_names(), (std::vector<std::string>{"Fox zeta@6", "Ant alpha@1"}))
        << "one letter's case, and asked again";
    play_tree("F10 \"" + std::string(90, 'x') + "yz\"");
    EXPECT_EQ(part_spec, std::string(longest_search, 'x'));
}
