// screen: the similarity search.
#include "editor/similarity.h"

#include "core/consensus.h"
#include "core/store.h"
#include "core/work_buffer.h"
#include "editor/display.h"
#include "editor/editing.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/shown_columns.h"
#include "editor/species_line.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/fields.h"
#include "screen/prompt_field.h"
#include "screen/result_table.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/selection.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace kq {

namespace {

// Columns from the cursor to a hit; negative when the hit is left of it.
int distance_to(int hit)
{
    return posi[static_cast<std::size_t>(hit)] - cursor_position() - 1;
}

int hidden_between(int first, int last)
{
    return last - first - shown_between(first, last);
}

// Puts gaps in at the cursor until the residues there stand at the best hit.
void apply_best_hit(int shift)
{
    const int d = distance_to(0);
    if (d <= 0) return;
    const int position = cursor_position();
    const int hidden_before = hidden_between(position, position + d);
    const bool inserted = add_chars('*', d) == ok;
    reactualise(-1);
    if (!inserted || !shift) return;
    // Deliberate: the move counts shown positions, and columns hidden before count again.
    const int hidden_after = hidden_between(position, position + d);
    deplace_site_droite(d - (hidden_after - hidden_before));
}

// ---- the box of hits --------------------------------------------------------------------------------------

constexpr int hits_left = 30, hits_right = 85;
constexpr int first_separator = 21, second_separator = 36;

TableLine hits_line(int text_color, const std::string& matches, const std::string& position,
                    const std::string& distance, int matches_column, int position_column, int distance_column)
{
    TableLine line;
    put_text(line, matches_column, text_color, matches);
    put_text(line, position_column, text_color, position);
    put_text(line, distance_column, text_color, distance);
    put_text(line, first_separator, color::cyan, "*");
    put_text(line, second_separator, color::cyan, "*");
    return line;
}

ResultTable hits_table(std::string_view suffix)
{
    constexpr int width = hits_right - hits_left + 1;
    ResultTable table{.first_line = 1,
                      .first_column = hits_left,
                      .last_column = hits_right,
                      .frame_color = color::cyan,
                      .headings = {},
                      .lines = {}};
    TableLine title, stars, legend;
    put_text(title, 3, color::light_grey, "SEQ=" + std::string(pattern()) + std::string(suffix));
    put_text(stars, 2, color::cyan, std::string(width - 2, '*'));
    const auto length = text_format("in a total of %2d", static_cast<int>(pattern().size()));
    table.headings = {title, stars,
                      hits_line(color::light_grey, "Number of matches", "Position in", "Distance", 3, 23, 38),
                      hits_line(color::light_grey, length, "the sequence", "to cursor", 3, 23, 38)};
    for (int hit = 0; hit < tophits; hit++) {
        const auto i = static_cast<std::size_t>(hit);
        table.lines.push_back(hits_line(color::light_green, text_format("%2d", sim[i]),
                                        text_format("%5d", posi[i]), text_format("%6d", distance_to(hit)), 11,
                                        26, 39));
    }
    put_text(legend, 3, color::light_cyan, "Press any key to continue ... (, or . to apply that)");
    table.legend = {{}, legend};
    return table;
}

// The key that closed the box.
int show_box_of_hits(std::string_view suffix)
{
    const int pressed = ResultTableView(hits_table(suffix)).wait();
    _clearscreen(1);
    affich_menu_affich_seq();
    return pressed;
}

} // namespace

void calcul_similitude(std::string_view row, int mode, int shift, int window, std::string_view suffix)
{
    search_row(row, window, cursor_position());
    if (mode == rank_only) return;
    if (mode == apply_clear_hit) {
        if (distance_to(0) <= 0) return;
        if (hit_is_clear(distance_to(0), sim[0], sim[1])) {
            apply_best_hit(shift);
            return;
        }
    }
    const int pressed = show_box_of_hits(suffix);
    if (pressed == ',' || pressed == '.') apply_best_hit(shift);
}

// ---- aligning on the closest gap --------------------------------------------------------------------------

namespace {

void take_pattern(const RowText& row, int residues)
{
    set_pattern(residues_from(row.text, cursor_position(), residues));
}

// Moves to the next shown position where the top row has a gap and the cursor row none; false, and the last
// position, when there is none.
bool move_to_next_gap()
{
    const RowText top = row_text(top_row()), own = row_text(cursor_row());
    int steps = 1;
    int position = next_shown(cursor_position() + 1);
    while (position < nb_nuc_tot && (top.at(position) != '*' || own.at(position) == '*')) {
        position = next_shown(position + 1);
        steps++;
    }
    position < nb_nuc_tot ? deplace_site_droite(steps) : goto_fin();
    return position < nb_nuc_tot;
}

} // namespace

