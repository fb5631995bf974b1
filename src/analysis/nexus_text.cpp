// format: NEXUS files of the analysed species and the kept positions.
#include "analysis/nexus_text.h"

#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/spelling.h"
#include "screen/files.h"
#include "screen/strings.h"

#include <algorithm>

namespace kq {

namespace {

constexpr int name_length = 79;
constexpr Spelling paup_3_0_spelling = Spelling().write(" ", '?');
constexpr Spelling nexus_spelling = Spelling().write("*", '-').write(" ", '?');

std::string first_lines()
{
    return "#NEXUS\n\n[Version of " + date() + "]\n";
}

std::string dimensions()
{
    return text_format("    dimensions ntax=%d nchar=%d;\n", nb_spec_auto, nb_nuc_keep);
}

enum class RowEnd { padded, as_it_is };

bool put_matrix(IdentifierMode mode, const Spelling& spelling, RowEnd end, const PutText& put)
{
    const auto positions = kept_positions();
    std::string characters;
    for (int i = 0; i < nb_spec_auto; i++) {
        const int species = cor_auto[static_cast<std::size_t>(i)];
        kept_characters(species, positions, characters);
        if (end == RowEnd::as_it_is) {
            const auto beyond = std::ranges::lower_bound(positions, static_cast<int>(row(species).size()));
            characters.resize(static_cast<std::size_t>(beyond - positions.begin()));
        }
        spelling.apply(characters);
        if (write_identificateur(put, i, name_length, mode) < 0 || !put(" " + characters + "\n"))
            return false;
    }
    return put("    ;\nend;\n");
}

bool is_plain(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '_' || c == '-';
}

} // namespace

bool put_paup_3_0(const PutText& put)
{
    const std::string format =
        type_seq == 0 ? "    format symbols=\"A C G T U $\";\n" : "    format gap=- datatype=protein;\n";
    return put(first_lines() + "begin data;\n" + dimensions() + format + "    matrix\n") &&
           put_matrix(identifier_binomial, paup_3_0_spelling, RowEnd::padded, put);
}

bool put_nexus(std::string_view tree, const PutText& put)
{
    const std::string format =
        text_format("    format datatype=%s gap='-';\n", type_seq == 0 ? "RNA" : "protein");
    return put(first_lines() + "Begin data;\n" + dimensions() + format + "    Matrix\n") &&
           put_matrix(identifier_quoted, nexus_spelling, RowEnd::as_it_is, put) &&
           put("set MAXTREES=100 INCREASE=NO AUTOCLOSE=YES;\n"
               "hsearch nreps=5 rseed=557 addseq=random swap=TBR;\n"
               "savetrees file=" +
               nexus_file_name(tree) + " BRLENS=yes REPLACE=yes from=1 to=1;\n");
}

std::string nexus_file_name(std::string_view name)
{
    return std::ranges::all_of(name, is_plain) ? std::string(name) : nexus_quoted(name);
}

} // namespace kq
