// model: key tables as data: which key runs what, with the note that the key reference prints.
#pragma once

#include <span>
#include <string_view>

namespace kq {

template <class Action>
struct Binding {
    int key;
    Action run;
    std::string_view note; // what it does, for docs/keys.md; never empty
    int last = key;        // of a run of keys, `key` to `last`, that do the same: letters, digits

    constexpr bool holds(int pressed) const { return pressed >= key && pressed <= last; }
};

// A table in documentation order. Whether letters work in both cases is a property of the table; its rows
// then hold the upper-case letter.
template <class Action>
struct KeyTable {
    std::string_view title;
    std::span<const Binding<Action>> rows;
    bool folds_case = false;

    constexpr const Binding<Action>* find(int key) const
    {
        if (folds_case && key >= 'a' && key <= 'z') key += 'A' - 'a';
        for (const auto& row : rows)
            if (row.holds(key)) return &row;
        return nullptr;
    }
};

template <class Action>
constexpr bool unique_keys(std::span<const Binding<Action>> rows)
{
    for (std::size_t i = 0; i < rows.size(); i++)
        for (std::size_t j = i + 1; j < rows.size(); j++)
            if (rows[i].holds(rows[j].key) || rows[j].holds(rows[i].key)) return false;
    return true;
}

} // namespace kq
