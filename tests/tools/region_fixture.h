// Random alignments with a region in them, for the commands that work on one.
#pragma once

#include "editor/editor_test.h"

#include <random>

namespace kq::test {

class RegionTest : public EditorTest {
public:
    using EditorTest::EditorTest;

protected:
    // Ten rows, of which 2 is longer and 3 shorter than the alignment, and 4 is deleted; ensemble 1 of three
    // is collapsed. What is returned are the rows.
    std::vector<std::string> load_ten(std::mt19937& random, std::string_view letters)
    {
        const auto columns = 1 + random() % 68;
        std::vector<std::string> rows(10, std::string(columns, 'A'));
        for (auto& row : rows)
            for (auto c = row.begin() + 1; c != row.end(); ++c)
                *c = letters[random() % letters.size()];
        load(rows, {{0, 1, 2, 3, 4, 5, 6, 7}, {7, 3}, {9}});
        replace_text(2, rows[2] += "*-A");
        replace_text(3, rows[3] = rows[3].substr(0, 1 + random() % columns));
        set_destroyed(4, true);
        set_collapsed(1, true);
        opt_consensus = 1 + static_cast<int>(random() % 2);
        compute_ligne_consensus();
        compute_consensus(1);
        enter();
        pos_deb = static_cast<int>(random() % columns);
        pos_fin = pos_deb + static_cast<int>(random() % (columns - static_cast<unsigned>(pos_deb)));
        return rows;
    }
    // Of those ten, the members of ensemble 1, of all ensembles, and all.
    static inline const std::vector<int> species_of_set[] = {
        {7, 3}, {0, 1, 2, 3, 4, 5, 6, 7, 9}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}};
};

} // namespace kq::test
