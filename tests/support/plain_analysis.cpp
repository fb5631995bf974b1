#include "support/plain_analysis.h"

#include "screen/strings.h"
#include "support/plain_joining.h"

#include <algorithm>
#include <string_view>

namespace kq::plain {

namespace {

constexpr std::size_t identifier_width = 80;
constexpr std::string_view arn_names[] = {"All the differences",
                                          "Transitions",
                                          "Transversions",
                                          "Deletions",
                                          "Transitions + Transversions",
                                          "Transitions + Deletions",
                                          "Transversions + Deletions",
                                          "Distance of JUKES and CANTOR",
                                          "Distance of KIMURA (2 parameters)",
                                          "Gamma-JC (Rzhetsky/Nei 1994)",
                                          "Gamma-KIMURA (Rzhetsky/Nei 1994)",
                                          "Gamma-KIMURA (Jin/Nei 1990)",
                                          "Tamura/Nei (1993)"};
constexpr std::string_view prot_names[] = {"Boolean (any difference = 1)",  "Distance of Kimura (1983)",
                                           "No conservative differences",   "Conservative differences",
                                           "All differences, gap excluded", "Only insertions and deletions",
                                           "Rzhetsky and Nei (1994)",       "Ota and Nei (1994)"};

bool one_of(char c, std::string_view characters)
{
    return characters.find(c) != std::string_view::npos;
}

std::string replaced(std::string text, char from, char to)
{
    std::replace(text.begin(), text.end(), from, to);
    return text;
}

std::string up_to_first(const std::string& text, char c)
{
    return text.substr(0, text.find(c));
}

// A NEXUS token in single quotes, which are doubled inside it.
std::string quoted(const std::string& text)
{
    std::string token = "'";
    for (const char c : text)
        token += c == '\'' ? "''" : std::string(1, c);
    return token + "'";
}

bool plain_token(const std::string& text)
{
    return std::ranges::all_of(text, [](char c) { return std::isalnum(c) != 0 || one_of(c, "_.-"); });
}

struct Identifiers {
    int option;

    // What write_identificateur prints.
    std::string written(const std::string& identifier, std::size_t length, int mode) const
    {
        std::string text = (identifier + std::string(78, '_')).substr(0, identifier_width);
        const std::size_t blank = identifier.find(' ');
        if (option == 1)
            text = blank == std::string::npos ? identifier
                                              : identifier.substr(0, 1) + ". " + identifier.substr(blank + 1);
        if (option == 2) {
            text = identifier.substr(0, blank);
            text.resize(identifier_width, ' ');
        }
        if (mode == 1) text = replaced(text, ' ', '_');
        if (mode == 2)
            while (!text.empty() && text.back() == ' ')
                text.pop_back();
        if (mode == 3 || mode == 4) {
            const std::size_t first = text.find(' ');
            if (first != std::string::npos && (first + 1 == text.size() || text[first + 1] != ' '))
                text[first] = '_';
        }
        text = text.substr(0, length);
        return mode == 4 ? quoted(text) : text;
    }
};

std::vector<std::string> phylip_names(const std::vector<const Species*>& analysed)
{
    std::vector<std::string> names;
    for (const Species* species : analysed) {
        names.push_back(species->identifier.substr(0, 10));
        names.back().resize(10, ' ');
    }
    for (std::size_t i = names.size(); i-- > 1;) {
        const auto earlier = std::count(names.begin(), names.begin() + static_cast<long>(i), names[i]);
        if (earlier == 0) continue;
        const std::string number = std::to_string(earlier - 1);
        names[i].replace(10 - number.size(), number.size(), number);
    }
    return names;
}

class Run {
public:
    explicit Run(const Analysis& analysis)
        : of_(analysis)
        , identifiers_{analysis.identifier_option}
    {
        for (const auto& ensemble : of_.ensembles)
            for (const int number : ensemble)
                analysed_.push_back(&of_.species[static_cast<std::size_t>(number)]);
        for (int p = 0; p < of_.columns; p++)
            if (kept(p)) positions_.push_back(p);
        for (const Species* species : analysed_) {
            kept_.emplace_back();
            for (const int p : positions_)
                kept_.back() += character(*species, p);
        }
    }

