// kernel: the residue classes of characters.
#include "core/residues.h"

namespace kq {

namespace {

constexpr std::array<std::int8_t, 256> make_codes(std::string_view letters, int first, std::int8_t unknown)
{
    std::array<std::int8_t, 256> codes{};
    codes.fill(code_none);
    for (const char c : std::string_view("-*$"))
        codes[static_cast<unsigned char>(c)] = code_gap;
    for (const char c : std::string_view(" ?X"))
        codes[static_cast<unsigned char>(c)] = unknown;
    for (const char c : letters)
        codes[static_cast<unsigned char>(c)] = static_cast<std::int8_t>(first++);
    return codes;
}

constexpr auto make_arn_codes()
{
    auto codes = make_codes("TGKCYSBAWRDMHVN", 1, code_unknown_arn);
    codes['U'] = codes['T'];
    return codes;
}

} // namespace

constexpr std::array<std::int8_t, 256> arn_codes = make_arn_codes();
constexpr std::array<std::int8_t, 256> prot_codes = make_codes("ACDEFGHIKLMNPQRSTVWY", 1, code_unknown_prot);

static_assert(arn_codes['A'] == 8 && arn_codes['C'] == 4 && arn_codes['G'] == 2 && arn_codes['U'] == 1);
static_assert(arn_codes['R'] == (arn_codes['A'] | arn_codes['G']) && arn_codes['N'] == 15);
static_assert(arn_codes['E'] == code_none && arn_codes['a'] == code_none && arn_codes[' '] == 16);
static_assert(prot_codes['Y'] == 20 && prot_codes['B'] == code_none && prot_codes['?'] == 21);

} // namespace kq
