// model: the region pos_deb to pos_fin on its way to an alignment program and back.
#pragma once

#include "core/edit.h"
#include "tools/clustalw_files.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kq {

// Adds a species to the text of a FASTA file: its residues in the region. Returns how many they are; 0, and
// nothing is added, when it is deleted, has less than `minimum`, or none.
int clustalw_seq(int species, int minimum, std::string& file);

// The species that are sent, in order, and the text of their file.
class SentRegion {
public:
    // Those of `species` that have enough residues, each once.
    SentRegion(std::span<const int> species, int minimum);

    const std::vector<int>& species() const { return species_; }
    const std::string& fasta() const { return fasta_; }
    bool has(int species) const;                  // of any number from 0 on
    std::string_view residues(int species) const; // of one that was sent

private:
    struct Record {
        std::size_t first, count; // where the residues stand in the text; none: not sent
    };
    std::vector<int> species_;
    std::vector<Record> records_; // by species
    std::string fasta_;
};

// What speaks against a result; it has to hold each species that was sent, with its residues, and nothing
// else.
ResultProblem problem_of(const NexusAlignment& result, const SentRegion& sent);

// Writes a result without problems into the region of these species: own residues, the gaps of the result,
// "*" behind them; columns are opened behind the region in all species when the result is longer. Those of
// the species that were not sent are compacted to the left. Nothing is changed where the alignment cannot
// grow.
Growth write_into_region(std::span<const int> species, const SentRegion& sent, const NexusAlignment& result);

} // namespace kq
