// format: writes .kel files.
#include "core/kel_file.h"

#include "screen/files.h"
#include "screen/strings.h"

namespace kq {

void write_kel(NewFile& file, const KelHeader& header, std::span<const OutputRow> rows,
               const ColumnSubset& columns)
{
    file.write("#Sequences extracted from " + header.alignment + " of the " + header.alignment_date + "\n");
    file.write("#File " + header.file + " created on " + header.date + "\n");
    file.write("#" + header.colors + "," + header.groups + "\n");
    file.write(text_format("%d %zu %d\n", header.type, rows.size(), columns.count()));
    for (const OutputRow& row : rows)
        file.write(row.name + "\n");
    std::string line;
    for (const auto [first, last] : columns.runs())
        for (int p = first; p < last; p++)
            line += std::to_string(p + 1) + ' ';
    line += '\n';
    file.write(line);
    for (const OutputRow& row : rows) {
        line.clear();
        columns.append(line, row.text);
        line += ":\n";
        file.write(line);
    }
}

} // namespace kq
