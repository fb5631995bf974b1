// screen: taking a species out of the alignment or out of its ensemble.
#include "editor/species_removal.h"

#include "core/edit.h"
#include "core/store.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/rejects_file.h"
#include "editor/shown_columns.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/strings.h"

#include <string>
#include <string_view>

namespace kq {

namespace {

constexpr std::string_view reasons[] = {
    "Sequencing errors with redondancy",    "Partial sequence", "Alternative splicing", "Redondancy",
    "Sequencing errors without redondancy", "Non homologous",   "Incomplete genome",    "Other reasons",
    "Without putting sequence in .non",
};
constexpr int reason_width = 36;
constexpr int without_rejects = 8; // the last reason

int cursor_ensemble_size()
{
    return nb_spec_ens[static_cast<std::size_t>(ens_curs)];
}

void warn_few_species(const char* advice)
{
    warn(text_format("The ensemble n%d contains only %d species%s", ens_curs + 1, cursor_ensemble_size(),
                     advice));
}

bool reject(int species, std::string_view reason, const std::function<void()>& draw_again)
{
    const auto error = append_reject(species, reason);
    if (error.empty()) return true;
    affich_avert("The sequence is kept: " + error, dialog_line);
    draw_again();
    return false;
}

// Takes the cursor's row off its ensemble and brings what depends on the rows up to date.
void take_cursor_row_away()
{
    remove_member(ens_curs, spec_curs);
    nb_spec_affich = count_display_rows();
    reactualise(ens_curs);
}

// One position to and fro.
void nudge_cursor()
{
    if (previous_shown(cursor_position() - 1) >= 0) {
        deplace_site_gauche(1);
        deplace_site_droite(1);
    } else {
        deplace_site_droite(1);
        deplace_site_gauche(1);
    }
}

// Puts cursor and top row right after the row that the cursor still names went away.
void close_ranks()
{
    if (ens_curs == prem_ens && spec_curs < prem_spec) prem_spec--;
    if (spec_curs >= cursor_ensemble_size()) ligne_curs--;
    if (ligne_curs < 1) {
        set_top_row(first_row());
        init_param();
    }
    settle_cursor();
}

} // namespace

int destroy_sequence_int(int species, Removal mode, const std::function<void()>& draw_again)
{
    if (mode == Removal::unasked_est) {
        if (!reject(species, "mode EST", draw_again)) return escaped;
    } else {
        const auto question =
            text_format("Do you want to definitively delete %s", identifier(species).data());
        const auto answer = confirme(question, dialog_line);
        draw_again();
        if (answer != answer_yes) return escaped;
        const int reason = _choice_option(dialog_line, 0, reasons, reason_width);
        if (reason == escaped) return escaped;
        if (reason != without_rejects && !reject(species, reasons[reason], draw_again)) return escaped;
    }
    set_destroyed(species, true);
    mark_changed();
    return ok;
}

int destroy_sequence(Removal mode)
{
    const int species = require_species();
    if (species < 0) return escaped;
    if (cursor_ensemble_size() < 2) warn_few_species("");
    if (nb_spec_affich == 1) return escaped; // the last row on display stays
    if (destroy_sequence_int(species, mode) == escaped) return escaped;
    take_cursor_row_away();
    nudge_cursor();
    close_ranks();
    return ok;
}

void discard_species()
{
    const int species = require_species();
    if (species < 0) return;
    if (cursor_ensemble_size() < 2) {
        warn_few_species(" (use F6)");
        return;
    }
    const auto question = text_format("Do you want to discard %s", identifier(species).data());
    if (!confirmed(question)) return;
    take_cursor_row_away();
    close_ranks();
}

} // namespace kq
