// Random edits on the store and on a plain model side by side: rows, counts, consensus and hidden columns
// stay equal after every step. A failure prints the seed and the step.
#include "core/column_counts.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/options.h"
#include "core/store.h"
#include "support/model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <numeric>
#include <random>

using namespace kq;
using kq::test::PlainModel;

namespace {

struct Shape {
    const char* name;
    int type, species, columns, steps;
    bool overlapping; // species may be members of several ensembles
};

class Editing {
public:
    Editing(const Shape& shape, unsigned seed)
        : shape_(shape)
        , random_(seed)
    {
        model_.type = shape.type;
        model_.columns = shape.columns;
        for (int i = 0; i < shape.species; i++)
            model_.rows.push_back(text(shape.columns));
        model_.load();
        opt_consensus = 1;
    }

    std::string step()
    {
        constexpr void (Editing::*actions[])() = {
            &Editing::insert,        &Editing::insert,         &Editing::insert,
            &Editing::remove,        &Editing::remove,         &Editing::remove,
            &Editing::overwrite_row, &Editing::type_residue,   &Editing::type_residue,
            &Editing::grow,          &Editing::remove_residue, &Editing::open_columns,
            &Editing::add_row,       &Editing::new_ensemble,   &Editing::drop_ensemble,
            &Editing::fill_ensemble, &Editing::fill_ensemble,  &Editing::append,
            &Editing::discard,       &Editing::toggle,         &Editing::toggle,
            &Editing::change_option, &Editing::reverse,        &Editing::reverse,
        };
        (this->*actions[below(std::size(actions))])();
        return model_.difference();
    }

    // Computes what a screen would, in the middle of the edits, and compares it.
    std::string look()
    {
        if (below(2)) return "";
        if (const auto error = look_at_hidden(); !error.empty()) return error;
        compute_ligne_consensus();
        if (opt_consensus) {
            const auto texts = opt_consensus == 1 ? model_.ensemble_texts() : model_.all_texts();
            if (plain::consensus_line(texts, model_.columns, model_.type) != ligne_consensus)
                return "the consensus line";
        }
        const int e = any_ensemble();
        compute_consensus(e);
        return collapsed(e) ? look_at_ensemble(e) : "";
    }

private:
    int below(std::size_t n)
    {
        return static_cast<int>(std::uniform_int_distribution<std::size_t>(0, n - 1)(random_));
    }
    int below(int n) { return below(static_cast<std::size_t>(n)); }
    int column() { return below(model_.columns); }
    int any_row() { return below(model_.rows.size()); }
    int any_ensemble() { return below(model_.ensembles.size()); }
    char gap() { return below(2) ? '*' : ' '; }

    // Runs of gaps and blanks between residues, characters without a code among them.
    std::string text(int length)
    {
        const std::string letters =
            model_.type ? "ACDEFGHIKLMNPQRSTVWYAAAACCCCKKK*-$?Xaz" : "AAACCCGGGTTTUNRY*-$?Xac";
        std::string result;
        while (std::ssize(result) < length) {
            const char run = "* -"[below(3)];
            if (below(3) == 0)
                result.append(static_cast<std::size_t>(below(length)), run);
            else
                result += letters[static_cast<std::size_t>(below(letters.size()))];
        }
        result.resize(static_cast<std::size_t>(length));
        return result;
    }

    std::vector<int> rows_of(int e) const { return model_.ensembles[static_cast<std::size_t>(e)].members; }

