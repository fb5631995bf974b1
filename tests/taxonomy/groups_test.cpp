// Species to groups, groups to colours.
#include "taxonomy/group_colours.h"
#include "taxonomy_session.h"

#include <random>

using namespace kq;
using namespace kq::test;

namespace {

class Groups : public TaxonomyTest {};

// The prescribed double loop: every line is compared with every species. 0 = done, else the message's kind.
enum class Plain { done, no_comma, twice };
Plain plain_assignment(const std::string& text, std::vector<int>& group, std::vector<int>& family)
{
    group.assign(static_cast<std::size_t>(nb_spec), -1);
    family.assign(static_cast<std::size_t>(nb_spec), 0);
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t newline = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, newline - start);
        start = newline + 1;
        if (line.ends_with('\r')) line.pop_back();
        const std::size_t comma = line.find(',');
        if (comma == std::string::npos) return Plain::no_comma;
        std::string name = line.substr(0, comma), wanted = line.substr(comma + 1);
        while (!name.empty() && name.back() == ' ')
            name.pop_back();
        while (!wanted.empty() && wanted.front() == ' ')
            wanted.erase(0, 1);
        int g = 0;
        while (g < nb_groupe - 1 && group_name(g) != wanted)
            g++;
        for (std::size_t s = 0; s < static_cast<std::size_t>(nb_spec); s++) {
            const std::string whole(identifier(static_cast<int>(s)));
            std::string compared = whole;
            const std::size_t dash = whole.find('-');
            const bool has_dash = dash != std::string::npos;
            if (nb_family > 0 && has_dash && whole.find(' ', dash) != std::string::npos)
                compared = whole.substr(dash + 1);
            compared = compared.substr(0, compared.find('@'));
            if (compared != name) continue;
            if (group[s] != -1) return Plain::twice;
            group[s] = nb_family > 0 && !has_dash ? nb_groupe - 1 : g;
            if (!has_dash) continue;
            int f = 0;
            while (f < nb_family && !whole.starts_with(name_family[f]))
                f++;
            family[s] = f;
        }
    }
    for (int& g : group)
        if (g == -1) g = nb_groupe - 1;
    return Plain::done;
}

} // namespace

TEST_F(Groups, WithAllFamiliesTakenAStrangerIsCountedAfterThem)
{
    std::vector<std::string> names;
    for (int f = 0; f < max_families; f++)
        names.push_back(std::string(1, static_cast<char>('A' + f % 26)) + std::to_string(f) +
                        "-Homo sapiens");
    names.emplace_back("no fam-Homo sapiens");
    load_names(names);
    ASSERT_EQ(nb_family, max_families);
    ASSERT_EQ(build_from("(A:1:8:-1,B:1:24:-1)R:1:16:-1;"), "");
    ASSERT_EQ(assign_groups("Homo sapiens,A\n", "f.nom"), "");
    EXPECT_EQ(nbtot_groupe[max_families][0], 1);
    select_species(max_families);
    EXPECT_EQ(selection_error(), "");
}

TEST_F(Groups, MistakesAreNamed)
{
    load_names({"Homo sapiens@X1", "Mus musculus"});
    ASSERT_EQ(build_from(five_leaves), "");
    EXPECT_EQ(assign_groups("Mus musculus,A\nHomo sapiens\n", "f.nom"),
              "This line in file f.nom has no comma:\nHomo sapiens");
    EXPECT_EQ(assign_groups("\n", "f.nom"), "This line in file f.nom has no comma:\n");
    EXPECT_EQ(assign_groups("Homo sapiens,A\nHomo sapiens ,A\nbad line\n", "f.nom"),
              "The species Homo sapiens@X1 appears twice in file f.nom");
    EXPECT_EQ(assign_colours("1,A\n2 B\n", "f.col"),
              "There is a line without comma in the file f.col:\n\n2 B\n\n");
    EXPECT_EQ(assign_colours("1,A\n2,B", "f.col"),
              "There is a line without RETURN in the file f.col:\n\n2,B\n\n");
    EXPECT_EQ(assign_groups(std::string("\0,\xff\n\n", 5), "f.nom").substr(0, 9), "This line");
    EXPECT_EQ(assign_groups(std::string(200000, 'x') + "," + std::string(200000, 'y') + "\n", "f.nom"), "");
}

TEST_F(Groups, AgreesWithTheDoubleLoopOnRandomFiles)
{
    std::mt19937 random(20070516);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const std::string prefixes[] = {"", "", "a-", "b-", "c d-"}, names[] = {"X y", "X z", "Y", "Y y", "Z -q"},
                      tails[] = {"", "@1", "@1-2 3"}, commas[] = {",", " , ", ",   ", "  ,"},
                      groups[] = {"A", "B", "Low", "Auto", "a-", "Cupboard", "?"};
    int fatal = 0;
    for (int round = 0; round < 400; round++) {
        reset_taxonomy();
        std::vector<std::string> identifiers;
        for (int i = 1 + pick(12); i > 0; i--)
            identifiers.push_back(prefixes[pick(5)] + names[pick(5)] + tails[pick(3)]);
        load_names(identifiers);
        ASSERT_EQ(build_from(five_leaves), "");
        std::string text;
        for (int i = pick(6); i > 0; i--)
            text += prefixes[pick(3)] + names[pick(5)] + (pick(40) ? commas[pick(4)] : " ") +
                    groups[pick(7)] + (pick(4) ? "\n" : "\r\n");
        if (pick(4) == 0 && text.ends_with('\n')) text.pop_back();

        std::vector<int> group, family;
        const Plain expected = plain_assignment(text, group, family);
        const std::string error = assign_groups(text, "f");
        SCOPED_TRACE("round " + std::to_string(round) + "\n" + text);
        EXPECT_EQ(error.find("no comma") != std::string::npos, expected == Plain::no_comma) << error;
        EXPECT_EQ(error.find("twice") != std::string::npos, expected == Plain::twice) << error;
        fatal += expected != Plain::done;
        if (expected != Plain::done) continue;
        EXPECT_EQ(std::vector<int>(no_groupe.begin(), no_groupe.begin() + nb_spec), group);
        EXPECT_EQ(std::vector<int>(no_family.begin(), no_family.begin() + nb_spec), family);
        EXPECT_EQ(selection_error(), "");
    }
    EXPECT_GT(fatal, 10);
    EXPECT_LT(fatal, 390);
}

TEST_F(Groups, ColoursReachLeavesOnly)
{
    ASSERT_EQ(build_from(five_leaves), "");
    ASSERT_EQ(assign_colours("10,A\n 3,   B\n12,Sub\n5,Cupboard\n7,Nobody\n256,C\n-4,D\n255,E\n", "f"), "");
    EXPECT_EQ(col_text(), "255,E\n7,D\n7,C\n3,B\n10,A\n");
}
