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

} // namespace

TEST_F(Selection, RanksFollowTheOrderOfSelecting)
{
    load();
    set_destroyed(9, true);
    for (const int s : {5, 2, 5, 4, 0, 9})
        select_species(s);
    EXPECT_EQ(ranked(), (std::vector{5, 2, 0})) << "once each, none that is masked or destroyed";
    set_selection(std::vector{4, 1, 4, 0});
    EXPECT_EQ(ranked(), (std::vector{4, 1, 0})) << "what an ensemble holds stays, masked or not";
    EXPECT_EQ(selection_error(), "");
}

TEST_F(Selection, StaysSoundThroughRandomSequences)
{
    std::mt19937 random(1105);
    const auto pick = [&random](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    load();
    std::vector<int> model;
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
