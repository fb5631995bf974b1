// What taxonomy tests need: an alignment of given identifiers, frames from text, everything clean at the
// start.
#pragma once

#include "core/families.h"
#include "core/lifecycle.h"
#include "core/store.h"
#include "support/ali_folder.h"
#include "taxonomy/fra_file.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_build.h"
#include "taxonomy/group_files.h"
#include "taxonomy/selection.h"
#include "taxonomy/tree_walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

// Everything below the screens as at program start.
inline void reset_taxonomy()
{
    alignment_reset();
    selection_reset();
    frame_reset();
    nb_family = 0;
    pcour = nullptr;
    no_arbre = 0;
}

// A nucleic alignment of these rows, ready for groups; the families are derived.
struct Row {
    std::string name, text = "ACGT";
    bool masked = false, is_new = false;
};
inline void load_rows(const std::vector<Row>& rows)
{
    ASSERT_TRUE(store_allocate());
    std::size_t columns = 0;
    for (const Row& row : rows)
        columns = std::max(columns, row.text.size());
    ASSERT_EQ(store_begin(static_cast<int>(rows.size()), static_cast<int>(columns)), "");
    for (int s = 0; const Row& row : rows)
        store_put(s++, row.name, row.text, row.masked, row.is_new);
    derive_families();
}
inline void load_names(const std::vector<std::string>& names)
{
    std::vector<Row> rows;
    for (const std::string& name : names)
        rows.push_back({.name = name});
    load_rows(rows);
}

// Builds the frame of this line; the error of reading or building it.
inline std::string build_from(std::string_view frame_line)
{
    const FraFile file = parse_fra("a version\n" + std::string(frame_line) + "\n");
    return file.error.empty() ? build_frame(file.nodes) : file.error;
}

// Five leaves, drawn from above: A, B, then Sub's C, D in a subtree of its own, and E.
inline constexpr std::string_view five_leaves =
    "((E:371:72:-1,(D:371:24:-1,C:371:8:-1)Sub:371:56:16)Low:200:64:-1,"
    "(B:371:40:-1,A:371:24:-1)High:200:32:-1)Root:3:48:-1;";

inline node* node_named(std::string_view name, int family = 0, node* top = proot)
{
    if (group_name(top->no) == name && top->family == family) return top;
    if (top->leaf()) return nullptr;
    if (node* found = node_named(name, family, top->child2)) return found;
    return node_named(name, family, top->child1);
}

inline std::vector<std::string> working_names()
{
    std::vector<std::string> names;
    for (const int s : working_list())
        names.emplace_back(identifier(s));
    return names;
}

// The selected species by rank.
inline std::vector<int> ranked()
{
    chercher_specie_retenue();
    const auto list = working_list();
    return {list.begin(), list.end()};
}

class TaxonomyTest : public testing::Test {
public:
    TaxonomyTest() { reset_taxonomy(); }
    ~TaxonomyTest() override { reset_taxonomy(); }
};

} // namespace kq::test
