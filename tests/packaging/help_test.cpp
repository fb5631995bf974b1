// The help pages name exactly the keys that their screens have, and fit the boxes they are shown in.
#include "core/chooser.h"
#include "editor/editor.h"
#include "editor/est_mode.h"
#include "editor/region.h"
#include "raster/key_names.h"
#include "taxonomy/reorder_screen.h"
#include "taxonomy/species_screen.h"
#include "taxonomy/tree_screen.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace kq {
namespace {

using Names = std::set<std::string>;

std::vector<std::string> lines_of(const std::string& page)
{
    std::ifstream file(KQ_SOURCE_DIRECTORY "/help/" + page + ".HLP");
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

// The keys that a page describes: what stands between the one blank at a line's start and two blanks.
Names keys_of(const std::vector<std::string>& lines)
{
    Names keys;
    for (const std::string& line : lines) {
        if (line.size() < 2 || line[0] != ' ' || line[1] == ' ') continue;
        std::string rest = line.substr(1, line.find("  ", 1) - 1);
        if (rest == "0 to 9") rest = "0, 1, 2, 3, 4, 5, 6, 7, 8, 9";
        for (std::size_t comma; (comma = rest.find(", ")) != std::string::npos; rest.erase(0, comma + 2))
            keys.insert(rest.substr(0, comma));
        keys.insert(rest);
    }
    return keys;
}

// A key as help pages write it: "S-F10" is "Shift-F10".
std::string written(int code)
{
    static const std::pair<std::string, std::string> prefixes[] = {
        {"S-", "Shift-"}, {"C-", "Ctrl-"}, {"A-", "Alt-"}};
    static const std::pair<std::string, std::string> words[] = {
        {"Enter", "ENTER"},         {"Escape", "ESCAPE"},    {"Delete", "DEL"},
        {"BackSpace", "Backspace"}, {"KPMinus", "keypad -"}, {"KPPlus", "keypad +"}};
    std::string name = key_name(code), prefix;
    for (const auto& [from, to] : prefixes)
        if (name.size() > 2 && name.starts_with(from)) {
            prefix = to;
            name.erase(0, 2);
        }
    for (const auto& [from, to] : words)
        if (name == from) name = to;
    return prefix + name;
}

template <class Action>
Names keys_of(const KeyTable<Action>& table)
{
    Names keys;
    for (const auto& row : table.rows)
        for (int key = row.key; key <= row.last; key++)
            keys.insert(written(key));
    return keys;
}

// The lines of a page from each heading that begins so to the next heading.
std::vector<std::string> lines_under(const std::string& page, std::string_view beginning)
{
    std::vector<std::string> found;
    bool inside = false;
    for (const std::string& line : lines_of(page)) {
        const auto title = line.substr(0, line.find(" ("));
        const bool is_heading = !title.empty() && title[0] != ' ' &&
                                title.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ ") == std::string::npos;
        if (is_heading) inside = line.starts_with(beginning);
        if (inside) found.push_back(line);
    }
    return found;
}

// `width` and `height`: what a page of the box holds on a screen of 34 lines and 80 columns.
void expect_fitting(const std::string& page, std::size_t width, std::size_t height)
{
    SCOPED_TRACE(page);
    const std::vector<std::string> lines = lines_of(page);
    ASSERT_FALSE(lines.empty());
    for (std::size_t i = 0; i < lines.size(); i++) {
        EXPECT_LE(lines[i].size(), width) << lines[i];
        // A page of a longer text begins with its title.
        if (i % height == 0) {
            EXPECT_TRUE(!lines[i].empty() && lines[i][0] != ' ') << "line " << i + 1;
        }
    }
}

template <class Action>
void expect_page(const std::string& page, const KeyTable<Action>& table, std::size_t width,
                 std::size_t height)
{
    expect_fitting(page, width, height);
    EXPECT_EQ(keys_of(lines_of(page)), keys_of(table)) << page;
}

TEST(HelpPages, NameTheKeysOfTheirScreensAndFitTheirBoxes)
{
    expect_page("KQ0", chooser_keys, 72, 18);
    expect_page("KQ1", species_keys, 72, 22);
    expect_page("KQ2", reorder_keys, 72, 26);
    expect_page("KQ3", tree_keys, 76, 29);
    expect_fitting("KQ4", 76, 28);
    EXPECT_EQ(keys_of(lines_under("KQ4", "EDITING")), keys_of(editor_keys));
    EXPECT_EQ(keys_of(lines_under("KQ4", "EST MODE")), keys_of(est_keys.own));
    EXPECT_EQ(keys_of(lines_under("KQ4", "MARKING A REGION")), keys_of(region_keys.own));
}

} // namespace
} // namespace kq
