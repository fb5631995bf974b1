// format: what the files of an analysis begin with, and the identifiers in them.
#include "analysis/comment_header.h"

#include "analysis/analysed.h"
#include "analysis/output_names.h"
#include "analysis/parameters.h"
#include "core/options.h"
#include "screen/directories.h"
#include "screen/files.h"
#include "screen/strings.h"
#include "taxonomy/frame_files.h"

#include <algorithm>

namespace kq {

namespace {

constexpr std::size_t identifier_field = 80, identifier_padding = 78;

std::string method_line(char kind)
{
    if (kind != 'm')
        return std::string("#Type of parsimony: ").append(opt_parci[static_cast<std::size_t>(type_parci)]);
    std::string line = "#Matrix calculated with ";
    line += opt_mat[static_cast<std::size_t>(type_dist)];
    if (gamma_distance(type_dist, type_seq)) line += text_format(" (alpha=%.2f)", alpha);
    return line;
}

// The identifier as opt_identificateur shows it, padded.
std::string shown_identifier(std::string_view name)
{
    const std::size_t blank = name.find(' ');
    const bool has_words = blank != std::string_view::npos;
    if (opt_identificateur == 1)
        return has_words ? std::string(name.substr(0, 1)).append(". ").append(name.substr(blank + 1))
                         : std::string(name);
    if (opt_identificateur == 2) return padded(name.substr(0, blank), identifier_field);
    std::string text(name);
    text.append(identifier_padding, '_');
    return text.substr(0, identifier_field);
}

void join_first_words(std::string& text)
{
    const std::size_t blank = text.find(' ');
    if (blank == std::string::npos) return;
    if (blank + 1 == text.size() || text[blank + 1] != ' ') text[blank] = '_';
}

} // namespace

std::string comment_header(char kind)
{
    std::string text =
        "#Sequences extracted from file " + file_ALI + " (" + date_fichier(dir_SEQ + file_ALI) + ")\n";
    text += "#File " + nomfic + " automatically created on " + date() + "\n";
    text += method_line(kind) + "\n";
    text += text_format("#%d positions remain on the %d aligned positions\n", nb_nuc_keep, nb_nuc_tot);
    text += "#" + file_COL + "," + file_NOM + "\n";
    return text;
}

bool write_comment(const PutText& file, char kind)
{
    return file(comment_header(kind));
}

std::string identificateur(int i, int length, IdentifierMode mode)
{
    std::string text = shown_identifier(identifier(cor_auto[static_cast<std::size_t>(i)]));
    switch (mode) {
    case identifier_joined:
        std::replace(text.begin(), text.end(), ' ', '_');
        break;
    case identifier_trimmed:
        text.erase(text.find_last_not_of(' ') + 1);
        break;
    case identifier_binomial:
    case identifier_quoted:
        join_first_words(text);
        break;
    }
    if (text.size() > static_cast<std::size_t>(length)) text.resize(static_cast<std::size_t>(length));
    return mode == identifier_quoted ? nexus_quoted(text) : text;
}

int write_identificateur(const PutText& file, int i, int length, IdentifierMode mode)
{
    const std::string text = identificateur(i, length, mode);
    return file(text) ? static_cast<int>(text.size()) : -1;
}

std::string nexus_quoted(std::string_view text)
{
    std::string token = "'";
    for (const char c : text)
        token.append(c == '\'' ? 2 : 1, c);
    return token + "'";
}

} // namespace kq
