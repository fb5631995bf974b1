// Saving an alignment beside the plain copies and flushes that its order needs: the new text to a new file,
// the old file to a backup, both flushed to disk and renamed into place.
#include "bench/alignment_file.h"
#include "core/ali_reader.h"
#include "core/ali_writer.h"
#include "core/store.h"
#include "screen/directories.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

using namespace kq;
using namespace kq::bench;

namespace {

constexpr std::size_t block_size = std::size_t{1} << 18;

void flush_and_close(int fd)
{
    if (fsync(fd) != 0) std::abort();
    close(fd);
}

void write_all(int fd, const char* bytes, std::size_t size)
{
    while (size > 0) {
        const ssize_t written = write(fd, bytes, std::min(size, block_size));
        if (written <= 0) std::abort();
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

int create(const std::string& path)
{
    return open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666);
}

void flush_folder()
{
    const int fd = open(folder().c_str(), O_RDONLY | O_DIRECTORY);
    flush_and_close(fd);
}

void save_plainly(const std::string& text)
{
    const std::string current = folder() + "plain.ali";
    int fd = create(folder() + "plain.tmp");
    write_all(fd, text.data(), text.size());
    flush_and_close(fd);
    const std::unique_ptr<char[]> block(new char[block_size]);
    const int old = open(current.c_str(), O_RDONLY);
    fd = create(folder() + "plain.copy");
    for (ssize_t got = 0; (got = read(old, block.get(), block_size)) > 0;)
        write_all(fd, block.get(), static_cast<std::size_t>(got));
    close(old);
    flush_and_close(fd);
    rename((folder() + "plain.tmp").c_str(), current.c_str());
    flush_folder();
    rename((folder() + "plain.copy").c_str(), (folder() + "plain.bak").c_str());
    flush_folder();
}

void measure(Size size)
{
    file_ALI = "save.ali";
    const std::string path = folder() + file_ALI;
    write_alignment(path, size);
    const auto check = check_ali(path);
    if (!load_ali(path, check).empty()) std::abort();
    std::string text;
    {
        std::ifstream in(path, std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(in), {});
    }
    std::filesystem::copy_file(path, folder() + "plain.ali");
    sync();
    const auto [plain, ours] = times_in_turn(
        10, [&] { save_plainly(text); },
        [] {
            if (!save_ali().empty()) std::abort();
        });
    std::printf("| %d x %d | %.3f s | %.3f s | %.2f |\n", size.species, size.columns, best(plain), best(ours),
                best(ours) / best(plain));
    std::fflush(stdout);
    std::filesystem::remove_all(folder());
}

} // namespace

int main()
{
    if (!store_allocate()) return 1;
    store_reset();
    dir_SEQ = folder();
    std::puts("| Rows x columns | plain copies and flushes, best of 10 | saving, best of 10 | ratio |");
    std::puts("| --- | --- | --- | --- |");
    for (const Size size : sizes)
        measure(size);
}
