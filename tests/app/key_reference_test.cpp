// The key tables, the key reference and the help pages say the same.
#include "app/key_reference.h"
#include "core/chooser.h"
#include "editor/editor.h"
#include "editor/est_mode.h"
#include "editor/modif_sequence.h"
#include "editor/region.h"
#include "raster/key_names.h"
#include "support/ali_folder.h"
#include "taxonomy/group_list.h"
#include "taxonomy/list_chooser.h"
#include "taxonomy/reorder_screen.h"
#include "taxonomy/species_screen.h"
#include "taxonomy/tree_colours.h"
#include "taxonomy/tree_screen.h"

#include <gtest/gtest.h>

#include <set>

namespace {

template <class Action>
void check_table(const kq::KeyTable<Action>& table)
{
    EXPECT_TRUE(kq::unique_keys(table.rows)) << table.title << " binds a key twice";
    for (const auto& row : table.rows) {
        const bool lower = row.key >= 'a' && row.key <= 'z';
        EXPECT_FALSE(row.note.empty() || kq::key_name(row.key).empty() || (table.folds_case && lower))
            << table.title << ", key " << row.key;
    }
}

// Shared keys stand once, and do what they do in the editor.
void check_mode(const kq::ModeKeys& mode)
{
    check_table(mode.own);
    EXPECT_EQ(std::set<int>(mode.shared.begin(), mode.shared.end()).size(), mode.shared.size());
    for (const int key : mode.shared)
        EXPECT_EQ(mode.find(key), kq::editor_keys.find(key)) << mode.own.title << ", key " << key;
}

} // namespace

TEST(KeyTables, AreWholeAndUnambiguous)
{
    check_table(kq::chooser_keys);
    check_table(kq::tree_keys);
    check_table(kq::tree_colour_keys);
    check_table(kq::species_keys);
    check_table(kq::reorder_keys);
    check_table(kq::group_choice_keys);
    check_table(kq::group_colour_keys);
    check_table(kq::list_keys);
    check_table(kq::editor_keys);
    check_table(kq::primary_keys);
    check_mode(kq::est_keys);
    check_mode(kq::region_keys);
}

TEST(KeyTables, ArePrintedInTheReference)
{
    EXPECT_EQ(kq::test::read_bytes(KQ_SOURCE_DIRECTORY "/docs/keys.md"), kq::key_reference())
        << "print it again: kq-keys > docs/keys.md";
}
