// kernel: taking over the gaps that an alignment program puts between residues.
#include "tools/gap_pattern.h"

#include <algorithm>
#include <cstddef>

namespace kq {

namespace {

constexpr char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Without a branch and in bytes, so that it is done in wide vectors.
bool same_letters(std::string_view a, std::string_view b)
{
    unsigned char differences = 0;
    for (std::size_t i = 0; i < a.size(); i++)
        differences |= static_cast<unsigned char>(upper(a[i]) ^ upper(b[i]));
    return differences == 0;
}

// The runs of residues of an aligned row: where each begins and how long it is.
template <typename Use>
void for_each_run(std::string_view aligned, Use use)
{
    for (std::size_t first = 0; (first = aligned.find_first_not_of('-', first)) != std::string_view::npos;) {
        const std::size_t end = std::min(aligned.find('-', first), aligned.size());
        use(first, end - first);
        first = end;
    }
}

} // namespace

bool has_residues(std::string_view aligned, std::string_view residues)
{
    std::size_t taken = 0;
    bool equal = true;
    for_each_run(aligned, [&](std::size_t first, std::size_t count) {
        equal = equal && taken + count <= residues.size() &&
                same_letters(aligned.substr(first, count), residues.substr(taken, count));
        taken += count;
    });
    return equal && taken == residues.size();
}

void lay_out(std::span<char> region, std::string_view aligned, std::string_view residues)
{
    std::ranges::fill(region, '*');
    for_each_run(aligned, [&](std::size_t first, std::size_t count) {
        std::ranges::copy(residues.substr(0, count), region.subspan(first).begin());
        residues.remove_prefix(count);
    });
}

} // namespace kq
