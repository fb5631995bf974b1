// Neighbour joining beside the plain one, and beside quicktree, clearcut and R's ape where they are
// installed.
//
// The other programs read their matrix from a pipe: what counts is the time from the moment when all of it
// has gone into the pipe to the end of the process. R times itself. "joining_bench large" adds matrices that
// only we are timed on.
#include "analysis/analysed.h"
#include "analysis/arn_distances.h"
#include "analysis/distance_matrix.h"
#include "analysis/joining.h"
#include "analysis/parameters.h"
#include "bench/evolved_sequences.h"
#include "bench/timing.h"
#include "core/store.h"
#include "raster/grx.h"
#include "screen/process.h"
#include "screen/window.h"
#include "support/plain_joining.h"

#include <fcntl.h>
#include <omp.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using namespace kq;
using namespace kq::bench;

namespace {

// Row-major, n rows; the lower triangle counts.
struct Matrix {
    int n;
    std::vector<float> cells;
};

float at(const Matrix& matrix, int i, int j)
{
    return i == j ? 0 : matrix.cells[cell(std::max(i, j), std::min(i, j), matrix.n)];
}

// K2P distances of sequences that evolved on a tree.
Matrix evolved(int n)
{
    analyse(evolved_sequences({.species = n}), Alphabet::nucleic);
    type_dist = 8;
    if (!compute_diff_arn() || !compute_dist_arn()) std::abort();
    return {n, {dist, dist + cell(n, 0, n)}};
}

template <class Distance>
Matrix made(int n, Distance distance)
{
    Matrix matrix{n, std::vector<float>(cell(n, 0, n))};
    for (int i = 0; i < n; i++)
        for (int j = 0; j < i; j++)
            matrix.cells[cell(i, j, n)] = static_cast<float>(distance(i, j));
    return matrix;
}

// Percentages of differences between sequences of so few columns that many are the same.
Matrix of_short_sequences(int n)
{
    const auto rows = evolved_sequences({.species = n, .columns = 20, .gaps = 0});
    return made(n, [&](int i, int j) {
        int different = 0;
        for (std::size_t p = 0; p < 20; p++)
            different += rows[static_cast<std::size_t>(i)][p] != rows[static_cast<std::size_t>(j)][p];
        return 5 * different;
    });
}

// ---- ours and plain ---------------------------------------------------------------------------------------

double ours(const Matrix& matrix, int runs)
{
    libere_memoire_dist();
    nb_spec_auto = matrix.n;
    if (alloue_memoire_dist() != 0) std::abort();
    std::vector<double> times;
    for (int run = 0; run < runs; run++) {
        std::copy(matrix.cells.begin(), matrix.cells.end(), dist);
        times.push_back(seconds([&] {
            if (!join_neighbors(dist, matrix.n, [](std::int64_t) { return true; })) std::abort();
        }));
    }
    return median(times);
}

double plain(const Matrix& matrix)
{
    const std::vector<std::string> names(static_cast<std::size_t>(matrix.n));
    return seconds([&] { plain::joined_tree(matrix.cells, names); });
}

// ---- other programs ---------------------------------------------------------------------------------------

std::string phylip_text(const Matrix& matrix)
{
    std::string text = std::to_string(matrix.n) + "\n";
    char number[20];
    for (int i = 0; i < matrix.n; i++) {
        text += "s" + std::to_string(i);
        for (int j = 0; j < matrix.n; j++)
            text.append(number, static_cast<std::size_t>(std::snprintf(
                                    number, sizeof number, " %.6f", static_cast<double>(at(matrix, i, j)))));
        text += "\n";
    }
    return text;
}

// All rows, as R reads them.
std::string binary_text(const Matrix& matrix)
{
    std::string text;
    for (int i = 0; i < matrix.n; i++)
        for (int j = 0; j < matrix.n; j++) {
            const float distance = at(matrix, i, j);
            text.append(reinterpret_cast<const char*>(&distance), sizeof distance);
        }
    return text;
}

// Runs a program on `input`; the seconds from the end of the input to its own, or below 0 when it failed.
double seconds_after_input(std::vector<std::string> arguments, std::string_view input)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    std::vector<char*> vector;
    for (auto& argument : arguments)
        vector.push_back(argument.data());
    vector.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, vector[0], &actions, nullptr, vector.data(), environ) != 0) return -1;
    posix_spawn_file_actions_destroy(&actions);
    close(ends[0]);
    while (!input.empty()) {
        const ssize_t written = write(ends[1], input.data(), input.size());
        if (written <= 0) break;
        input.remove_prefix(static_cast<std::size_t>(written));
    }
    close(ends[1]);
    int status = 0;
    const double time = seconds([&] { waitpid(child, &status, 0); });
    return input.empty() && status == 0 ? time : -1;
}

double quicktree(const Matrix& matrix)
{
    return seconds_after_input({"quicktree", "-in", "m", "-out", "t", "/dev/stdin"}, phylip_text(matrix));
}

double clearcut(const Matrix& matrix)
{
    return seconds_after_input({"clearcut", "--neighbor", "--stdin", "--stdout"}, phylip_text(matrix));
}

