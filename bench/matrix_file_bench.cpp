// Writing a distance matrix beside fprintf: the numbers as text in memory, and the whole file. Ours is
// flushed to disk and renamed into place; plain is timed without a flush, and with one.
#include "analysis/analysed.h"
#include "analysis/comment_header.h"
#include "analysis/distance_matrix.h"
#include "analysis/matrix_text.h"
#include "analysis/output_names.h"
#include "analysis/outputs.h"
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/store.h"
#include "screen/directories.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

const char* format_of(float value)
{
    return value > 1000 ? "%10.0f" : value > 100 ? "%10.4f" : value > 10 ? "%10.5f" : "%10.6f";
}

std::span<const float> row_of_matrix(int i)
{
    return {dist + cell(i, 0, nb_spec_auto), static_cast<std::size_t>(i)};
}

void numbers_plainly(std::vector<char>& text)
{
    for (int i = 0; i < nb_spec_auto; i++) {
        char* out = text.data();
        for (const float value : row_of_matrix(i))
            out += std::sprintf(out, format_of(value), static_cast<double>(value));
    }
}

void numbers(std::string& text)
{
    for (int i = 0; i < nb_spec_auto; i++) {
        text.clear();
        append_numbers(text, row_of_matrix(i));
    }
}

enum class Flush { no, yes };

void write_plainly(Flush flush)
{
    std::FILE* const file = std::fopen("plain.mat", "w");
    if (!file) std::abort();
    std::fprintf(file, "%s", comment_header('m').c_str());
    for (int i = 0; i < nb_spec_auto; i++) {
        std::fprintf(file, "%s", identificateur(i, 80, identifier_joined).c_str());
        for (const float value : row_of_matrix(i))
            std::fprintf(file, format_of(value), static_cast<double>(value));
        std::fprintf(file, "\n");
    }
    if (std::fflush(file) != 0) std::abort();
    if (flush == Flush::yes && fsync(fileno(file)) != 0) std::abort();
    std::fclose(file);
}

void write_ours()
{
    nomfic = "ours.mat";
    if (!write_matrix()) std::abort();
    nomfic = "plain.mat"; // the comment of the plain one
}

// Past the comment, which names the file and the time.
bool same_files()
{
    std::ifstream plain("plain.mat", std::ios::binary), ours("ours.mat", std::ios::binary);
    std::string a, b;
    for (int line = 0; line < 5; line++) {
        std::getline(plain, a);
        std::getline(ours, b);
    }
    while (std::getline(plain, a) && std::getline(ours, b))
        if (a != b) return false;
    return plain.eof() && ours.peek() == EOF;
}

struct Values {
    const char* name;
    float largest;
};

void measure(int n, const Values& values, int runs)
{
    analyse(std::vector<std::string>(static_cast<std::size_t>(n), "A"), Alphabet::protein);
    std::mt19937 random(1);
    for (int i = 0; i < n; i++)
        for (int j = 0; j < i; j++)
            dist[cell(i, j, n)] = static_cast<float>(random()) * 0x1p-32F * values.largest;

    std::string text;
    std::vector<char> plain_text(static_cast<std::size_t>(n) * 10 + 1);
    const auto [plain, ours] = times_in_turn(
        runs, [&] { numbers_plainly(plain_text); }, [&] { numbers(text); });
    std::printf("| %d, %s | text in memory | %.2f s | %.3f s | %.1f |\n", n, values.name, median(plain),
                median(ours), median(plain) / median(ours));
    std::fflush(stdout);
    for (const Flush flush : {Flush::no, Flush::yes}) {
        const auto [plain_file, our_file] = times_in_turn(
            runs, [flush] { write_plainly(flush); }, write_ours);
        std::printf("| | file, %s | %.2f s | %.3f s | %.1f |\n",
                    flush == Flush::yes ? "both flushed to disk" : "only ours flushed to disk",
                    median(plain_file), median(our_file), median(plain_file) / median(our_file));
        std::fflush(stdout);
    }
    if (!same_files()) {
        std::puts("The files differ");
        std::exit(1);
    }
    libere_memoire_dist();
}

} // namespace

int main()
{
    if (!store_allocate()) return 1;
    const std::string directory = folder() + "matrix";
    std::filesystem::create_directories(directory);
    std::filesystem::current_path(directory);
    std::puts("| species, values | | fprintf | ours | ratio |");
    std::puts("| --- | --- | --- | --- | --- |");
    constexpr Values distances = {"up to 2", 2}, percentages = {"up to 100", 100};
    measure(5000, distances, 5);
    measure(5000, percentages, 5);
    measure(20000, distances, 2);
    std::filesystem::remove_all(directory);
}
