// What is added to the time that ClustalW itself takes: preparing its input, reading and checking its result,
// and writing that into the alignment.
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/store.h"
#include "editor/view.h"
#include "screen/private_directory.h"
#include "screen/process.h"
#include "taxonomy/text_file.h"
#include "tools/clustalw_files.h"
#include "tools/sent_region.h"
#include "tools/species_set.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

constexpr int runs = 9;

std::vector<int> load(const Evolution& evolution)
{
    load_evolved(evolution);
    pos_deb = 0;
    pos_fin = nb_nuc_tot - 1;
    return species_of(SpeciesSet::all_species, 0);
}

// As ClustalW writes it: the rows of the region as they stand.
std::string nexus_text()
{
    constexpr int block = 50;
    std::string text = "#NEXUS\nBEGIN DATA;\ndimensions ntax=" + std::to_string(nb_spec) +
                       " nchar=" + std::to_string(nb_nuc_tot) + ";\nformat missing=?\nmatrix\n";
    for (int column = 0; column < nb_nuc_tot; column += block) {
        for (int species = 0; species < nb_spec; species++) {
            char name[20];
            std::snprintf(name, sizeof name, "lcl|%-8d", species);
            text += name;
            for (int c = column; c < std::min(column + block, nb_nuc_tot); c++)
                text += std::string_view("?*-$ ").find(residue(species, c)) == std::string_view::npos
                            ? residue(species, c)
                            : '-';
            text += '\n';
        }
        text += '\n';
    }
    return text + ";\nend;\n";
}

// The same file read with streams, a line and a character at a time, and the rows compared with the residues.
bool read_plainly(const std::string& text, const SentRegion& sent)
{
    std::istringstream lines(text);
    std::string line;
    std::vector<std::string> rows(static_cast<std::size_t>(nb_spec));
    while (std::getline(lines, line) && !line.starts_with("matrix")) {
    }
    while (std::getline(lines, line) && !line.starts_with(';')) {
        if (line.empty()) continue;
        std::istringstream words(line.substr(4));
        std::size_t species = 0;
        std::string columns;
        words >> species >> columns;
        for (const char c : columns)
            if (c != '-') rows[species] += c;
    }
    for (const int species : sent.species())
        if (rows[static_cast<std::size_t>(species)] != sent.residues(species)) return false;
    return true;
}

struct Own {
    std::vector<double> preparing, reading, writing;
    double of_clustalw() const { return median(preparing) + median(reading) + median(writing); }
};

void realign_once(const std::vector<int>& species, const PrivateDirectory& directory, Own& own,
                  const std::function<void()>& clustalw)
{
    std::optional<SentRegion> sent;
    own.preparing.push_back(seconds([&] {
        sent.emplace(species, 5);
        directory.write("region.fasta", sent->fasta());
    }));
    clustalw();
    NexusAlignment result;
    std::string problem;
    own.reading.push_back(seconds([&] {
        std::string text;
        problem = read_whole_file(directory.path_of("region.nxs"), text);
        if (problem.empty()) problem = read_nexus(text, result).what;
        if (problem.empty()) problem = problem_of(result, *sent).what;
    }));
    if (!problem.empty()) std::puts(problem.c_str());
    own.writing.push_back(seconds([&] { write_into_region(species, *sent, result); }));
}

void with_clustalw(const Evolution& evolution, const char* what)
{
    Own own;
    double clustalw = 0;
    const auto species = load(evolution);
    const PrivateDirectory directory;
    realign_once(species, directory, own, [&] {
        clustalw = seconds([&] {
            run_program(clustalw_arguments("clustalw", "region.fasta"), {.directory = directory.path()});
        });
    });
    std::printf("| %d %s x %d | %.2f | %.2f | %.2f | %.1f | %.3f %% |\n", evolution.species, what,
                evolution.columns, own.preparing[0] * 1e3, own.reading[0] * 1e3, own.writing[0] * 1e3,
                clustalw, own.of_clustalw() / clustalw * 100);
}

void large(const Evolution& evolution)
{
    const auto species = load(evolution);
    const std::string text = nexus_text();
    Own own;
    for (int run = 0; run < runs; run++) {
        const PrivateDirectory directory;
        realign_once(species, directory, own, [&] { directory.write("region.nxs", text); });
    }
    const SentRegion sent(species, 5);
    std::vector<double> plain;
    for (int run = 0; run < runs; run++)
        plain.push_back(seconds([&] {
            if (!read_plainly(text, sent)) std::puts("the plain reader disagrees");
        }));
    std::puts("\n| | ms preparing | ms reading | ms writing | ms reading plainly |\n| --- | --- | --- | --- "
              "| --- |");
    std::printf("| %d x %d | %.1f | %.1f | %.1f | %.0f |\n", evolution.species, evolution.columns,
                median(own.preparing) * 1e3, median(own.reading) * 1e3, median(own.writing) * 1e3,
                median(plain) * 1e3);
}

} // namespace

int main()
{
    std::puts("| | ms preparing | ms reading | ms writing | s ClustalW | ours |");
    std::puts("| --- | --- | --- | --- | --- | --- |");
    with_clustalw({.species = 500, .columns = 100}, "nucleic");
    with_clustalw({.alphabet = Alphabet::protein, .species = 500, .columns = 100}, "protein");
    large({.species = 20000, .columns = 1500});
}
