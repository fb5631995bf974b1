// model: the loaded alignment.
#include "core/store.h"

#include "screen/strings.h"

#include <sys/mman.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kq {

constinit char* seq = nullptr;
constinit char* ident = nullptr;
constinit int nb_spec = 0;
constinit int nb_nuc_tot = 0;
constinit int lenseq_tot = 0;
constinit int type_seq = 0;
constinit char molecule[header_size] = {};
constinit char domaine[header_size] = {};
constinit char caractere[25] = {};
std::string file_ALI;
constinit unsigned char modif = 255;

constinit std::array<int, max_species> mask{};
constinit std::array<int, max_species> new_est{};
constinit std::array<unsigned char, max_species> destroy{};
constinit std::array<int, max_species> pc_len{};
constinit std::array<std::array<double, 2>, max_species> evalue{};
constinit std::array<int, max_species> no_groupe{};
constinit std::array<int, max_species> no_family{};
constinit std::array<int, max_species> row_length{};

constinit int nb_ens = 1;
constinit std::array<std::array<int, max_ensemble_species>, max_ensembles> cor_ens{};
constinit std::array<int, max_ensembles> nb_spec_ens{};
constinit char ens_names[max_ensembles][identifier_size] = {};
constinit std::array<int, max_ensembles> type_affich_ens{};

void mark_changed()
{
    modif = 0;
}
void mark_saved()
{
    modif = 255;
}

bool store_allocate()
{
    if (seq) return true;
    void* block = mmap(nullptr, static_cast<std::size_t>(seq_capacity), PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (block == MAP_FAILED) return false;
    seq = static_cast<char*>(block);
    return true;
}

char* row_storage(int species)
{
    return seq + static_cast<std::ptrdiff_t>(species) * lenseq_tot;
}

std::span<const char> row(int species)
{
    return {row_storage(species), static_cast<std::size_t>(row_length[static_cast<std::size_t>(species)])};
}

char residue(int species, int position)
{
    const auto text = row(species);
    return static_cast<std::size_t>(position) < text.size() ? text[static_cast<std::size_t>(position)] : ' ';
}

std::string_view identifier(int species)
{
    return ident + static_cast<std::ptrdiff_t>(species) * identifier_size;
}

std::span<const int> members(int ensemble)
{
    const auto e = static_cast<std::size_t>(ensemble);
    return std::span(cor_ens[e]).first(static_cast<std::size_t>(nb_spec_ens[e]));
}

void store_reset()
{
    store_release();
    nb_spec = nb_nuc_tot = lenseq_tot = type_seq = 0;
    molecule[0] = domaine[0] = caractere[0] = 0;
    file_ALI.clear();
    modif = 255;
    mask.fill(0);
    new_est.fill(0);
    destroy.fill(0);
    pc_len.fill(0);
    evalue.fill({-1.0, -1.0});
    no_groupe.fill(0);
    no_family.fill(0);
    row_length.fill(0);
    nb_ens = 1;
    nb_spec_ens.fill(0);
    type_affich_ens.fill(-1);
    std::memset(ens_names, 0, sizeof ens_names);
}

void store_release()
{
    std::free(ident);
    ident = nullptr;
}

namespace {

// Rows that lie close together get large pages: moving and counting them touches every page of the block.
// Rows far apart must not, or a small alignment would fill the whole block with zeros.
void choose_page_size()
{
    const bool close = 2L * (nb_nuc_tot + 1) >= lenseq_tot;
    if (seq) madvise(seq, static_cast<std::size_t>(seq_capacity), close ? MADV_HUGEPAGE : MADV_NOHUGEPAGE);
}

} // namespace

std::string store_begin(int species, int columns)
{
    nb_spec = species;
    nb_nuc_tot = columns;
    lenseq_tot = static_cast<int>(seq_capacity / species);
    choose_page_size();
    std::free(ident);
    ident = static_cast<char*>(std::calloc(static_cast<std::size_t>(species), identifier_size));
    return ident ? "" : "ident";
}

void store_put(int species, std::string_view name, std::string_view text, bool masked, bool is_new)
{
    const auto i = static_cast<std::size_t>(species);
    const auto columns = static_cast<std::size_t>(nb_nuc_tot);
    copy_field({ident + i * identifier_size, identifier_size}, name);
    char* storage = row_storage(species);
    std::memcpy(storage, text.data(), text.size());
    std::memset(storage + text.size(), ' ', columns - text.size());
    storage[columns] = 0;
    row_length[i] = nb_nuc_tot;
    const long blanks = static_cast<long>(columns - text.size()) + std::count(text.begin(), text.end(), ' ');
    pc_len[i] = nb_nuc_tot ? static_cast<int>((nb_nuc_tot - blanks) * 100 / nb_nuc_tot) : 0;
    mask[i] = masked ? -1 : 0;
    new_est[i] = is_new ? -1 : 0;
    destroy[i] = 0;
    evalue[i] = {-1.0, -1.0};
}

void set_caractere()
{
    std::string_view letters = "*ACDEFGHIKLMNPQRSTVWY ";
    if (!type_seq) {
        const auto first = row(0);
        const bool rna = std::find(first.begin(), first.end(), 'U') != first.end();
        letters = rna ? "*UGKCYSBAWRDMHVN " : "*TGKCYSBAWRDMHVN ";
    }
    copy_field(caractere, letters);
}

std::string store_error()
{
    if (nb_spec == 0) return "";
    if (nb_nuc_tot + 1 > lenseq_tot) return "the alignment is longer than the row stride";
    for (int i = 0; i < nb_spec; i++) {
        const int length = row_length[static_cast<std::size_t>(i)];
        if (length < 0 || length > lenseq_tot - 1) return text_format("row %d has length %d", i, length);
        const char* text = row_storage(i);
        if (text[length] != 0) return text_format("row %d does not end at its length", i);
        if (std::memchr(text, 0, static_cast<std::size_t>(length)))
            return text_format("row %d holds a NUL", i);
    }
    if (nb_ens < 1 || nb_ens > max_ensembles) return "the number of ensembles is out of bounds";
    for (int e = 0; e < nb_ens; e++) {
        if (nb_spec_ens[static_cast<std::size_t>(e)] < 0 ||
            nb_spec_ens[static_cast<std::size_t>(e)] > max_ensemble_species)
            return text_format("ensemble %d has an impossible size", e);
        for (const int species : members(e))
            if (species < 0 || species >= nb_spec) return text_format("ensemble %d names a missing row", e);
    }
    return "";
}

} // namespace kq
