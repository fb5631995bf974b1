// model: moving species to another group: which ones go along, and the list that is on the screen.
#include "taxonomy/group_moves.h"

#include "core/families.h"
#include "core/store.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_files.h"
#include "taxonomy/selection.h"
#include "taxonomy/tree_walk.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>

namespace kq {

namespace {

std::size_t counter_of(int family, int group)
{
    return static_cast<std::size_t>(family) * max_groups + static_cast<std::size_t>(group);
}

void mark_counters_below(const node& top, std::vector<bool>& marked)
{
    marked[counter_of(top.family, top.no)] = true;
    if (top.leaf()) return;
    mark_counters_below(*top.child2, marked);
    mark_counters_below(*top.child1, marked);
}

bool is_current_branch(int group)
{
    return pcour && pcour->no == group && !pcour->leaf();
}

int group_of(int species)
{
    return no_groupe[static_cast<std::size_t>(species)];
}

int family_in_use(int species)
{
    return no_family[static_cast<std::size_t>(species)];
}

// With families a species without "-" belongs to none of them and always stays in "Cupboard".
bool can_have_group(int species)
{
    return nb_family == 0 || identifier(species).find('-') != std::string_view::npos;
}

std::string_view after_dash(int species)
{
    const std::string_view name = identifier(species);
    return name.substr(name.find('-') + 1);
}

} // namespace

// ---- the shown group --------------------------------------------------------------------------------------

ShownGroup::ShownGroup(int group)
    : group_(group)
{
    if (group < 0 || !is_current_branch(group)) return;
    below_.resize(nbtot_groupe.size() * max_groups);
    mark_counters_below(*pcour, below_);
}

bool ShownGroup::holds(int species) const
{
    const int group = group_of(species);
    if (group_ < 0 || group < 0) return false;
    if (below_.empty()) return group == group_;
    return below_[counter_of(nb_family > 0 ? family_in_use(species) : 0, group)];
}

void list_species_of_group(int group)
{
    if (is_current_branch(group)) return collect_species_below(*pcour);
    nb_spec_gro = 0;
    for (int s = 0; s < nb_spec; s++)
        if (group_of(s) == group) cor[static_cast<std::size_t>(nb_spec_gro++)] = s;
}

GroupNames::GroupNames()
{
    for (int g = 0; g < nb_groupe; g++)
        groups_.emplace(group_name(g), g);
}

int GroupNames::find_first(std::span<const std::string> words) const
{
    for (const std::string& word : words)
        if (const auto found = groups_.find(word); found != groups_.end()) return found->second;
    return -1;
}

// ---- moves ------------------------------------------------------------------------------------------------

class GroupMoves::Index {
public:
    void add(std::string_view text, int species) { entries_.emplace_back(text, species); }
    void sort() { std::ranges::sort(entries_); }
    template <class Visit>
    void each_beginning_with(std::string_view key, Visit visit) const
    {
        for (auto e = first_from(key); e != entries_.end() && e->first.starts_with(key); ++e)
            visit(e->second);
    }
    template <class Visit>
    void each_equal(std::string_view key, Visit visit) const
    {
        for (auto e = first_from(key); e != entries_.end() && e->first == key; ++e)
            visit(e->second);
    }

private:
    std::vector<std::pair<std::string_view, int>> entries_;
    std::vector<std::pair<std::string_view, int>>::const_iterator first_from(std::string_view key) const
    {
        return std::ranges::lower_bound(entries_, key, {}, &std::pair<std::string_view, int>::first);
    }
};

GroupMoves::GroupMoves(int group_shown)
    : group_shown_(group_shown)
    , shown_(group_shown)
    , left_(static_cast<std::size_t>(nb_spec), false)
{
    const auto index_of = [](std::span<const int> species, auto text_of) {
        auto index = std::make_unique<Index>();
        for (const int s : species)
            if (can_have_group(s)) index->add(text_of(s), s);
        index->sort();
        return index;
    };
    std::vector<int> all(static_cast<std::size_t>(nb_spec));
    std::iota(all.begin(), all.end(), 0);
    if (group_shown == no_list) {
        same_key_ = index_of(all, [](int s) { return nom_key(identifier(s)); });
        return;
    }
    listed_ = index_of(working_list(), [](int s) { return without_family(identifier(s)); });
    if (nb_family > 0) copies_ = index_of(all, after_dash);
}

GroupMoves::~GroupMoves() = default;

void GroupMoves::reassign(int species, int group)
{
    const auto s = static_cast<std::size_t>(species);
    int family = no_family[s];
    if (nb_family > 0 && no_groupe[s] == cupboard()) {
        family = family_of(identifier(species));
        if (family == nb_family) return;
    }
    done_.push_back({species, no_family[s], no_groupe[s]});
    move_species_to_group(species, family, group);
    if (group_shown_ >= 0 && !shown_.holds(species)) left_[s] = true;
}

void GroupMoves::move(int species, int group)
{
    const std::string_view key = nom_key(identifier(species));
    const auto visit = [this, group](int s) { reassign(s, group); };
    if (same_key_) return same_key_->each_equal(key, visit);
    listed_->each_beginning_with(key, [&](int s) {
        if (!left_[static_cast<std::size_t>(s)]) reassign(s, group);
    });
    if (copies_) copies_->each_beginning_with(key, visit);
}

void GroupMoves::undo()
{
    for (auto before = done_.rbegin(); before != done_.rend(); ++before)
        move_species_to_group(before->species, before->family, before->group);
    done_.clear();
    left_.assign(left_.size(), false);
}

void GroupMoves::update_list()
{
    const auto last = cor.begin() + nb_spec_gro;
    const auto kept =
        std::remove_if(cor.begin(), last, [this](int s) { return left_[static_cast<std::size_t>(s)]; });
    nb_spec_gro = static_cast<int>(kept - cor.begin());
}

} // namespace kq
