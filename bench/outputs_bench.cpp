// Writing a .kel file of all species beside a plain copy of as many bytes, flushed and put in place.
#include "bench/alignment_file.h"
#include "core/ali_reader.h"
#include "core/column_counts.h"
#include "core/column_subset.h"
#include "core/edit.h"
#include "core/ensemble_columns.h"
#include "core/kel_file.h"
#include "core/store.h"
#include "screen/directories.h"
#include "screen/files.h"

#include <sys/stat.h>

using namespace kq;
using namespace kq::bench;

namespace {

// All species in ensembles of at most 10000.
void make_ensembles()
{
    reset_ensembles();
    for (int first = 0; first < nb_spec; first += max_ensemble_species) {
        std::vector<int> list;
        for (int s = first; s < std::min(nb_spec, first + max_ensemble_species); s++)
            list.push_back(s);
        set_members(first == 0 ? 0 : add_ensemble(), list);
    }
}

// Gaps in every second column: nothing to copy in one piece.
void empty_every_second_column()
{
    for (int s = 0; s < nb_spec; s++)
        for (int p = 1; p < nb_nuc_tot; p += 2)
            row_storage(s)[p] = '*';
    counts_forget();
}

void write_ours(const std::string& path)
{
    const ColumnSubset columns(hidden_columns(all_ensembles(), false));
    std::vector<OutputRow> rows;
    for (int e = 0; e < nb_ens; e++)
        for (const int species : members(e))
            rows.push_back({std::string(identifier(species)), {row(species).data(), row(species).size()}});
    NewFile file(path);
    write_kel(file, {"outputs.ali", "", "outputs.kel", "", "", "", type_seq}, rows, columns);
    if (!file.commit()) std::abort();
}

void write_plainly(const std::string& path, const std::string& bytes)
{
    NewFile file(path);
    for (std::size_t done = 0; done < bytes.size(); done += std::size_t{1} << 20)
        file.write(std::string_view(bytes).substr(done, std::size_t{1} << 20));
    if (!file.commit()) std::abort();
}

void measure(Size size, bool alternating)
{
    const std::string path = folder() + "outputs.ali", target = folder() + "outputs.kel";
    write_alignment(path, size);
    if (!load_ali(path, check_ali(path)).empty()) std::abort();
    std::filesystem::remove(path);
    make_ensembles();
    if (alternating) empty_every_second_column();
    write_ours(target);
    struct stat status {};
    stat(target.c_str(), &status);
    const std::string bytes(static_cast<std::size_t>(status.st_size), 'A');
    std::vector<double> columns;
    for (int run = 0; run < 9; run++)
        columns.push_back(seconds([] { hidden_columns(all_ensembles(), false); }));
    const auto [plain, ours] = times_in_turn(
        10, [&] { write_plainly(target + "0", bytes); }, [&] { write_ours(target); });
    std::printf("| %d x %d%s | %.0f | %.3f s | %.3f s | %.2f | %.3f s |\n", size.species, size.columns,
                alternating ? ", every second column hidden" : "", static_cast<double>(bytes.size()) / 1e6,
                best(plain), best(ours), best(ours) / best(plain), best(columns));
    std::fflush(stdout);
    std::filesystem::remove_all(folder());
}

} // namespace

int main()
{
    if (!store_allocate()) return 1;
    store_reset();
    dir_SEQ = folder();
    std::puts("| | MB | plain copy and flush | writing .kel | ratio | of it shown columns |");
    std::puts("| --- | --- | --- | --- | --- | --- |");
    measure(sizes[0], false);
    measure(sizes[0], true);
    measure(sizes[2], false);
}
