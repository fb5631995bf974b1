// Archiving the selection, and loading, renaming and deleting lists, played as a user plays it.
#include "core/edit.h"
#include "screen/files.h"
#include "support/system_calls.h"
#include "taxonomy/list_chooser.h"
#include "taxonomy/list_saving.h"
#include "taxonomy/tree_screen.h"
#include "tree_fixture.h"

#include <filesystem>

using namespace kq;
using namespace kq::test;

namespace {

namespace fs = std::filesystem;

class Lists : public TreeTest {
public:
    Lists()
    {
        stop_clock(1190000000); // Monday 17 September 2007 at 3 hours 33
        load_five_leaves();
    }

    Played load_keys(std::string_view keys)
    {
        return play(keys, [this] { redraw = choice_file_LIS(); });
    }
    Played save_keys(std::string_view keys)
    {
        return play(keys, [this] { redraw = sauvegarde_file_LIS(); });
    }
    void write_list(const std::string& name, const std::string& species, int count = 1) const
    {
        write_file("zolt/data/" + name, "#Created by A on B\n#T\n" + std::to_string(count) + "\n" + species);
    }
    std::string list(const std::string& name) const { return read_file("zolt/data/" + name + ".lis"); }
    static std::vector<std::string> selected()
    {
        EXPECT_EQ(selection_error(), "");
        chercher_specie_retenue();
        return working_names();
    }
    TreeRedraw redraw{};
};

const std::string head = "#Created by Unknown on Monday 17 September 2007 at 3 hours 33\n#Untitled\n";

} // namespace

// ---- saving -----------------------------------------------------------------------------------------------

TEST_F(Lists, ASelectionIsArchivedByRank)
{
    set_selection(std::vector{5, 0, 2});
    EXPECT_EQ(save_keys("\"mine\" Enter*3").ending, Ending::returned);
    EXPECT_EQ(redraw, TreeRedraw::tree);
    EXPECT_EQ(list("mine"), head + "3\nFox zeta@6\nAnt alpha@1\nCat gamma@3\n");
    EXPECT_EQ(line(3) + line(4), "") << "the box is gone";
    // Up goes back, also to correct; a refused name and the top ring the bell and stay.
    save_keys("Up Enter \"a b\" Enter BackSpace*2 Down \"Me\" Enter Up*2 \"2\" F5 Enter \"!\" Enter \"Mine\" "
              "Enter");
    EXPECT_EQ(list("a2").substr(0, 18), "#Created by Me! on");
    EXPECT_NE(list("a2").find("\n#UntitledMine\n3\n"), std::string::npos);
    EXPECT_EQ(save_keys("\"gone\" Enter \"x\" Enter Escape").ending, Ending::returned);
    EXPECT_FALSE(has_file("zolt/data/gone.lis"));
    play_tree("F2 F7 \"mine\" Enter \"K. O.\" Down \"Three\"");
    EXPECT_SCREEN("list_saving");
    clear_selection();
    open({});
    save_keys("");
    EXPECT_EQ(line_of("You have not yet selected any species"), 8);
}

TEST_F(Lists, AnExistingListIsAskedAboutAndAFailureIsSaid)
{
    set_selection(std::vector{1});
    write_file("zolt/data/old.lis", "precious");
    save_keys("\"old\" Enter*3");
    EXPECT_EQ(line_of("exists already"), 9);
    save_keys("\"old\" Enter*3 Escape \"er\" Enter*3"); // a refusal leads back to the name
    EXPECT_EQ(list("old"), "precious");
    EXPECT_EQ(list("older"), head + "1\nBee beta@2\n");
    EXPECT_EQ(save_keys("\"old\" Enter*3 Enter").ending, Ending::returned);
    EXPECT_EQ(list("old"), list("older"));
    fs::create_directory(path("zolt/data/d.lis"));
    save_keys("\"d\" Enter*3 Enter");
    EXPECT_TRUE(shows("Problem in changing name"));
}

TEST(ListNames, AreNamesOfFilesThatAListingShows)
{
    for (const std::string name : {"a", "many-odd_names.2(b)'&$<>!", "a.lis", "-rf"})
        EXPECT_EQ(list_name_fault(name), "") << name;
    EXPECT_NE(list_name_fault(""), "");
    EXPECT_NE(list_name_fault(".hidden"), "");
    for (const char c : std::string(" \"\\+=[]|*:/;,?\xE0\x15"))
        EXPECT_NE(list_name_fault(std::string("a") + c + "b"), "") << static_cast<int>(c);
}