    Files files()
    {
        if (positions_.empty()) return {};
        const bool prot = of_.type != 0;
        const int distances[] = {0, prot ? 1 : 8, prot ? 7 : 12};
        for (int i = 0; i < of_.level; i++) {
            matrix_and_tree(distances[i]);
            if (i == 1) sequences("mac", [this] { return paup_3_0(); });
        }
        if (of_.level < 3) return files_;
        sequences("pml", [this] { return phylip(2); });
        sequences("puz", [this] { return phylip(1); });
        for (const int distance : distances) {
            type_dist_ = distance;
            sequences("njb", [this] { return bootstrap(); });
        }
        return files_;
    }

    Files nexus(int sequence_files)
    {
        nb_sequence_ = sequence_files;
        sequences("nex", [this] { return nexus_text(); });
        return files_;
    }

    std::string pir() const
    {
        std::string text;
        for (std::size_t i = 0; i < analysed_.size(); i++) {
            text += ">P1;" + analysed_[i]->identifier + "\n";
            for (std::size_t line = 0; line < size() / 60 + 1; line++)
                text += exchanged(i).substr(line * 60, 60) + "\n";
            text += "*\n";
        }
        return text;
    }

    std::string msf(const std::string& name) const
    {
        const auto names = phylip_names(analysed_);
        const int length = static_cast<int>(size());
        std::string text = text_format("\n%s  MSF: %d  Type: %s  January 01, 1776  12:00  Check: 4918 ..\n\n",
                                       name.c_str(), length, of_.type ? "A" : "N");
        for (const std::string& each : names)
            text += text_format("Name:  %s\tLen:  %d  Check: 0 Weight: 1.00\n",
                                replaced(each, ' ', '_').c_str(), length);
        text += "\n//\n\n";
        for (std::size_t block = 0; block < size() / 50 + 1; block++) {
            for (std::size_t i = 0; i < names.size(); i++) {
                text += "    " + replaced(names[i], ' ', '_') + "  ";
                const std::string part = exchanged(i).substr(block * 50, 50);
                for (std::size_t p = 0; p < part.size(); p++) {
                    text += part[p];
                    if (p % 10 == 9 && p != 49) text += ' ';
                }
                text += "\n";
            }
            text += "\n";
        }
        return text;
    }

    std::string aligned_fasta() const
    {
        std::string text = "#M\n#D\n";
        for (std::size_t i = 0; i < analysed_.size(); i++)
            text += ">" + written(i, 79, 2) + "\n" + kept_[i] + "\n";
        return text;
    }

private:
    char character(const Species& species, int position) const
    {
        const auto p = static_cast<std::size_t>(position);
        return p < species.row.size() ? species.row[p] : ' ';
    }

    bool kept(int position) const
    {
        int gaps = 0, all_gaps = 0;
        for (const Species* species : analysed_) {
            gaps += one_of(character(*species, position), " *?$-");
            all_gaps += one_of(character(*species, position), " *$-");
        }
        const int n = static_cast<int>(analysed_.size());
        if (n == 0) return false;
        if (all_gaps == n && !of_.all_columns_shown) return false; // a hidden column
        return gaps * 100 / n <= of_.percent;
    }

    std::size_t size() const { return positions_.size(); }
    std::string written(std::size_t i, std::size_t length, int mode) const
    {
        return identifiers_.written(analysed_[i]->identifier, length, mode);
    }
    bool gamma() const { return of_.type ? type_dist_ >= 6 : type_dist_ >= 9; }
    std::string_view distance_name() const
    {
        const auto type = static_cast<std::size_t>(type_dist_);
        return of_.type ? prot_names[type] : arn_names[type];
    }

