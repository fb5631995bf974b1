// format: PHYLIP files of the analysed species.
#include "analysis/phylip_text.h"

#include "analysis/analysed.h"
#include "analysis/parameters.h"
#include "analysis/phylip_names.h"
#include "analysis/spelling.h"
#include "screen/strings.h"

namespace kq {

namespace {

Spelling phylip_spelling(PhylipMode mode)
{
    Spelling spelling;
    if (type_seq == 0) spelling.write_all_but("ACGURYH", '?');
    return spelling.write("*", '-').write(car_inconnu, mode == phylip_plain ? '?' : 'X');
}

} // namespace

std::string phylip_first_line()
{
    return text_format("%4d %d\n", nb_spec_auto, nb_nuc_keep);
}

bool put_phylip_species(PhylipMode mode, const PutText& put)
{
    const Spelling spelling = phylip_spelling(mode);
    const auto positions = kept_positions();
    std::string line, characters;
    for (std::size_t i = 0; i < analysed_species().size(); i++) {
        const int species = cor_auto[i];
        line = mode == phylip_plain ? phylip_name(ident_phylip[i]) : phylip_name_joined(ident_phylip[i]);
        line += ' ';
        if (mode == phylip_with_identifier) line.append(identifier(species)).append("\n");
        kept_characters(species, positions, characters);
        spelling.apply(characters);
        if (!put(line.append(characters).append("\n"))) return false;
    }
    return true;
}

} // namespace kq
