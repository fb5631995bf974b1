// model: the names of the files that an analysis writes.
#include "analysis/output_names.h"

#include "screen/strings.h"

namespace kq {

namespace {

constexpr std::size_t max_stem = 73; // what follows always fits into 26 bytes
constexpr int last_with_sign = 99;

} // namespace

std::string nomfic;
constinit int nb_matrice = 0;
constinit int nb_sequence = 0;

std::string header_file_name(const std::string& alignment, char kind, int number)
{
    // Never a path: the alignment's name has no "/", and what begins with ".." leaves nothing.
    std::string name = alignment.substr(0, alignment.find_first_of("/.")).substr(0, max_stem);
    if (number <= last_with_sign) name += kind == 'm' ? '-' : '_';
    return name + text_format("%d.nb%c", number, kind);
}

void output_names_reset()
{
    nomfic.clear();
    nb_matrice = nb_sequence = 0;
}

} // namespace kq