    std::string comment(char kind) const
    {
        std::string text = "#Sequences extracted from file " + of_.file + " (" + of_.file_date + ")\n";
        text += "#File " + nomfic_ + " automatically created on " + of_.today + "\n";
        if (kind == 'm') {
            text += "#Matrix calculated with " + std::string(distance_name());
            if (gamma()) text += text_format(" (alpha=%.2f)", of_.shape);
            text += "\n";
        } else {
            text += "#Type of parsimony: \n";
        }
        text += text_format("#%zu positions remain on the %d aligned positions\n", size(), of_.columns);
        return text + "#" + of_.colours + "," + of_.groups + "\n";
    }

    void change_extension(const std::string& extension)
    {
        nomfic_ = up_to_first(nomfic_, '.') + "." + extension;
    }

    // write_file_NB
    void header_file(char kind)
    {
        int& counter = kind == 'm' ? nb_matrice_ : nb_sequence_;
        nomfic_ = up_to_first(of_.file, '.').substr(0, 73);
        if (counter <= 99) nomfic_ += kind == 'm' ? '-' : '_';
        nomfic_ += std::to_string(counter) + ".nb" + kind;
        counter++;
        std::string text = comment(kind);
        text += text_format("#Here is the list of the %zu species used:\n", analysed_.size());
        for (std::size_t i = 0; i < analysed_.size(); i++) {
            text += written(i, 79, 3) + "  ";
            if (i % 2 == 1 || i + 1 == analysed_.size()) text += "\n";
        }
        text += std::string(80, '*') + "\n";
        text += text_format("Here is the list of the %zu selected positions:\n", size());
        for (std::size_t p = 0; p < size(); p++) {
            text += text_format("%5d ", positions_[p] + 1);
            if (p % 13 == 12 || p + 1 == size()) text += "\n";
        }
        files_[nomfic_] = text;
    }

    template <class Text>
    void sequences(const std::string& extension, Text text)
    {
        header_file('s');
        change_extension(extension);
        files_[nomfic_] = text();
    }

    float distance(std::size_t i, std::size_t j) const
    {
        return of_.type ? prot_distance(kept_[i], kept_[j], type_dist_, of_.shape, of_.identity)
                        : arn_distance(kept_[i], kept_[j], type_dist_, of_.shape);
    }

    void matrix_and_tree(int distance_type)
    {
        type_dist_ = distance_type;
        header_file('m');
        change_extension("mat");
        const std::size_t n = analysed_.size();
        std::vector<float> matrix(n * n);
        std::vector<std::string> names;
        std::string text = comment('m');
        for (std::size_t i = 0; i < n; i++) {
            text += written(i, 80, 1);
            for (std::size_t j = 0; j < i; j++) {
                const float d = matrix[i * n + j] = distance(i, j);
                text += text_format("%10.*f",
                                    d > 1000  ? 0
                                    : d > 100 ? 4
                                    : d > 10  ? 5
                                              : 6,
                                    static_cast<double>(d));
            }
            text += "\n";
            names.push_back(analysed_[i]->identifier);
        }
        files_[nomfic_] = text;
        if (n < 3) return;
        change_extension("arb");
        files_[nomfic_] = comment('m') + "#Tree calculated by the Neighbor Joining method\n" +
                          joined_tree(matrix, names).text;
    }

    std::string first_line() const { return text_format("%4zu %zu\n", analysed_.size(), size()); }

    std::string phylip(int mode) const
    {
        const auto names = phylip_names(analysed_);
        std::string text = first_line();
        for (std::size_t i = 0; i < names.size(); i++) {
            text += replaced(names[i], ' ', '_') + " ";
            if (mode == 2) text += analysed_[i]->identifier + "\n";
            for (const char c : kept_[i]) {
                if (one_of(c, of_.type ? " ?X" : " ?XRYMWSKVHDBN"))
                    text += 'X';
                else if (c == '*')
                    text += '-';
                else if (of_.type == 0 && !one_of(c, "ACGURYH"))
                    text += '?';
                else
                    text += c;
            }
            text += "\n";
        }
        return text;
    }