int aligne_proche()
{
    if (!move_to_next_gap()) return escaped;
    const int position = cursor_position();
    take_pattern(row_text(cursor_row()), typed_pattern);
    calcul_similitude(row_text(top_row()).text, apply_clear_hit, 1, whole_row, "");
    return cursor_position() == position ? escaped : ok;
}

// ---- typing the pattern -----------------------------------------------------------------------------------

int input_sub_seq(int max, int source)
{
    constexpr int left = 30, field_column = 21, field_length = 44, least_width = 46;
    std::string typed(pattern());
    if (source != -1) {
        const RowText row = row_text(source == 0 ? cursor_row() : top_row());
        typed = residues_from(row.text, cursor_position(), std::abs(max));
    }
    _setbgcolor(color::black);
    window_hp(10, std::clamp(_nb_col - least_width + 1, 1, left), 12, _nb_col, color::cyan);
    const int field = outtext_prompt(2, "Sequence sought =", field_column);
    const bool entered = enter_texte(typed, field_length, 2, field);
    _clearscreen(1);
    draw_rows_again();
    if (!entered) return escaped;
    set_pattern(typed);
    strupr(ss);
    return ok;
}

// ---- all species ------------------------------------------------------------------------------------------

namespace {

constexpr int posit_column = 11;
constexpr SpeciesLineColumns table_columns{.figures = 3, .species = 19, .taxon = 71};
constexpr int lines_of_question = 3, lines_between = 1;

// Asks for the 1-based position where the pattern begins in the row of a species, and takes it from there;
// false on ESCAPE. Position 0 is the first one too.
bool take_fragment(int species)
{
    constexpr int line = 6, left = 30, least_right = 70, number_width = 6;
    const auto prompt = text_format("Position of the fragment (1-%d) =", nb_nuc_tot);
    const int field_column = 4 + static_cast<int>(prompt.size());
    _setbgcolor(color::black);
    window_hp(line, left, line + 2, std::max(least_right, left + field_column + number_width), color::cyan);
    const int field = outtext_prompt(2, prompt, field_column, number_room);
    int position = 1;
    const bool entered = enter_int(position, 0, nb_nuc_tot, 2, field);
    _clearscreen(1);
    if (!entered) return false;
    set_pattern(residues_from(searched_text(species), std::max(position - 1, 0), fragment_pattern));
    return true;
}

TableLine ranked_line(std::size_t i)
{
    const auto score = text_format("%2d/%2d", sim_tous[i], static_cast<int>(pattern().size()));
    const auto figures =
        padded(score, posit_column - table_columns.figures) + text_format("%5d", posi_tous[i]);
    if (esp_tous[i] >= 0) return species_line(esp_tous[i], figures, table_columns);
    TableLine line;
    put_text(line, table_columns.figures, color::light_grey, figures);
    return line;
}

ResultTable species_table(bool from_fragment)
{
    ResultTable table{.first_line = 1,
                      .first_column = 1,
                      .last_column = _nb_col,
                      .frame_color = color::light_grey,
                      .headings = {},
                      .lines = {}};
    TableLine headings, legend;
    put_text(headings, table_columns.figures, color::light_grey, "Ident");
    put_text(headings, posit_column, color::light_grey, "Posit");
    put_species_headings(headings, table_columns);
    table.headings = {headings, {}};
    for (std::size_t i = 0; i < static_cast<std::size_t>(tophits); i++)
        table.lines.push_back(ranked_line(i));
    if (from_fragment) {
        table.lines_kept_free = lines_between + lines_of_question;
    } else {
        put_text(legend, 3, color::light_cyan, "Press any key to continue . . .");
        table.legend = {{}, legend};
    }
    return table;
}

// Shows the ranking and asks how many of its species to select; 0 on ESCAPE. Up and Down scroll the ranking.
int ask_number_to_select()
{
    constexpr int left = 20, right = 60, field_column = 33, proposed = 3;
    const int most = std::min(nb_spec - 1, max_species_hits);
    int number = std::min(proposed, most), pressed = 0;
    ResultTableView view(species_table(true));
    while (pressed != key::enter && pressed != key::escape) {
        view.draw();
        const int line = view.box().l2 + lines_between + 1;
        window_hp(line, left, line + lines_of_question - 1, right, color::light_grey);
        const int field = outtext_prompt(2, "Number of species to select =", field_column, number_room);
        pressed = input_int(number, 0, most, 2, field);
        view.scroll(pressed);
    }
    _clearscreen(1);
    return pressed == key::enter ? number : 0;
}

} // namespace

