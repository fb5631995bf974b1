// model: walking over the columns that are not hidden.
#include "editor/shown_columns.h"

#include "core/columns.h"
#include "core/store.h"

#include <algorithm>

namespace kq {

int shown_between(int first, int last)
{
    if (last <= first) return 0;
    return static_cast<int>(std::count(delcom + first, delcom + last, column_shown));
}

int next_shown(int position)
{
    while (position < nb_nuc_tot && delcom[position] == column_hidden)
        position++;
    return position;
}

int previous_shown(int position)
{
    while (position >= 0 && delcom[position] == column_hidden)
        position--;
    return position;
}

int shown_away(int position, int n)
{
    for (; n > 0 && position < nb_nuc_tot; n--)
        position = next_shown(position + 1);
    for (; n < 0 && position >= 0; n++)
        position = previous_shown(position - 1);
    return position;
}

std::vector<int> shown_from(int position, int count)
{
    std::vector<int> shown;
    if (count <= 0) return shown;
    shown.reserve(static_cast<std::size_t>(count));
    for (position = next_shown(position); position < nb_nuc_tot && count > 0; count--) {
        shown.push_back(position);
        position = next_shown(position + 1);
    }
    return shown;
}

} // namespace kq
