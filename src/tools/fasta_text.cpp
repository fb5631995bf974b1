// kernel: the sequences that outside programs get.
#include "tools/fasta_text.h"

#include <cstddef>
#include <cstring>

namespace kq {

namespace {

constexpr bool is_left_out(char c)
{
    return (c == '*') | (c == '-') | (c == '$') | (c == ' ') | (c == '?');
}

// Copies what is not left out to `into`; returns where it ends there. Rows are long runs of residues and of
// gaps: most blocks are taken or passed over whole.
char* copy_sent(std::string_view text, char* into)
{
    constexpr std::size_t block = 16;
    std::size_t i = 0;
    for (; i + block <= text.size(); i += block) {
        int left_out = 0;
        for (std::size_t k = 0; k < block; k++)
            left_out += is_left_out(text[i + k]);
        if (left_out == static_cast<int>(block)) continue;
        if (left_out == 0) {
            std::memcpy(into, &text[i], block);
            into += block;
            continue;
        }
        // To the next free place, which only a character that is sent takes up.
        for (std::size_t k = 0; k < block; k++) {
            *into = text[i + k];
            into += !is_left_out(text[i + k]);
        }
    }
    for (; i < text.size(); i++) {
        *into = text[i];
        into += !is_left_out(text[i]);
    }
    return into;
}

} // namespace

void append_fasta(std::string& file, int species, std::string_view text, int minimum)
{
    const std::size_t before = file.size();
    ((file += ">lcl|") += std::to_string(species)) += '\n';
    const std::size_t first = file.size();
    file.resize(first + text.size() + 1);
    char* const begin = file.data() + first;
    char* const end = copy_sent(text, begin);
    *end = '\n';
    const auto sent = static_cast<std::size_t>(end - begin);
    file.resize(sent < static_cast<std::size_t>(minimum) ? before : first + sent + 1);
}

} // namespace kq