int simil_tous(int from_fragment, int species, int scope)
{
    if (from_fragment ? !take_fragment(species) : input_sub_seq(typed_pattern, 0) != ok) return 0;
    affich_progress("WORK IN PROGRESS", 10, 30, 52, color::yellow);
    search_species(species, scope);
    _clearscreen(1);
    if (!from_fragment) {
        ResultTableView(species_table(false)).wait();
        _clearscreen(1);
        return 0;
    }
    const int number = ask_number_to_select();
    const int before = nb_retenu;
    for (std::size_t i = 0; i < static_cast<std::size_t>(number); i++)
        if (esp_tous[i] >= 0) select_species(esp_tous[i]);
    return nb_retenu - before;
}

// ---- keys -------------------------------------------------------------------------------------------------

Redraw seek_in_top_row(int residues, int mode, int shift, int window)
{
    take_pattern(row_text(cursor_row()), residues);
    calcul_similitude(row_text(top_row()).text, mode, shift, window, "");
    return redraw_sequences;
}

Redraw align_once_key()
{
    aligne_proche();
    return redraw_all_rows;
}

// ---- the menu ---------------------------------------------------------------------------------------------

namespace {

void seek_on_first_sequence()
{
    if (input_sub_seq(typed_pattern, 0) != ok) return;
    calcul_similitude(row_text(top_row()).text, show_hits, 1, whole_row, "");
}

// Deliberate: whether a consensus is searched depends on the top row's ensemble, which consensus on the
// cursor's. One that was never computed has no hits.
std::string_view current_sequence()
{
    const auto e = static_cast<std::size_t>(ens_curs);
    if (collapsed(prem_ens))
        return seq_cons[e] ? std::string_view(seq_cons[e], static_cast<std::size_t>(nb_nuc_tot)) : "";
    if (!is_display_row(cursor_row())) return "";
    return searched_text(cor_ens[e][static_cast<std::size_t>(spec_curs)]);
}

void seek_on_current_sequence()
{
    if (input_sub_seq(typed_pattern, 1) != ok) return;
    calcul_similitude(current_sequence(), show_hits, 1, whole_row, "");
}

char complement(char c)
{
    switch (c) {
    case 'A':
        return 'U';
    case 'C':
        return 'G';
    case 'G':
        return 'C';
    case 'T':
    case 'U':
        return 'A';
    default:
        return c;
    }
}

void seek_reversed_on_first_sequence()
{
    if (input_sub_seq(typed_pattern, 0) != ok) return;
    const auto seek_on_top_row = [](std::string_view suffix) {
        calcul_similitude(row_text(top_row()).text, show_hits, 1, whole_row, suffix);
    };
    // Deliberate: a species' row also when the top ensemble is collapsed.
    const auto seek_on_top_species = [](std::string_view suffix) {
        if (!is_display_row(top_row())) return;
        const auto e = static_cast<std::size_t>(prem_ens), index = static_cast<std::size_t>(prem_spec);
        calcul_similitude(searched_text(cor_ens[e][index]), show_hits, 1, whole_row, suffix);
    };
    seek_on_top_row(" (normal)");
    strrev(ss);
    seek_on_top_row(" (inverse)");
    if (type_seq != 0) return;
    std::ranges::transform(ss, ss, complement);
    seek_on_top_species(" (inverse & complementary)");
    strrev(ss);
    seek_on_top_species(" (complementary)");
}

void rank_species(int scope)
{
    simil_tous(0, cursor_species(), scope);
    if (buffer) copy_field({buffer, buffer_size}, pattern());
}

} // namespace

Redraw gere_similitude()
{
    struct Entry {
        std::string_view label;
        void (*run)();
    };
    static constexpr Entry entries[] = {
        {"Similarities located on first sequence (seed=current sequence)", seek_on_first_sequence},
        {"Similarities located on current sequence (seed=first sequence)", seek_on_current_sequence},
        {"Similarities located on first sequence (seed=current sequence) Reverse",
         seek_reversed_on_first_sequence},
        {"Similarities located on all selected sequences (seed=current sequence)",
         [] { rank_species(ensemble_species); }},
        {"Similarities located on all sequences (seed=current sequence)", [] { rank_species(all_species); }},
    };
    constexpr int line = 1, entry_width = 73;
    std::array<std::string_view, std::size(entries)> labels;
    std::ranges::transform(entries, labels.begin(), &Entry::label);
    const int chosen = _choice_option(line, 0, labels, entry_width);
    draw_rows_again();
    if (chosen != escaped) entries[chosen].run();
    return redraw_screen; // tables also cover the lines below the rows
}

} // namespace kq
