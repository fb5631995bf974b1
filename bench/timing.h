// Timing for benchmarks that set two ways of doing one thing side by side: both run in turn, so that what
// else the machine does meanwhile meets both.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace kq::bench {

template <class Work>
double seconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Where the disk's own moods are larger than what is measured.
inline double best(const std::vector<double>& times)
{
    return *std::min_element(times.begin(), times.end());
}

inline double median(std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

struct Times {
    std::vector<double> plain, ours;
};
// Runs both so many times. Each goes first as often as the other: what one left to the disk may still be
// under way.
template <class Plain, class Ours>
Times times_in_turn(int runs, Plain plain, Ours ours)
{
    Times times;
    for (int run = 0; run < runs; run++) {
        if (run % 2 == 0) times.plain.push_back(seconds(plain));
        times.ours.push_back(seconds(ours));
        if (run % 2 != 0) times.plain.push_back(seconds(plain));
    }
    return times;
}

// An alignment in a file.
struct Size {
    int species, columns;
};
inline constexpr Size sizes[] = {{20000, 14900}, {2000, 149000}, {20000, 1500}};

// Where files are written: KQ_BENCH_DIR, else /tmp; with "/" at its end.
inline std::string folder()
{
    const char* directory = std::getenv("KQ_BENCH_DIR");
    return std::string(directory && *directory ? directory : "/tmp") + "/kqbench/";
}

inline std::string species_name(int i)
{
    char text[60];
    std::snprintf(text, sizeof text, "Genus%d species%d@AC%06d", i % 500, i, i);
    return text;
}

} // namespace kq::bench
