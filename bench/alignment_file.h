// Files to measure with.
#pragma once

#include "bench/timing.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace kq::bench {

// Nucleotides with gaps, in one fixed pseudo-random order.
inline void write_alignment(const std::string& path, Size size)
{
    std::filesystem::create_directories(folder());
    std::ofstream out(path, std::ios::binary);
    out << "#16S ribosomal RNA\n#Bacteria\n";
    std::string line(static_cast<std::size_t>(size.columns), ' ');
    unsigned state = 1;
    for (int i = 0; i < size.species; i++) {
        for (char& c : line) {
            state = state * 1664525 + 1013904223;
            c = "ACGUACGUACGUAC**"[state >> 28];
        }
        out << '>' << species_name(i) << '\n' << line << '\n';
    }
}

} // namespace kq::bench