    // One row, one ensemble or, seldom, none: for the store, and its members in the model.
    std::pair<Rows, std::vector<int>> any_rows()
    {
        if (below(10) == 0) return {Rows::none(), {}};
        const bool one = below(2);
        const int who = one ? any_row() : any_ensemble();
        if (one) return {Rows::one(who), {who}};
        return {Rows::of_ensemble(who), rows_of(who)};
    }
    void insert()
    {
        const auto [where, species] = any_rows();
        const int p = column(), n = 1 + below(below(3) ? 2 : model_.columns + 3);
        const char c = gap();
        EXPECT_TRUE(insert_chars(where, p, n, c));
        model_.insert_chars(species, p, n, c);
    }
    void remove()
    {
        const auto [where, species] = any_rows();
        const int p = column(), n = 1 + below(below(3) ? 2 : model_.columns + 3);
        delete_chars(where, p, n);
        model_.delete_chars(species, p, n);
    }
    void overwrite_row()
    {
        const int species = any_row(), p = column();
        const auto written = text(below(model_.columns - p + 1));
        overwrite(species, p, written);
        model_.overwrite(species, p, written);
    }
    void reverse()
    {
        const int first = column(), last = first + 1 + below(model_.columns - first);
        std::vector<int> chosen;
        for (int species = 0; species < nb_spec; species++)
            if (below(3)) chosen.push_back(species);
        if (below(2)) chosen = rows_of(any_ensemble());
        model_.reverse_columns(chosen, first, last);
        if (!chosen.empty()) chosen.push_back(chosen.front()); // given twice, changed once
        rewrite_columns(chosen, first, last, [](int, std::span<char> text) { std::ranges::reverse(text); });
    }
    void type_residue()
    {
        const int species = any_row(), p = column();
        EXPECT_TRUE(insert_residue(species, p, 'A'));
        model_.insert_residue(species, p, 'A');
    }
    void remove_residue()
    {
        const int species = any_row(), p = column();
        delete_residue(species, p);
        model_.delete_residue(species, p);
    }
    void grow()
    {
        if (model_.columns > 3 * shape_.columns) return;
        const int n = 1 + below(3);
        EXPECT_EQ(grow_alignment(n), Growth::grown);
        model_.grow(n);
    }
    void open_columns()
    {
        if (model_.columns > 3 * shape_.columns) return;
        const auto [kept, species] = any_rows();
        const int p = below(model_.columns + 1), n = 1 + below(below(4) ? 2 : 40);
        EXPECT_EQ(kq::open_columns(kept, p, n), Growth::grown);
        model_.open_columns(species, p, n);
    }
    void add_row()
    {
        if (nb_spec > shape_.species + 5) return;
        const auto written = text(below(model_.columns + 1));
        EXPECT_EQ(add_species("New one@", written), Adding::added);
        model_.rows.push_back(written);
    }
    void new_ensemble()
    {
        if (nb_ens > 4) return;
        EXPECT_EQ(add_ensemble(), std::ssize(model_.ensembles));
        model_.ensembles.push_back({});
    }
    void drop_ensemble()
    {
        if (nb_ens == 1 || below(2)) return;
        const int e = any_ensemble();
        remove_ensemble(e);
        model_.ensembles.erase(model_.ensembles.begin() + e);
    }
    bool taken_elsewhere(int species, int e) const
    {
        for (int other = 0; other < std::ssize(model_.ensembles) && !shape_.overlapping; other++)
            if (other != e && std::ranges::count(rows_of(other), species)) return true;
        return false;
    }
    void fill_ensemble()
    {
        const int e = any_ensemble();
        std::vector<int> order(model_.rows.size()), chosen;
        std::iota(order.begin(), order.end(), 0);
        std::ranges::shuffle(order, random_);
        for (const int species : order)
            if (below(2) && !taken_elsewhere(species, e)) chosen.push_back(species);
        auto given = chosen;
        if (!chosen.empty()) given.push_back(chosen.front()); // a repeat is left out
        set_members(e, given);
        model_.ensembles[static_cast<std::size_t>(e)].members = chosen;
    }
    void append()
    {
        const int e = any_ensemble(), species = any_row();
        if (taken_elsewhere(species, e)) return;
        auto& list = model_.ensembles[static_cast<std::size_t>(e)].members;
        const bool fresh = std::ranges::count(list, species) == 0;
        EXPECT_EQ(append_member(e, species), fresh);
        if (fresh) list.push_back(species);
    }
    void discard()
    {
        const int e = any_ensemble();
        auto& list = model_.ensembles[static_cast<std::size_t>(e)].members;
        if (list.empty()) return;
        const int index = below(list.size());
        remove_member(e, index);
        list.erase(list.begin() + index);
    }
    void toggle()
    {
        const int e = any_ensemble();
        auto& ensemble = model_.ensembles[static_cast<std::size_t>(e)];
        ensemble.collapsed = !ensemble.collapsed;
        set_collapsed(e, ensemble.collapsed);
        compute_consensus(e);
    }
    void change_option() { opt_consensus = below(3); }

    std::string look_at_hidden()
    {
        const bool show_all = below(5) == 0;
        const int position = column();
        const auto expected = show_all ? std::vector<unsigned char>(static_cast<std::size_t>(model_.columns))
                                       : plain::hidden_columns(model_.ensemble_texts(), model_.columns);
        const auto shown = [position](auto flags) { return std::count(flags, flags + position + 1, 0); };
        const auto before = shown(delcom);
        const int gained = recompute_hidden(show_all, position);
        if (!std::equal(expected.begin(), expected.end(), delcom)) return "the hidden columns";
        if (delcom[model_.columns] != 1) return "the sentinel of delcom";
        if (nb_nuc != std::ranges::count(expected, 0)) return "nb_nuc";
        return gained == shown(delcom) - before ? "" : "the columns shown up to the cursor";
    }
    std::string look_at_ensemble(int e)
    {
        const auto i = static_cast<std::size_t>(e);
        const auto expected =
            plain::ensemble_consensus(model_.texts(rows_of(e)), model_.columns, model_.type, caractere);
        if (expected.characters != seq_cons[i]) return "the characters of ensemble " + std::to_string(e);
        if (!std::ranges::equal(expected.levels, std::span(val_seq_cons[i], expected.levels.size())))
            return "the levels of ensemble " + std::to_string(e);
        return val_seq_cons[i][model_.columns] == 255 ? "" : "the end of the levels";
    }

    Shape shape_;
    std::mt19937 random_;
    PlainModel model_;
};

class EditProperty : public testing::TestWithParam<Shape> {};

} // namespace

TEST_P(EditProperty, RandomEditsKeepRowsCountsAndConsensusExact)
{
    for (unsigned seed = 1; seed <= 3; seed++) {
        Editing editing(GetParam(), seed);
        for (int i = 0; i < GetParam().steps; i++) {
            const auto rows = editing.step();
            ASSERT_EQ(rows, "") << "seed " << seed << " step " << i;
            ASSERT_EQ(editing.look(), "") << "seed " << seed << " step " << i;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, EditProperty,
                         testing::Values(Shape{"Nucleic", 0, 9, 30, 800, true},
                                         Shape{"Protein", 1, 9, 30, 800, true},
                                         Shape{"Disjoint", 0, 12, 70, 600, false},
                                         Shape{"OneColumn", 0, 4, 1, 600, true},
                                         Shape{"ManyRows", 1, 300, 150, 40, true}),
                         [](const auto& instance) { return instance.param.name; });
