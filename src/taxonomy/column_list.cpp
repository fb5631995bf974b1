// model: the cursor on a list that a screen shows in columns.
#include "taxonomy/column_list.h"

#include <algorithm>

namespace kq {

void ColumnList::move(int entries, int count)
{
    current = std::clamp(current + entries, 0, count - 1);
    if (current < dec_obj) dec_obj = std::max(0, dec_obj - rows);
    if (current >= end_of_view()) dec_obj += rows;
}

} // namespace kq