// ---- loading ----------------------------------------------------------------------------------------------

TEST_F(Lists, RepeatedAndUnknownSpeciesAreSaid)
{
    std::vector<std::string> names;
    std::string twice;
    for (int i = 0; i < 3000; i++) {
        names.push_back("Species number" + std::to_string(i));
        twice += names.back() + "\n" + names.back() + "\n";
    }
    load_names(names);
    read_taxonomy("FIVE", "five");
    write_list("a.lis", twice + "nobody\n", 6000);
    load_keys("Enter*2 Q*4");
    EXPECT_EQ(line_of("This species, Species number4, is present more than one times"), 11);
    load_keys("Enter*2 Q*5");
    EXPECT_TRUE(shows("2995 more species are present more than one times"));
    load_keys("Enter*2 Q*6");
    EXPECT_TRUE(shows("There are 1 species of the list on 6000 which are not in the file"));
    EXPECT_EQ(selected(), names);
    load_rows({{.name = "Cat gamma@99"}, {.name = "Ant alpha@1", .masked = true}, {.name = "Fox zeta@6"}});
    read_taxonomy("FIVE", "five");
    write_list("a.lis", "Fox zeta@6\nCat gamma@3\nAnt alpha@1\n", 3);
    load_keys("Enter*2");
    EXPECT_TRUE(shows("There are 2 species of the list on 3"));
    load_keys("Enter F3 Q");
    EXPECT_EQ(selected(), (std::vector<std::string>{"Fox zeta@6", "Cat gamma@99"})) << "without \"@\"";
}

TEST_F(Lists, TheChooserShowsListsAndWhatTheySay)
{
    write_list("birds.lis", "Ant alpha@1\nnobody\n", 12);
    write_list("a_list_with_a_name_of_more_than_30_characters.lis", "Bee beta@2\n");
    load_keys("");
    EXPECT_SCREEN("list_chooser");
    load_keys("Down Enter");
    EXPECT_SCREEN("list_confirm");
    EXPECT_EQ(load_keys("Down Enter Q Escape Escape").ending, Ending::returned);
    EXPECT_EQ(redraw, TreeRedraw::screen);
    EXPECT_EQ(nb_retenu, 0);
}

TEST_F(Lists, AWrongFileLeavesTheSelection)
{
    const std::vector<std::string> before = {"Fox zeta@6", "Bee beta@2"};
    set_selection(std::vector{5, 1});
    write_file("zolt/data/empty.lis", "");
    load_keys("Enter*2");
    EXPECT_EQ(line_of("There are no species in this list"), 6);
    EXPECT_EQ(load_keys("Enter*2 Q Escape").ending, Ending::returned);
    EXPECT_EQ(selected(), before);

    // Gone between the listing and the use.
    play("Enter", [this] {
        ListChooser chooser;
        fs::remove(path("zolt/data/empty.lis"));
        chooser.run();
    });
    EXPECT_TRUE(shows("Problem in opening file " + path("zolt/data/empty.lis")));
    EXPECT_EQ(selected(), before);

    load_keys("");
    EXPECT_EQ(line_of("There are not yet any lists of species archived"), 6);
    load_keys("Q");
    EXPECT_EQ(redraw, TreeRedraw::tree);
}

// ---- files ------------------------------------------------------------------------------------------------

TEST_F(Lists, AreRenamedToFreeNamesOnlyAndDeleted)
{
    write_list("a.lis", "Ant alpha@1\n");
    write_list("b.lis", "Bee beta@2\n");
    const std::string bytes = list("a"), other = list("b");
    for (const std::string name : {"", "b", "a", "x y", "x.y", "../x", "x*", "$(id)/x"}) {
        const std::string keys = "Enter F2 " + (name.empty() ? "" : "\"" + name + "\" ") + "Enter";
        load_keys(keys);
        EXPECT_TRUE(shows("New name (95 characters):")) << name << " keeps the field open";
        EXPECT_EQ(load_keys(keys + " Escape*2").ending, Ending::returned) << name;
        EXPECT_EQ(list("a") + list("b"), bytes + other);
    }
    load_keys("Down Enter Delete");
    EXPECT_FALSE(has_file("zolt/data/b.lis"));
    EXPECT_TRUE(shows("a.lis") && !shows("b.lis"));
    for (const std::string& name : {std::string("-rf"), std::string("a'&$(id)"), std::string(95, 'n')}) {
        load_keys("Enter F2 \"" + name + "\" Enter");
        EXPECT_EQ(list(name), bytes) << name;
    }
    EXPECT_EQ(load_keys("Enter Delete").ending, Ending::returned) << "none is left";
    EXPECT_EQ(redraw, TreeRedraw::screen);
}

