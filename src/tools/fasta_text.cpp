// kernel: the sequences that outside programs get.
#include "tools/fasta_text.h"

#include "tools/eight_characters.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kq {

namespace {

constexpr bool is_sent(char c)
{
    return c != '*' && c != '-' && c != '$' && c != ' ' && c != '?';
}

// By character code: 1 for those that are sent, 0 for the others.
constexpr auto sent_codes = [] {
    std::array<unsigned char, 256> codes{};
    for (std::size_t code = 0; code < codes.size(); code++)
        codes[code] = is_sent(static_cast<char>(code));
    return codes;
}();

// Copies what is sent to `into`; returns where it ends there. Rows are long runs of residues and of gaps:
// most words are taken or passed over whole.
char* copy_sent(std::string_view text, char* into)
{
    const auto copy_each = [&into](std::string_view some) {
        for (const char c : some) { // to the next free place, which only a character that is sent takes up
            *into = c;
            into += sent_codes[static_cast<unsigned char>(c)];
        }
    };
    constexpr std::size_t word = sizeof(std::uint64_t);
    for (; text.size() >= word; text.remove_prefix(word)) {
        const std::uint64_t characters = eight_at(text.data());
        if (may_be_letters(characters)) {
            std::memcpy(into, &characters, word);
            into += word;
        } else if (characters != eight_times('*') && characters != eight_times('-')) {
            copy_each(text.substr(0, word));
        }
    }
    copy_each(text);
    return into;
}

} // namespace

int append_fasta(std::string& file, int species, std::string_view text, int minimum)
{
    const std::size_t before = file.size();
    ((file += ">lcl|") += std::to_string(species)) += '\n';
    const std::size_t first = file.size();
    file.resize(first + text.size() + 1);
    char* const begin = file.data() + first;
    char* const end = copy_sent(text, begin);
    *end = '\n';
    const int sent = static_cast<int>(end - begin);
    const bool enough = sent > 0 && sent >= minimum;
    file.resize(enough ? first + static_cast<std::size_t>(sent) + 1 : before);
    return enough ? sent : 0;
}

} // namespace kq
