// What is added to the time that BLAST itself takes: preparing its input and reading its table of hits.
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/store.h"
#include "editor/view.h"
#include "screen/private_directory.h"
#include "screen/process.h"
#include "taxonomy/text_file.h"
#include "tools/blast_commands.h"
#include "tools/blast_table.h"
#include "tools/sent_region.h"

#include <cstdio>
#include <string>

using namespace kq;
using namespace kq::bench;

namespace {

constexpr int runs = 9;

void load(const Evolution& evolution)
{
    load_evolved(evolution);
    pos_deb = 0;
    pos_fin = nb_nuc_tot - 1;
}

std::string_view text_of(int species)
{
    const auto text = row(species);
    return {text.data(), text.size()};
}

std::string fasta()
{
    std::string text;
    text.reserve(static_cast<std::size_t>(nb_spec) * static_cast<std::size_t>(nb_nuc_tot + 16));
    for (int species = 0; species < nb_spec; species++)
        clustalw_seq(species, 0, text);
    return text;
}

// A residue at a time.
std::string plain_fasta()
{
    std::string text;
    for (int species = 0; species < nb_spec; species++) {
        text += ">lcl|" + std::to_string(species) + '\n';
        for (const char c : text_of(species))
            if (std::string_view("?*-$ ").find(c) == std::string_view::npos) text += c;
        text += '\n';
    }
    return text;
}

// The medians of preparing, of BLAST, and of reading, in milliseconds.
void search(const Evolution& evolution, const char* what)
{
    load(evolution);
    const BlastSearch names = blast_search("bench.ali", type_seq != 0);
    std::vector<double> preparing, searching, reading;
    std::size_t hits = 0;
    for (int run = 0; run < runs; run++) {
        const PrivateDirectory directory;
        const RunOptions options{.directory = directory.path()};
        preparing.push_back(seconds([&] {
            std::string query;
            clustalw_seq(0, 0, query);
            directory.write(names.query, query);
            directory.write(names.database, fasta());
        }));
        searching.push_back(seconds([&] {
            run_program(formatdb_command("", names), options);
            run_program(blastall_command("", names), options);
        }));
        reading.push_back(seconds([&] {
            std::string text;
            read_whole_file(directory.path_of(names.output), text);
            hits = read_blast_table(text, nb_spec).hits.size();
        }));
    }
    const double ours = median(preparing) + median(reading), blast = median(searching);
    std::printf("| %d %s x %d | %zu | %.2f | %.2f | %.0f | %.2f %% |\n", evolution.species, what,
                evolution.columns, hits, median(preparing) * 1e3, median(reading) * 1e3, blast * 1e3,
                ours / blast * 100);
}

void prepare(const Evolution& evolution)
{
    load(evolution);
    std::vector<double> writing;
    const auto times = times_in_turn(
        runs, [] { plain_fasta(); }, [] { fasta(); });
    for (int run = 0; run < runs; run++) {
        const PrivateDirectory directory;
        writing.push_back(seconds([&] { directory.write("file", fasta()); }));
    }
    std::printf(
        "\n| | ms a residue at a time | ms | ratio | ms with the file |\n| --- | --- | --- | --- | --- |\n");
    std::printf("| %d x %d | %.1f | %.1f | %.1f | %.1f |\n", evolution.species, evolution.columns,
                median(times.plain) * 1e3, median(times.ours) * 1e3, median(times.plain) / median(times.ours),
                median(writing) * 1e3);
}

// The longest table that blastall is asked for: two segments of each of 10000 subjects.
void read_longest_table()
{
    std::string text;
    for (int line = 0; line < 20000; line++)
        text += "lcl|0\tlcl|" + std::to_string(line / 2) +
                "\t97.47\t1500\t38\t0\t1\t1500\t1\t1500\t3e-152\t 534\n";
    std::vector<double> reading;
    for (int run = 0; run < runs; run++) {
        const PrivateDirectory directory;
        directory.write("file", text);
        reading.push_back(seconds([&] {
            std::string table;
            read_whole_file(directory.path_of("file"), table);
            if (read_blast_table(table, nb_spec).hits.size() != 10000) std::puts("hits are missing");
        }));
    }
    std::printf("\nReading the longest table, of 10000 subjects: %.1f ms\n", median(reading) * 1e3);
}

} // namespace

int main()
{
    std::puts("| | hits | ms preparing | ms reading | ms BLAST | ours |");
    std::puts("| --- | --- | --- | --- | --- | --- |");
    search({.species = 500}, "nucleic");
    search({.alphabet = Alphabet::protein, .species = 500, .columns = 500}, "protein");
    prepare({.species = 20000, .columns = 1500});
    read_longest_table();
}
