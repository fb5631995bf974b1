// model: the display options.
#include "core/options.h"

#include "core/residues.h"

#include <string_view>

namespace kq {

constinit int opt_tiret = 0;
constinit int opt_nogap = 0;
constinit int opt_couleur = 0;
constinit int opt_identificateur = 0;
constinit int opt_consensus = 0;
constinit int opt_evalue = 0;
constinit std::array<int, 30> color_char_arn{};
constinit std::array<int, 30> color_char_prot{};

void options_reset()
{
    opt_tiret = opt_nogap = opt_couleur = opt_identificateur = opt_consensus = opt_evalue = 0;

    color_char_arn.fill(5);
    color_char_arn[code_gap] = 7;
    color_char_arn[1] = 4; // T, U
    color_char_arn[2] = 2; // G
    color_char_arn[4] = 3; // C
    color_char_arn[8] = 1; // A

    color_char_prot.fill(0);
    color_char_prot[code_gap] = 7;
    constexpr std::array<std::string_view, 8> letters_of_class = {"",   "AFILV",  "HKR", "PW",
                                                                  "DE", "CGMSTY", "NQ",  ""};
    for (int k = 0; k < 8; k++)
        for (const char c : letters_of_class[static_cast<std::size_t>(k)])
            color_char_prot[static_cast<std::size_t>(code_prot(c))] = k;
}

} // namespace kq