    std::string bootstrap() const
    {
        std::string text = comment('m');
        text += text_format("%zu %zu %d 1000 %d", analysed_.size(), size(), of_.type, type_dist_);
        if (gamma()) text += text_format(" %f", of_.shape);
        text += "\n";
        for (std::size_t i = 0; i < analysed_.size(); i++)
            text += written(i, 79, 1) + " " + replaced(kept_[i], ' ', '?') + "\n";
        return text;
    }

    std::string nexus_start(const std::string& begin) const
    {
        return "#NEXUS\n\n[Version of " + of_.today + "]\n" + begin +
               text_format(" data;\n    dimensions ntax=%zu nchar=%zu;\n", analysed_.size(), size());
    }

    std::string paup_3_0() const
    {
        std::string text = nexus_start("begin");
        text += of_.type ? "    format gap=- datatype=protein;\n" : "    format symbols=\"A C G T U $\";\n";
        text += "    matrix\n";
        for (std::size_t i = 0; i < analysed_.size(); i++)
            text += written(i, 79, 3) + " " + replaced(kept_[i], ' ', '?') + "\n";
        return text + "    ;\nend;\n";
    }

    std::string nexus_text() const
    {
        const std::string tree = up_to_first(nomfic_, '.') + ".tre";
        std::string text = nexus_start("Begin");
        text += text_format("    format datatype=%s gap='-';\n    Matrix\n", of_.type ? "protein" : "RNA");
        for (std::size_t i = 0; i < analysed_.size(); i++)
            text += written(i, 79, 4) + " " + replaced(replaced(up_to_end(i), '*', '-'), ' ', '?') + "\n";
        return text + "    ;\nend;\n" + "set MAXTREES=100 INCREASE=NO AUTOCLOSE=YES;\n" +
               "hsearch nreps=5 rseed=557 addseq=random swap=TBR;\n" +
               "savetrees file=" + (plain_token(tree) ? tree : quoted(tree)) +
               " BRLENS=yes REPLACE=yes from=1 to=1;\n";
    }

    // The characters that the row has: a shorter one does not read as blanks here.
    std::string up_to_end(std::size_t i) const
    {
        const auto end = std::ranges::lower_bound(positions_, static_cast<int>(analysed_[i]->row.size()));
        return kept_[i].substr(0, static_cast<std::size_t>(end - positions_.begin()));
    }

    // The characters as PIR and MSF files have them.
    std::string exchanged(std::size_t i) const
    {
        return replaced(replaced(replaced(kept_[i], '*', '-'), ' ', '?'), 'X', '?');
    }

    const Analysis& of_;
    Identifiers identifiers_;
    std::vector<const Species*> analysed_;
    std::vector<int> positions_;
    std::vector<std::string> kept_; // of each analysed species
    Files files_;
    std::string nomfic_;
    int nb_matrice_ = 0, nb_sequence_ = 0, type_dist_ = 0;
};

} // namespace

Files analysis_files(const Analysis& analysis)
{
    return Run(analysis).files();
}

Files nexus_files(const Analysis& analysis, int sequence_files)
{
    Analysis all = analysis;
    all.percent = 100;
    return Run(all).nexus(sequence_files);
}

std::string pir_file(const Analysis& analysis)
{
    return Run(analysis).pir();
}

std::string msf_file(const Analysis& analysis, const std::string& name)
{
    return Run(analysis).msf(name);
}

std::string aligned_fasta_file(const Analysis& analysis)
{
    return Run(analysis).aligned_fasta();
}

} // namespace kq::plain
