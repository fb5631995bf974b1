// An editor on a small alignment made from texts.
#pragma once

#include "core/column_counts.h"
#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/lifecycle.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/colour_scale.h"
#include "editor/editor.h"
#include "editor/navigation.h"
#include "editor/view.h"
#include "screen/strings.h"
#include "support/ali_folder.h"
#include "support/plain_reference.h"
#include "support/screen_test.h"
#include "taxonomy/frame.h"
#include "taxonomy/frame_files.h"
#include "taxonomy/frame_layout.h"
#include "taxonomy/frame_screen.h"
#include "taxonomy/group_file_screen.h"
#include "taxonomy/selection.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

inline constexpr int nucleic = 0, protein = 1;

class EditorTest : public ScreenTest {
public:
    explicit EditorTest(const Geometry& geometry = {.lines = 24, .columns = 80})
        : ScreenTest(geometry)
    {
        alignment_reset();
        view_reset();
        frame_reset();
        selection_reset();
        build_color_scale();
        nb_groupe = 1;
        copy_field(groupe[0], "Cupboard");
        color_groupe[0] = 7;
    }
    ~EditorTest() override { alignment_reset(); }

    // Species "Genus_a species@1" and so on; all in one ensemble, or in the given ones.
    void load(const std::vector<std::string>& rows, const std::vector<std::vector<int>>& ensembles = {},
              int type = nucleic)
    {
        libere_memoire();
        reset_ensembles();
        view_reset();
        ASSERT_TRUE(store_allocate());
        const auto longest = std::ranges::max_element(rows, {}, &std::string::size);
        ASSERT_EQ(store_begin(static_cast<int>(rows.size()), static_cast<int>(longest->size())), "");
        type_seq = type;
        int species = 0;
        for (const auto& text : rows) {
            const auto name = text_format("Genus_%c species@%d", 'a' + species % 26, species + 1);
            store_put(species++, name, text, false, false);
        }
        set_caractere();
        copy_field(molecule, "Molecule");
        copy_field(domaine, "Domain");
        file_ALI = "test.ali";
        ASSERT_TRUE(columns_allocate(nb_nuc_tot));
        ASSERT_EQ(consensus_allocate(0, nb_nuc_tot), "");
        counts_forget();
        std::vector<int> all(rows.size());
        for (std::size_t i = 0; i < all.size(); i++)
            all[i] = static_cast<int>(i);
        set_members(0, ensembles.empty() ? all : ensembles[0]);
        for (std::size_t e = 1; e < ensembles.size(); e++)
            set_members(add_ensemble(), ensembles[e]);
        for (int e = 0; e < nb_ens; e++)
            set_ensemble_name(e, text_format("ensemble %c", 'A' + e));
        mark_saved();
    }

    // Species 0 and 1 are in group A, 2 and 3 in B, 4 and 5 in C; the others are in the Cupboard.
    void read_frame_of_three_groups()
    {
        write_file("zoltexe/THREE.fra",
                   "1 May\n(C:200:64:-1,(B:200:40:-1,A:200:24:-1)Top:100:32:-1)Root:3:48:-1;\n");
        std::string groups;
        for (int s = 0; s < 6; s++)
            groups += text_format("Genus_%c species,%c\n", 'a' + s, 'A' + s / 2);
        write_file("zolt/data/three.nom", groups);
        write_file("zolt/data/three.col", "10,A\n3,B\n14,C\n");
        const auto data = path("zolt/data/three");
        write_file("zolt/data/afas.ref", "THREE\n" + data + ".nom\n" + data + ".col\n");
        read_FRA_NOM_COL();
        read_frame();
        adjust_frame();
        read_file_NOM();
    }

    Played edit(std::string_view script)
    {
        return play(script, [] { gere_seq(); });
    }

    // As gere_seq begins, without its loop.
    static void enter()
    {
        prem_ens = prem_spec = 0;
        nb_spec_affich = count_display_rows();
        init_param();
    }

    static std::string sequence(int species) { return row_text(species); }
    static std::vector<std::string> sequences()
    {
        std::vector<std::string> rows;
        for (int species = 0; species < nb_spec; species++)
            rows.push_back(sequence(species));
        return rows;
    }
    static std::vector<int> ensemble(int number) { return {members(number).begin(), members(number).end()}; }
    // The rows of an ensemble, in its order.
    static plain::Texts texts(int ensemble)
    {
        plain::Texts rows;
        for (const int species : members(ensemble))
            rows.emplace_back(kq::row(species).data(), kq::row(species).size());
        return rows;
    }
    static bool changed() { return modif == 0; }
    // The first broken rule of view, store and counts, or "".
    static std::string model_error() { return view_error() + store_error() + columns_error(); }
    // The residues of a screen row as they stand in the area.
    std::string area(int row) const { return line(row).size() < 30 ? "" : line(row).substr(29); }
};

} // namespace kq::test
