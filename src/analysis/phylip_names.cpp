// model: the names of the analysed species in PHYLIP files.
#include "analysis/phylip_names.h"

#include "analysis/analysed.h"
#include "screen/strings.h"

#include <algorithm>
#include <unordered_map>

namespace kq {

constinit std::vector<PhylipName> ident_phylip;

namespace {

void write_over_end(std::string& name, int number)
{
    const std::string digits = std::to_string(number);
    name.replace(name.size() - digits.size(), digits.size(), digits);
}

} // namespace

void creer_ident_phylip()
{
    ident_phylip.assign(static_cast<std::size_t>(nb_spec_auto), PhylipName{});
    std::unordered_map<std::string, int> seen; // how often a name has come up
    for (std::size_t i = 0; i < ident_phylip.size(); i++) {
        std::string name = padded(identifier(cor_auto[i]), phylip_name_length);
        const int earlier = seen[name]++;
        if (earlier >= 1) write_over_end(name, earlier - 1);
        copy_field(ident_phylip[i], name);
    }
}

std::string_view phylip_name(const PhylipName& name)
{
    return {name.data(), phylip_name_length};
}

std::string phylip_name_joined(const PhylipName& name)
{
    std::string text(phylip_name(name));
    std::replace(text.begin(), text.end(), ' ', '_');
    return text;
}

} // namespace kq
