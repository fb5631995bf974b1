// Opening an alignment, both passes, beside a bare program that reads the file into fresh memory, splits it
// into lines and copies each to its row; what .inf and .nom files add; and the peak memory.
#include "bench/alignment_file.h"
#include "core/ali_reader.h"
#include "core/inf_file.h"
#include "core/store.h"
#include "taxonomy/frame.h"
#include "taxonomy/group_files.h"
#include "taxonomy/text_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>

using namespace kq;
using namespace kq::bench;

namespace {

const std::string path = folder() + "open.ali", inf_path = folder() + "open.inf",
                  nom_path = folder() + "open.nom";

char* fresh_memory(std::size_t size)
{
    void* block = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED) std::abort();
    return static_cast<char*>(block);
}

void open_barely(Size size)
{
    const int fd = open(path.c_str(), O_RDONLY);
    struct stat status {};
    fstat(fd, &status);
    const auto length = static_cast<std::size_t>(status.st_size);
    char* text = fresh_memory(length);
    for (std::size_t got = 0; got < length;)
        got += static_cast<std::size_t>(read(fd, text + got, length - got));
    close(fd);
    const auto stride = static_cast<std::size_t>(seq_capacity / size.species);
    char* rows = fresh_memory(static_cast<std::size_t>(seq_capacity));
    std::size_t line = 0;
    for (const char *at = text, *end = text + length; at < end; line++) {
        const auto* feed =
            static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        if (line >= 2 && *at != '>')
            std::memcpy(rows + (line - 3) / 2 * stride, at, static_cast<std::size_t>(feed - at));
        at = feed + 1;
    }
    munmap(rows, static_cast<std::size_t>(seq_capacity));
    munmap(text, length);
}

void forget_rows()
{
    madvise(seq, static_cast<std::size_t>(seq_capacity), MADV_DONTNEED);
}

void open_alignment()
{
    const auto check = check_ali(path);
    if (!check.error.empty() || !load_ali(path, check).empty()) std::abort();
}

void read_companions()
{
    read_inf_scores(inf_path);
    if (!assign_groups(read_text_file(nom_path), nom_path).empty()) std::abort();
    if (evalue[static_cast<std::size_t>(nb_spec) - 1][0] != 0.5 ||
        no_groupe[static_cast<std::size_t>(nb_spec) - 1] != 0)
        std::abort();
}

void write_companions(Size size)
{
    std::ofstream inf(inf_path), nom(nom_path);
    for (int i = size.species; i-- > 0;) {
        const auto name = species_name(i);
        inf << "[ORG] " << name << "\n[ACC] " << name.substr(name.find('@') + 1)
            << "\n[SYS] Bacteria; Firmicutes\n[BLA] 0.5 x\n\n";
        nom << name.substr(0, name.find('@')) << ",Firmicutes\n";
    }
    std::strcpy(groupe[0], "Firmicutes");
    std::strcpy(groupe[1], "Cupboard");
    nb_groupe = 2;
}

// Of a process that only opens the file, in bytes.
double peak_memory()
{
    const pid_t child = fork();
    if (child == 0) {
        open_alignment();
        read_companions();
        _exit(0);
    }
    rusage usage{};
    int status = 0;
    wait4(child, &status, 0, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
}

void measure(Size size)
{
    write_alignment(path, size);
    write_companions(size);
    const double peak = peak_memory();
    std::vector<double> bare, ours, companions, check;
    for (int run = 0; run < 9; run++) {
        bare.push_back(seconds([&] { open_barely(size); }));
        forget_rows();
        ours.push_back(seconds(open_alignment));
        companions.push_back(seconds(read_companions));
        check.push_back(seconds([] { check_ali(path); }));
        forget_rows();
    }
    std::printf("| %d x %d | %.3f s | %.3f s | %.2f | %.3f s | %.3f s (%.1f %%) | %.2f |\n", size.species,
                size.columns, median(bare), median(ours), median(ours) / median(bare), median(check),
                median(companions), 100 * median(companions) / median(ours),
                peak / static_cast<double>(seq_capacity));
    std::fflush(stdout);
}

} // namespace

int main()
{
    if (!store_allocate()) return 1;
    store_reset();
    std::puts("| Rows x columns | bare program | opening | ratio | of it checking | .inf and .nom add | peak "
              "memory / block |");
    std::puts("| --- | --- | --- | --- | --- | --- | --- |");
    for (const Size size : sizes)
        measure(size);
    std::filesystem::remove_all(folder());
}
