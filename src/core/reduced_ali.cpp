// format: writes .ali files of some species and the columns they show.
#include "core/reduced_ali.h"

#include "screen/files.h"

#include <string>

namespace kq {

void write_reduced_ali(NewFile& file, std::string_view molecule_line, std::string_view domain_line,
                       std::span<const OutputRow> rows, const ColumnSubset& columns)
{
    std::string text;
    text.append("#").append(molecule_line).append("\n#").append(domain_line).append("\n");
    file.write(text);
    for (const OutputRow& row : rows) {
        text.assign(">").append(row.name).append("\n");
        columns.append(text, row.text);
        text += '\n';
        file.write(text);
    }
}

} // namespace kq
