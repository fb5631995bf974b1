// The plain versions of the distances between two sequences: one look-up for each pair of characters, one
// formula for each distance, every series begun again for each of its terms.
//
// Both texts hold the characters at the compared positions only and have one length.
//
// Precision. A percentage (nucleic acids 0 to 6, proteins 0 and 2 to 5) is computed in single precision;
// everything else is computed in double precision and rounded once, when it is stored. A formula is read from
// left to right, powers first: a b / c is (a b) / c, 1 - x - y is (1 - x) - y. A term of a series begins with
// its first factor; each further factor is computed by itself, from left to right, before the term is
// multiplied by it; where the term is "divided by" something, that is a step of its own. Sums run upwards.
// Deliberate: a distance of zero is +0, never -0, and two sequences in which a distance finds no difference
// have the distance 0, whatever the rounding of its formula.
#pragma once

#include <array>
#include <string_view>

namespace kq::plain {

struct PairCounts {
    int transitions = 0, transversions = 0, deletions = 0, others = 0;
    int compared = 0; // N: identities and the four kinds of differences
};

// Unknown (" ?XRYMWSKVHDBN") against anything and a gap against a gap are not compared.
PairCounts arn_counts(std::string_view a, std::string_view b);

// Types 0 to 11, from the counts.
float arn_distance(const PairCounts& counts, int type, double shape);
// Type 12, Tamura and Nei with gamma; 0 where one of the four bases is missing.
float tamura_nei(std::string_view a, std::string_view b, double shape);
// Types 0 to 12.
float arn_distance(std::string_view a, std::string_view b, int type, double shape);

// Row and column: the amino acids in the order ACDEFGHIKLMNPQRSTVWY.
using Weights = std::array<std::array<double, 20>, 20>;

struct ResidueCounts {
    int gaps = 0;      // G: a gap against a residue
    float weights = 0; // S: each weight is added in double precision, each sum stored in single precision
    int compared = 0;  // N
};

// A character that is neither one of the amino acids nor a gap is unknown.
ResidueCounts prot_counts(std::string_view a, std::string_view b, const Weights& weights);

// Types 0 to 7.
float prot_distance(const ResidueCounts& counts, int type, double shape);
float prot_distance(std::string_view a, std::string_view b, int type, double shape, const Weights& weights);

} // namespace kq::plain
