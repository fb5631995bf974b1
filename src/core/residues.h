// kernel: the residue classes of characters.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kq {

inline constexpr int code_gap = 0;
inline constexpr int code_unknown_arn = 16, code_unknown_prot = 21; // blank, "?" and "X"
inline constexpr int codes_arn = 17, codes_prot = 22;               // number of codes
inline constexpr int code_none = -1;                                // a character without a code

// 4-bit IUPAC sets: T/U 1, G 2, C 4, A 8, ambiguity codes their unions; gaps "$", "*", "-" 0; blank, "?",
// "X" 16.
extern const std::array<std::int8_t, 256> arn_codes;
// The twenty amino acids 1..20 in the alphabetical order of their letters; gaps 0; blank, "?", "X" 21.
extern const std::array<std::int8_t, 256> prot_codes;

inline int code_arn(char c)
{
    return arn_codes[static_cast<unsigned char>(c)];
}
inline int code_prot(char c)
{
    return prot_codes[static_cast<unsigned char>(c)];
}
// By molecule type: 0 nucleic acid, 1 protein.
inline const std::array<std::int8_t, 256>& residue_codes(int type)
{
    return type ? prot_codes : arn_codes;
}
inline int unknown_code(int type)
{
    return type ? code_unknown_prot : code_unknown_arn;
}
inline int number_of_codes(int type)
{
    return type ? codes_prot : codes_arn;
}

// The characters accepted in sequence lines, after folding to upper case.
inline constexpr std::string_view alphabet_arn = "ACGUTN*-$ RYMWSKVHDBX?";
inline constexpr std::string_view alphabet_prot = "ACDEFGHIKLMNPQRSTVWY*-$ X?";
// A first sequence that holds one of these makes the alignment a protein alignment.
inline constexpr std::string_view protein_letters = "EFILPQ";

// The two characters that the editor inserts and deletes.
inline constexpr bool is_editable_gap(char c)
{
    return c == '*' || c == ' ';
}
// What makes a column eligible for hiding.
inline constexpr bool is_gap_class(char c)
{
    return c == '*' || c == ' ' || c == '$' || c == '-';
}

} // namespace kq
