// An analysis of chosen species at chosen positions, as a run would have prepared it.
#pragma once

#include "analysis/analysed.h"
#include "analysis/distance_matrix.h"
#include "analysis/output_names.h"
#include "analysis/parameters.h"
#include "editor/editor_test.h"

#include <omp.h>

#include <string>
#include <vector>

namespace kq::test {

class AnalysedTest : public EditorTest {
public:
    ~AnalysedTest() override
    {
        omp_set_num_threads(omp_get_num_procs());
        libere_memoire_dist();
        analysed_reset();
        output_names_reset();
        parameters_reset();
        options_reset();
    }

protected:
    // With room for its matrix.
    static void analyse(const std::vector<int>& species, const std::vector<int>& positions)
    {
        libere_memoire_dist();
        std::ranges::copy(species, cor_auto.begin());
        nb_spec_auto = static_cast<int>(species.size());
        retain.assign(static_cast<std::size_t>(nb_nuc_tot), position_removed);
        for (const int p : positions)
            retain[static_cast<std::size_t>(p)] = position_kept;
        retain.push_back(end_of_positions);
        nb_nuc_keep = static_cast<int>(positions.size());
        name_distances(type_seq);
        ASSERT_EQ(alloue_memoire_dist(), 0);
    }
    // The characters of each species at these positions.
    static std::vector<std::string> kept_texts()
    {
        std::vector<std::string> texts;
        for (const int species : analysed_species())
            kept_characters(species, kept_positions(), texts.emplace_back());
        return texts;
    }
};

// Descendants of one ancestor: some nearly identical, some saturated.
inline std::vector<std::string> related_rows(std::mt19937& random, int species, std::size_t columns,
                                             std::string_view letters)
{
    const auto letter = [&] { return letters[random() % letters.size()]; };
    std::string ancestor(columns, 'A');
    for (char& c : ancestor)
        c = letter();
    std::vector<std::string> rows;
    for (int i = 0; i < species; i++) {
        const auto kept = random() % 5;
        rows.push_back(ancestor);
        for (char& c : rows.back())
            if (random() % 5 >= kept) c = letter();
    }
    return rows;
}

} // namespace kq::test
