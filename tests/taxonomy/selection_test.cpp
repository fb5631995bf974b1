// The selection: ranks without holes, exact counts, whatever is selected and deselected in whatever order.
#include "core/edit.h"
#include "taxonomy/identifiers.h"
#include "taxonomy/species_lists.h"
#include "taxonomy_session.h"

#include <random>

using namespace kq;
using namespace kq::test;

namespace {

class Selection : public TaxonomyTest {
public:
    // Twelve species in two families over the five leaves; some masked, some new.
    void load()
    {
        std::vector<Row> rows;
        for (int i = 0; i < 12; i++)
            rows.push_back(
                {.name = (i % 2 ? "odd-" : "even-") + std::string(1, static_cast<char>('a' + i)) + " b",
                 .masked = i == 4,
                 .is_new = i % 3 == 0});
        load_rows(rows);
        ASSERT_EQ(build_from(five_leaves), "");
        ASSERT_EQ(assign_groups("a b,A\nb b,A\nc b,B\nd b,E\ne b,C\nf b,D\ng b,A\nh b,E\ni b,C\n", "f"), "");
        proot->sub = -1;
    }
};

std::vector<int> ranked()
{
    chercher_specie_retenue();
    const auto list = working_list();
    return {list.begin(), list.end()};
}

} // namespace

TEST_F(Selection, RanksFollowTheOrderOfSelecting)
{
    load();
    for (const int s : {5, 2, 5, 4, 0, 7})
        select_species(s);
    EXPECT_EQ(ranked(), (std::vector{5, 2, 0, 7})) << "once each, and no masked species";
    set_destroyed(9, true);
    select_species(9);
    deselect_species(2);
    deselect_species(2);
    EXPECT_EQ(ranked(), (std::vector{5, 0, 7}));
    set_selection(std::vector{4, 1, 4, 0});
    EXPECT_EQ(ranked(), (std::vector{4, 1, 0})) << "what an ensemble holds stays, masked or not";
    EXPECT_EQ(selection_error(), "");
}

TEST_F(Selection, TheWorkingListGoesNodeByNodeUpperFirst)
{
    load();
    collect_species_below(*node_named("odd-", 1));
    EXPECT_EQ(working_names(), (std::vector<std::string>{"odd-b b", "odd-f b", "odd-d b", "odd-h b"}));
    collect_species_below(*node_named("even-", 0));
    EXPECT_EQ(working_names(),
              (std::vector<std::string>{"even-a b", "even-g b", "even-c b", "even-e b", "even-i b"}));
    cherche_specie_groupe(*node_named("Cupboard"));
    EXPECT_EQ(working_names().size(), 8U) << "appended";
    collect_species_below(*proot);
    EXPECT_EQ(nb_spec_gro, 12);
}

TEST_F(Selection, ModesTakeFreeOrNewSpeciesOnly)
{
    load();
    drap_select.fill(-1);
    drap_select[0] = drap_select[2] = 0;
    collect_species_below(*node_named("even-", 0));
    retenir_all_specie(retain_new);
    EXPECT_EQ(ranked(), (std::vector{0, 6}));
    collect_species_below(*node_named("even-", 0));
    retenir_all_specie(retain_free);
    EXPECT_EQ(ranked(), (std::vector{0, 6, 8})) << "4 is masked, 2 belongs elsewhere";
    collect_species_below(*node_named("even-", 0));
    retenir_all_specie(retain_all);
    EXPECT_EQ(ranked(), (std::vector{0, 6, 8, 2}));
    annule_groupe(*node_named("A", 0));
    EXPECT_EQ(ranked(), (std::vector{8, 2}));
    annule_all();
    EXPECT_EQ(nb_retenu, 0);
    EXPECT_EQ(selection_error(), "");
}

TEST_F(Selection, StaysSoundThroughRandomSequences)
{
    std::mt19937 random(1105);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    load();
    std::vector<int> model; // selected species by rank
    const auto drop = [&model](int s) { std::erase(model, s); };
    for (int round = 0; round < 3000; round++) {
        const int s = pick(nb_spec);
        switch (pick(6)) {
        case 0:
        case 1:
            select_species(s);
            if (selectable(s) && std::ranges::find(model, s) == model.end()) model.push_back(s);
            break;
        case 2:
            deselect_species(s);
            drop(s);
            break;
        case 3: {
            const std::vector list{s, pick(nb_spec), s, pick(nb_spec)};
            deselect_many(list);
            std::ranges::for_each(list, drop);
            break;
        }
        case 4:
            move_species_to_group(s, pick(nb_family), pick(nb_groupe));
            break;
        default: {
            node* const top = p_arbre[static_cast<std::size_t>(pick(nb_arbre))];
            collect_species_below(*top);
            const auto below = working_list();
            for (const int one : std::vector(below.begin(), below.end()))
                drop(one);
            annule_groupe(*top);
        }
        }
        ASSERT_EQ(selection_error(), "") << "round " << round;
        ASSERT_EQ(ranked(), model) << "round " << round;
    }
}

TEST_F(Selection, IdentifiersHaveThreeForms)
{
    const struct {
        const char* identifier;
        const char* forms[3];
    } cases[] = {
        {"Homo sapiens@X1", {"Homo sapiens@X1", "H. sapiens@X1", "Homo@X1"}},
        {"Homo sapiens", {"Homo sapiens", "H. sapiens", "Homo"}},
        {"Homo@X1", {"Homo@X1", "Homo@X1", "Homo@X1"}},
        {"Homo@X1 b", {"Homo@X1 b", "H. b", "Homo@X1 b"}},
        {"", {"", "", ""}},
    };
    for (const auto& [name, forms] : cases)
        for (int form = 0; form < 3; form++) {
            std::string expected = forms[form];
            expected.resize(std::max<std::size_t>(expected.size(), 28), ' ');
            EXPECT_EQ(display_name(name, form), expected) << name << " in form " << form;
        }
}