// A failure anywhere is a warning, never the program's end; killed anywhere, a complete list is left.
TEST_F(Lists, SurviveEverySystemCallThatFails)
{
    set_selection(std::vector{4});
    const std::string before = "#Created by A on B\n#T\n1\nAnt alpha@1\n";
    const std::string after = head + "1\nElk epsilon@5\n";
    using State = std::pair<std::string, std::string>; // lists "a" and "n"
    const struct {
        const char* keys;
        void (*run)();
        std::vector<State> states;
    } cases[] = {
        {"\"a\" Enter*3 Enter Q Escape", [] { sauvegarde_file_LIS(); }, {{before, ""}, {after, ""}}},
        {"Enter F2 \"n\" Enter Q Escape*2", [] { choice_file_LIS(); }, {{before, ""}, {"", before}}},
        {"Enter Delete Q Escape", [] { choice_file_LIS(); }, {{before, ""}, {"", ""}}},
    };
    for (const auto& [keys, run, states] : cases) {
        const auto work = [&keys = keys, &run = run, this] {
            return play(keys, run).ending == Ending::program_ended ? 1 : 0;
        };
        for (const auto kind : {Interference::kill, Interference::fail_one}) {
            int calls = 1;
            for (int n = 0; n <= calls; n++) {
                SCOPED_TRACE(std::string(keys) + ", call " + std::to_string(n));
                write_file("zolt/data/a.lis", before);
                fs::remove(path("zolt/data/n.lis"));
                const ChildRun child = run_child({n == 0 ? Interference::none : kind, n}, work);
                if (!child.traced) GTEST_SKIP() << "processes cannot be traced here";
                if (n == 0) calls = kind == Interference::kill ? child.calls : child.file_calls;
                EXPECT_NE(child.status, 1) << "the program ended";
                const State state{list("a"), list("n")};
                EXPECT_NE(std::ranges::find(states, state), states.end()) << state.first << state.second;
                EXPECT_TRUE(n > 0 || state == states.back());
            }
            EXPECT_GT(calls, 2);
        }
    }
}

// ---- many files, small windows ----------------------------------------------------------------------------

TEST_F(Lists, MoreListsThanFitAreReached)
{
    for (int i = 100; i < 300; i++)
        write_list("l" + std::to_string(i) + ".lis", "Ant alpha@1\n");
    const struct {
        const char *keys, *current, *first;
    } cases[] = {
        {"PgDn*2 PgUp", "l110.lis", "l100"},
        {"Right*3", "l190.lis", "l130"},
        {"Right*9", "l299.lis", "l220"},
        {"Right*9 Left*3", "l209.lis", "l190"},
    };
    for (const auto& [keys, current, first] : cases) {
        load_keys(keys);
        EXPECT_EQ(text_in(color::yellow, 3), current) << keys;
        EXPECT_EQ(screen_line(3).substr(2, 4), first) << keys;
    }
    load_keys("Right*9 Enter Delete");
    EXPECT_TRUE(shows("199/199"));
}

TEST_F(Lists, WorkInSmallWindows)
{
    open({.lines = 20, .columns = 20});
    set_selection(std::vector{0, 1});
    write_list("a.lis", "Bee beta@2\nnobody\n");
    load_keys("Enter");
    for (const char* text :
         {"There are 1", "ENTER:Confirm", "ESCAPE:Cancel", "SUPPR:Delete", "F2:Rename", "F3:W"})
        EXPECT_TRUE(shows(text)) << text;
    std::mt19937 random(7);
    for (int round = 0; round < 40; round++) {
        if (round == 20) open({.lines = 21, .columns = 37});
        write_list("a.lis", "Bee beta@2\n");
        const auto forever = [] {
            for (;;) {
                sauvegarde_file_LIS();
                choice_file_LIS();
            }
        };
        const auto keys = random_keys(random, "\"n\"|Enter|Enter|Escape|Up|Down|Right|F2|F3|Delete|PgDn", 60);
        EXPECT_EQ(play(keys, forever).ending, Ending::script_ended) << errors();
        EXPECT_EQ(selection_error(), "");
    }
}
