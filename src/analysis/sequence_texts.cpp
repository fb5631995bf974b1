// format: the analysed species and the kept positions as PIR, MSF and aligned FASTA files, and as the data of
// a bootstrap run.
#include "analysis/sequence_texts.h"

#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/output_names.h"
#include "analysis/parameters.h"
#include "analysis/spelling.h"
#include "screen/strings.h"

#include <algorithm>
#include <string>

namespace kq {

namespace {

constexpr int name_length = 79;
constexpr std::size_t pir_line = 60, msf_block = 50, msf_group = 10;
constexpr Spelling unknown_blanks = Spelling().write(" ", '?');
constexpr Spelling other_packages = Spelling().write("*", '-').write(" ?X", '?');

// The characters of species i of the analysis.
std::string spelled(int i, std::span<const int> positions, const Spelling& spelling)
{
    std::string text;
    kept_characters(cor_auto[static_cast<std::size_t>(i)], positions, text);
    spelling.apply(text);
    return text;
}

} // namespace

bool put_pir(const PutText& put)
{
    const auto positions = kept_positions();
    std::string entry;
    for (int i = 0; i < nb_spec_auto; i++) {
        const std::string text = spelled(i, positions, other_packages);
        entry.assign(">P1;").append(identifier(cor_auto[static_cast<std::size_t>(i)])).append("\n");
        for (std::size_t first = 0; first <= text.size(); first += pir_line)
            entry.append(text, first, pir_line).append("\n");
        if (!put(entry.append("*\n"))) return false;
    }
    return true;
}

// ---- MSF --------------------------------------------------------------------------------------------------

namespace {

std::string msf_first_lines()
{
    return "\n" + nomfic + text_format("  MSF: %d  Type: %c", nb_nuc_keep, type_seq == 0 ? 'N' : 'A') +
           "  January 01, 1776  12:00  Check: 4918 ..\n\n";
}

// One line of a block: a blank after every tenth character but the last of a full line.
std::string in_groups(std::string_view text)
{
    std::string line;
    for (std::size_t first = 0; first < text.size(); first += msf_group) {
        line.append(text.substr(first, msf_group));
        if (first + msf_group <= text.size() && first + msf_group != msf_block) line += ' ';
    }
    return line;
}

} // namespace

bool write_ident_msf(const PhylipName& name, const PutText& file)
{
    return file(phylip_name_joined(name));
}

bool put_msf(const PutText& put)
{
    if (!put(msf_first_lines())) return false;
    for (const PhylipName& name : ident_phylip)
        if (!put("Name:  ") || !write_ident_msf(name, put) ||
            !put(text_format("\tLen:  %d  Check: 0 Weight: 1.00\n", nb_nuc_keep)))
            return false;
    if (!put("\n//\n\n")) return false;

    const auto positions = kept_positions();
    std::span<const int> rest = positions;
    for (;;) {
        const auto block = rest.first(std::min(rest.size(), msf_block));
        for (int i = 0; i < nb_spec_auto; i++) {
            const std::string line = "  " + in_groups(spelled(i, block, other_packages)) + "\n";
            if (!put("    ") || !write_ident_msf(ident_phylip[static_cast<std::size_t>(i)], put) ||
                !put(line))
                return false;
        }
        if (!put("\n")) return false;
        if (block.size() < msf_block) return true;
        rest = rest.subspan(msf_block);
    }
}

// ---- one line for each species ----------------------------------------------------------------------------

bool put_afas(const PutText& put)
{
    if (!put("#M\n#D\n")) return false;
    const auto positions = kept_positions();
    for (int i = 0; i < nb_spec_auto; i++)
        if (!put(">") || write_identificateur(put, i, name_length, identifier_trimmed) < 0 ||
            !put("\n" + spelled(i, positions, Spelling()) + "\n"))
            return false;
    return true;
}

bool put_njb(const PutText& put)
{
    std::string first = text_format("%d %d %d 1000 %d", nb_spec_auto, nb_nuc_keep, type_seq, type_dist);
    if (gamma_distance(type_dist, type_seq)) first += text_format(" %f", alpha);
    if (!write_comment(put, 'm') || !put(first + "\n")) return false;
    const auto positions = kept_positions();
    for (int i = 0; i < nb_spec_auto; i++)
        if (write_identificateur(put, i, name_length, identifier_joined) < 0 ||
            !put(" " + spelled(i, positions, unknown_blanks) + "\n"))
            return false;
    return true;
}

} // namespace kq
