// screen: the editor's commands on whole ensembles.
#include "editor/ensemble_commands.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/edit.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/ensemble_display.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/ensembles.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kq {

// ---- the list of ensembles --------------------------------------------------------------------------------

namespace {

constexpr int list_line = 10, least_list_width = 46;
constexpr int text_column = 3, title_line = 2;
constexpr int sideways_step = 8;

std::string list_entry(int e)
{
    return text_format("Ensemble %2d: %s", e + 1, ens_names[e]);
}

// The box of choice_ensemble: below the title, which takes more than one line where it is wider than the
// screen, as many ensembles as there is room for.
class EnsembleList {
public:
    explicit EnsembleList(std::string_view title)
    {
        const int width = std::max(static_cast<int>(title.size()) + 3, least_list_width);
        const int left = std::max((_nb_col - width) / 2, 1);
        const int right = std::min(left + width, _nb_col);
        columns_ = std::max(right - left + 1 - text_column, 1);
        const auto title_rows = wrap_text(title, columns_);
        first_line_ = title_line + static_cast<int>(title_rows.size());

        _setbgcolor(color::black);
        window_hp(list_line, left, list_line + first_line_ + nb_ens - 1, right, color::light_green);
        for (int line = title_line; const auto& row : title_rows)
            outtext_inside(line++, text_column, color::magenta, row);
        lines_ = std::max(x2_win - x1_win - first_line_ + 1, 1);
        for (int e = 0; e < nb_ens; e++)
            hidden_columns_ = std::max(hidden_columns_, static_cast<int>(list_entry(e).size()) - columns_);
    }

    int run()
    {
        for (;;) {
            draw();
            const int pressed = GrKeyRead();
            if (pressed == key::enter || pressed == key::escape) {
                _clearscreen(1);
                return pressed == key::enter ? selected_ : escaped;
            }
            act(pressed);
        }
    }

private:
    int first_line_ = 0;     // of the entries, in the text window
    int lines_ = 1;          // room for entries
    int columns_ = 1;        // room for text
    int hidden_columns_ = 0; // of the longest entry
    int selected_ = 0;
    int first_ = 0;   // first ensemble shown
    int skipped_ = 0; // columns scrolled away on the left

    void act(int pressed)
    {
        switch (pressed) {
        case key::up:
            selected_ = (selected_ + nb_ens - 1) % nb_ens;
            break;
        case key::down:
            selected_ = (selected_ + 1) % nb_ens;
            break;
        case key::left:
            skipped_ = std::max(skipped_ - sideways_step, 0);
            break;
        case key::right:
            skipped_ = std::min(skipped_ + sideways_step, hidden_columns_);
            break;
        default:
            break;
        }
    }

    void draw()
    {
        first_ = std::clamp(first_, std::max(selected_ - lines_ + 1, 0), selected_);
        for (int e = first_; e < std::min(first_ + lines_, nb_ens); e++)
            color_case_ensemble(e, e == selected_, first_line_ + e - first_, skipped_);
    }
};

} // namespace

int choice_ensemble(std::string_view title)
{
    return EnsembleList(title).run();
}

void color_case_ensemble(int e, bool selected, int line, int skipped)
{
    const auto entry = list_entry(e);
    const auto shown =
        std::string_view(entry).substr(std::min(static_cast<std::size_t>(skipped), entry.size()));
    outtext_inside(line, text_column, selected ? color::yellow : color::green, padded(shown, _nb_col));
}

// ---- commands ---------------------------------------------------------------------------------------------

namespace {

// The list of rows has changed: the top row is the first one, and so is the cursor's.
void show_from_the_first_row()
{
    nb_spec_affich = count_display_rows();
    prem_ens = prem_spec = 0;
    compute_ligne_consensus();
    recompute_hidden(opt_nogap != 0, 0);
    const bool all_hidden = nb_nuc == 0; // init_param would end the program
    if (all_hidden) opt_nogap = 1;
    init_param();
    if (all_hidden) warn("There are no residues in the ensembles: gap columns are shown");
}

} // namespace

int change_affich()
{
    const int e = choice_ensemble("Choose the ensemble for which you want to change the display:");
    if (e == escaped) return escaped;
    toggle_ensemble_display(e);
    return ok;
}

int modif_ensemble()
{
    const int e = choice_ensemble("Choose the ensemble you want to modify:");
    if (e == escaped) return escaped;
    if (construct_ensemble(e) != ok) return rebuild_failed;
    show_from_the_first_row();
    compute_consensus(e);
    return ok;
}

int detruire_ensemble()
{
    if (nb_ens == 1) return escaped;
    const int e = choice_ensemble("Choose the ensemble you want to discard:");
    if (e == escaped) return escaped;
    remove_ensemble(e);
    show_from_the_first_row();
    return ok;
}

// ---- sorting ----------------------------------------------------------------------------------------------

int comparer_alpha_species(int a, int b)
{
    return identifier(a).compare(identifier(b));
}

void sort_species_alpha(int e)
{
    std::vector<int> sorted(members(e).begin(), members(e).end());
    std::ranges::stable_sort(sorted, [](int a, int b) { return comparer_alpha_species(a, b) < 0; });
    set_members(e, sorted);
}

void choose_and_sort()
{
    const int e = nb_ens == 1 ? 0 : choice_ensemble("Choose the ensemble you want to sort alphabetically:");
    if (e != escaped) sort_species_alpha(e);
}

} // namespace kq