double ape(const Matrix& matrix)
{
    const std::string result = folder() + "ape_seconds";
    const std::string program = "a <- commandArgs(TRUE); n <- as.integer(a[1]); input <- file('stdin', 'rb');"
                                "d <- as.dist(matrix(readBin(input, 'numeric', n * n, 4), n));"
                                "cat(system.time(ape::nj(d))[['elapsed']], file = a[2])";
    double time = -1;
    if (seconds_after_input({"Rscript", "--vanilla", "-e", program, std::to_string(matrix.n), result},
                            binary_text(matrix)) >= 0)
        std::ifstream(result) >> time;
    return time;
}

struct OtherProgram {
    const char* name;
    const char* command;
    double (*time)(const Matrix& matrix);
    int largest;
};
constexpr OtherProgram others[] = {
    {"clearcut --neighbor", "clearcut", clearcut, 5000},
    {"quicktree", "quicktree", quicktree, 5000},
    {"ape::nj", "Rscript", ape, 2000},
};

// ---- the tables -------------------------------------------------------------------------------------------

void table_beside_others()
{
    std::puts("| species | plain | clearcut --neighbor | quicktree | ape::nj | ours | ratios |\n"
              "| --- | --- | --- | --- | --- | --- | --- |");
    for (const int n : {500, 1000, 2000, 5000}) {
        const Matrix matrix = evolved(n);
        const double our_time = ours(matrix, 5);
        std::string times, ratios;
        const auto add = [&](double time) {
            char text[40] = "-", ratio[40] = "-";
            if (time >= 0) {
                std::snprintf(text, sizeof text, "%.3f s", time);
                std::snprintf(ratio, sizeof ratio, "%.1f", time / our_time);
            }
            times += std::string(" | ") + text;
            ratios += (ratios.empty() ? "" : ", ") + std::string(ratio);
        };
        add(n <= 2000 ? plain(matrix) : -1);
        for (const auto& other : others)
            add(n <= other.largest && program_found(other.command) ? other.time(matrix) : -1);
        std::printf("| %d%s | %.4f s | %s |\n", n, times.c_str(), our_time, ratios.c_str());
        std::fflush(stdout);
    }
}

void table_of_large(bool larger)
{
    std::puts("\n| species | ours | times the half of them |\n| --- | --- | --- |");
    double before = 0;
    for (int n = 1250; n <= (larger ? 20000 : 5000); n *= 2) {
        const double time = ours(evolved(n), n <= 5000 ? 5 : 2);
        if (n > 1250) std::printf("| %d | %.3f s | %.1f |\n", n, time, time / before);
        std::fflush(stdout);
        before = time;
    }
}

struct Kind {
    const char* name;
    std::function<Matrix(int n)> matrix;
};

void table_of_kinds()
{
    std::mt19937 random(1);
    const auto uniform = [&] { return static_cast<float>(random()) * 0x1p-32F; };
    const Kind kinds[] = {
        {"random", [&](int n) { return made(n, [&](int, int) { return uniform(); }); }},
        {"random, 0 or 1", [&](int n) { return made(n, [&](int, int) { return random() % 2; }); }},
        {"all equal", [&](int n) { return made(n, [&](int, int) { return 0.7F; }); }},
        {"100 groups of identical rows",
         [&](int n) {
             return made(n, [&](int i, int j) { return i % 100 == j % 100 ? 0 : 1 + i % 100 + j % 100; });
         }},
        {"percentages of 20 columns", of_short_sequences},
        {"negative ones", [&](int n) { return made(n, [&](int, int) { return uniform() - 0.5F; }); }},
        {"from 1e-30 to 1e10",
         [&](int n) { return made(n, [&](int, int) { return std::pow(10.0F, 40 * uniform() - 30); }); }},
        {"one in a thousand infinite",
         [&](int n) {
             return made(n, [&](int, int) { return random() % 1000 == 0 ? INFINITY : uniform(); });
         }},
    };
    std::puts("\n| | plain, 2000 | ours, 2000 | ratio | ours, 5000 |\n| --- | --- | --- | --- | --- |");
    for (const auto& [name, matrix] : kinds) {
        const Matrix small = matrix(2000), large = matrix(5000);
        const double plain_time = plain(small), our_time = ours(small, 5);
        std::printf("| %s | %.2f s | %.3f s | %.1f | %.2f s |\n", name, plain_time, our_time,
                    plain_time / our_time, ours(large, 3));
        std::fflush(stdout);
    }
}

} // namespace

int main(int count, char** arguments)
{
    setenv("GRX20DRV", "memory", 1);
    std::signal(SIGPIPE, SIG_IGN); // a program that failed says so by its status
    GrMemoryScript("");
    open_window("bench");
    std::filesystem::create_directories(folder());
    for (const auto& other : others)
        if (!program_found(other.command)) std::printf("%s is not installed.\n", other.command);
    omp_set_num_threads(1);
    table_beside_others();
    table_of_kinds();
    table_of_large(count > 1 && std::strcmp(arguments[1], "large") == 0);
    std::filesystem::remove_all(folder());
}
