// format: what ClustalW is called with, and the NEXUS alignment that it writes.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// The argument vector that has the FASTA file `input` aligned. The result stands beside it with ".nxs" in the
// place of what follows its last ".", the guide tree with ".dnd".
std::vector<std::string> clustalw_arguments(const std::string& program, const std::string& input);

// What speaks against a result: about one species, "<name of the species> <what>", else about the file.
struct ResultProblem {
    std::string what; // empty: nothing
    int species = -1;
};

// An alignment as read.
struct NexusAlignment {
    std::vector<int> species;       // of each row, in the order of the file; 0 or above, none twice
    std::size_t length = 0;         // of a row
    std::unique_ptr<char[]> text{}; // the rows one after the other: letters and "-" only

    std::string_view row(std::size_t index) const { return {text.get() + index * length, length}; }
};

// Reads a NEXUS alignment as ClustalW writes it: the numbers of rows and columns, then blocks of the rows
// "lcl|%d   RESIDUES-" up to a line that begins with ";" or the end. Any bytes may come; where there is a
// problem, `alignment` is not to be used.
ResultProblem read_nexus(std::string_view text, NexusAlignment& alignment);

} // namespace kq
