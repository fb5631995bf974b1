// screen: drawing the alignment.
#include "editor/display.h"

#include "core/consensus.h"
#include "core/merging.h"
#include "core/options.h"
#include "core/residues.h"
#include "core/store.h"
#include "editor/colour_scale.h"
#include "editor/shown_columns.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/identifiers.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kq {

namespace {

constexpr int identifier_width = 28;
constexpr int mark_column = 29;
constexpr int area_column = 30; // text column of the area's first column
constexpr int menu_width = 100;

constexpr std::string_view menus[] = {
    "F1:Help F2:Modify F3:Create F4:Display F5:Save F6:Discard F7:NJ F8:Options",
    "r:Paste-Right l:Paste-Left F2:Select-Master F12:Delete ESC:return",
    "(:Mark-Beginning-Region ):Mark-End-Region ESC:Return",
};

// ---- colours ----------------------------------------------------------------------------------------------

struct CellColours {
    int text = color::light_grey, background = color::black;
    bool operator==(const CellColours&) const = default;
};

// Background and text are taken at their own levels.
CellColours residue_colours(char c, int background_level, int text_level)
{
    const int code = residue_codes(type_seq)[static_cast<unsigned char>(c)];
    if (code == code_none) return {};
    const auto& classes = type_seq ? color_char_prot : color_char_arn;
    const int entry = classes[static_cast<std::size_t>(code)] * conservation_levels;
    return {fg_scale[static_cast<std::size_t>(entry + text_level)],
            bg_scale[static_cast<std::size_t>(entry + background_level)]};
}

// Deliberate: the background of a species row is that of level 0, its text that of level 1.
CellColours species_colours(char c)
{
    return residue_colours(c, 0, 1);
}

CellColours consensus_colours(char c, int level)
{
    return residue_colours(c, level, level);
}

void set_colours(CellColours colours)
{
    _settextcolor(colours.text);
    _setbgcolor(colours.background);
}

// ---- rows -------------------------------------------------------------------------------------------------

void set_area_window()
{
    _settextwindow(1, area_column, _nb_line - 2, _nb_col);
}

// Collects the cells of a row of the area from left to right and draws them in one call.
class RowWriter {
public:
    RowWriter(int row, int column)
        : row_(row)
        , column_(column)
    {
        cells_.reserve(cells_to_edge());
    }
    void put(char c, CellColours colours)
    {
        cells_.push_back({static_cast<unsigned char>(c), static_cast<unsigned char>(colours.text),
                          static_cast<unsigned char>(colours.background)});
    }
    // Blanks up to the blank column at the right edge, then the row is drawn.
    void finish()
    {
        cells_.resize(std::max(cells_.size(), cells_to_edge()));
        _outcells(row_, column_, cells_);
    }

private:
    int row_, column_;
    std::vector<Cell> cells_;

    std::size_t cells_to_edge() const
    {
        return static_cast<std::size_t>(std::max(area_width() + 1 - (column_ - 1), 0));
    }
};

// What stands for c where the top row holds `reference`.
char dashed(char c, char reference)
{
    return opt_tiret == 0 && c == reference && !is_editable_gap(c) ? '-' : c;
}

template <class Colours>
void draw_row(int row, int first_column, const RowText* reference, const RowText& sequence,
              std::span<const int> shown, Colours colours_at)
{
    set_colours({});
    _settextposition(row, 0);
    _outchar(' ');
    RowWriter writer(row, first_column);
    for (const int position : shown) {
        const char c = sequence.at(position);
        writer.put(reference ? dashed(c, reference->at(position)) : c, colours_at(c, position));
    }
    writer.finish();
}

std::string blanks(int count)
{
    return std::string(static_cast<std::size_t>(std::max(count, 0)), ' ');
}

void affich_ensemble_name(int ensemble)
{
    const auto label = text_format("%2d: %-24s", ensemble + 1, ens_names[ensemble]);
    _settextcolor(color::white);
    _outtext(padded(label, identifier_width));
    _settextcolor(color::light_grey);
}

// What stands at the right end of a species' name: the score that opt_evalue chooses where there is one, and
// in EST mode the mark of a species that can be merged.
std::string beside_identifier(int species)
{
    const auto s = static_cast<std::size_t>(species);
    std::string text;
    if (opt_evalue != 0) {
        const double score = evalue[s][static_cast<std::size_t>(opt_evalue - 1)];
        if (score != -1.0) text = text_format("%8.1e", score);
        if (!text.empty() && text.front() != ' ') text.insert(0, " "); // apart from the name
    }
    if (kq_mode == 1 && mergeable[s]) text += '+';
    return text;
}

void affich_species_name(int species)
{
    outtext_ident(species, identifier_width, beside_identifier(species));
}

} // namespace

void choice_char_color(char c)
{
    set_colours(species_colours(c));
}

void choice_char_color_cons(char c, int level)
{
    set_colours(consensus_colours(c, level));
}

void affich_one_seq(int row, int first_column, const RowText* reference, const RowText& sequence,
                    std::span<const int> shown)
{
    draw_row(row, first_column, reference, sequence, shown, [](char c, int) { return species_colours(c); });
}

void affich_one_seq_cons(int row, int first_column, const RowText* reference, const RowText& sequence,
                         std::span<const int> shown)
{
    draw_row(row, first_column, reference, sequence, shown,
             [&](char c, int position) { return consensus_colours(c, sequence.level(position)); });
}

void affich_all_seq(int offset)
{
    const int first = dec_pos_curs + offset;
    const int first_column = shown_between(dec_pos_curs, first) + 1;
    affich_penultimate_line(first_column, offset);

    const auto shown = shown_from(first, area_width() - first_column + 1);
    set_area_window();
    const RowText reference = row_text(top_row());
    DisplayRow row = top_row();
    for (int line = 1; line <= shown_rows(); line++, row = next_row(row)) {
        const auto draw = collapsed(row.ensemble) ? affich_one_seq_cons : affich_one_seq;
        draw(line, first_column, line == 1 ? nullptr : &reference, row_text(row), shown);
    }
    for (int line = shown_rows() + 1; line <= _nb_line - 2; line++)
        RowWriter(line, first_column).finish();
}

void affich_all_species()
{
    _settextwindow(1, 1, _nb_line - 2, mark_column);
    DisplayRow row = top_row();
    for (int line = 1; line <= _nb_line - 2; line++) {
        set_colours({});
        if (line > shown_rows()) {
            _settextposition(line, 1);
            _outtext(blanks(mark_column));
            continue;
        }
        _settextposition(line, mark_column);
        _outchar(' ');
        _settextposition(line, 1);
        if (collapsed(row.ensemble))
            affich_ensemble_name(row.ensemble);
        else
            affich_species_name(members(row.ensemble)[static_cast<std::size_t>(row.index)]);
        row = next_row(row);
    }
    set_colours({});
}

void affich_menu_affich_seq()
{
    set_colours({});
    _settextwindow(_nb_line - 1, 1, _nb_line, _nb_col);
    _settextposition(1, 1);
    _outtext(blanks(_nb_col)); // what another screen left between the headings
    outtext_at(2, 1, color::light_cyan, padded(menus[kq_mode], std::max(menu_width, _nb_col)));
    affich_all_species();
    affich_all_seq(0);
}

namespace {

// Columns of the status line, counted from the left edge of the screen.
constexpr int ensemble_heading_column = area_column, ensemble_column = 40, species_heading_column = 79;
constexpr int species_after_heading = 9; // columns from the heading to the number

// How far the species' heading and number move left to stay in a window too narrow for them. The name of the
// ensemble gives way; a window without room for that much either shows neither heading nor number.
int species_shift()
{
    constexpr int last_column = species_heading_column + species_after_heading + 3;
    constexpr int most = 25; // of the 34 columns of the ensemble
    const int missing = std::max(last_column - _nb_col, 0);
    return missing > most ? 0 : missing;
}

} // namespace

// ---- the line under the area ------------------------------------------------------------------------------

namespace {

void affich_consensus(int first_column, int offset)
{
    RowWriter writer(1, first_column);
    for (const int position : shown_from(dec_pos_curs + offset, area_width() - first_column + 1))
        writer.put(ligne_consensus[position], {});
    writer.finish();
}

// How the bounds of the region are laid out: columns of the line from the left edge of the area. A line too
// narrow for one layout takes the next.
struct RegionLayout {
    int width;
    struct Bound {
        std::string_view label;
        int label_column, number_column;
    } beginning, end;
};
constexpr RegionLayout region_layouts[] = {
    {68, {"Beginning of selected region", 1, 30}, {"End of selected region", 40, 63}},
    {47, {"Beginning of selected region", 1, 30}, {"End", 38, 42}},
    {28, {"Beginning", 1, 11}, {"End", 19, 23}},
    {0, {"", 1, 1}, {"", 8, 8}},
};

void affich_region_bound(const RegionLayout::Bound& bound, int position)
{
    if (position == -1) return;
    outtext_at(1, bound.label_column, color::light_grey, bound.label);
    outtext_at(1, bound.number_column, color::yellow, text_format("%6d", position + 1));
}

void affich_region()
{
    const int width = std::max(_nb_col - area_column + 1, 0);
    const auto* layout = region_layouts;
    while (layout->width > width)
        layout++;
    affich_region_bound(layout->beginning, pos_deb);
    affich_region_bound(layout->end, pos_fin);
}

} // namespace

void affich_penultimate_line(int first_column, int offset)
{
    static int previous_mode = -1, previous_consensus = -1;
    _settextwindow(_nb_line - 1, area_column, _nb_line - 1, _nb_col);
    set_colours({});
    if (kq_mode != previous_mode || opt_consensus != previous_consensus) _clearscreen(1);
    previous_mode = kq_mode;
    previous_consensus = opt_consensus;

    if (kq_mode == 2) {
        affich_region();
    } else if (kq_mode == 0 && opt_consensus != 0) {
        affich_consensus(first_column, offset);
    } else if (kq_mode == 0) {
        _settextposition(1, ensemble_heading_column - area_column + 1);
        _outtext("#Ensemble");
        _settextposition(1, species_heading_column - area_column + 1 - species_shift());
        _outtext("#Species");
    }
    set_colours({});
}

void affich_cursor_numbers()
{
    const RowText row = row_text(cursor_row());
    const auto read = row.text.substr(0, static_cast<std::size_t>(cursor_position()) + 1);
    const auto gaps = std::count_if(read.begin(), read.end(), is_editable_gap);
    const auto residues = static_cast<int>(std::ssize(read) - gaps);
    _settextwindow(_nb_line - 1, 1, _nb_line - 1, _nb_col);
    set_colours({color::yellow, color::black});
    _settextposition(1, 1);
    _outtext(text_format("%6d/%6d", cursor_position() + 1, residues));
    set_colours({});
}

void affich_status()
{
    affich_cursor_numbers();
    if (opt_consensus != 0) return;
    const int shift = species_shift();
    const auto ensemble = text_format("%2d: %-30s", ens_curs + 1, ens_names[ens_curs]);
    const int room = species_heading_column - 1 - ensemble_column - shift;
    outtext_at(1, ensemble_column, color::yellow, ensemble.substr(0, static_cast<std::size_t>(room)));
    _settextposition(1, species_heading_column + species_after_heading - shift);
    _outtext(text_format("%-4d", spec_curs + 1));
    _settextcolor(color::light_grey);
}

// ---- the cursor -------------------------------------------------------------------------------------------

namespace {

void affich_cursor_residue(bool on)
{
    const int position = cursor_position();
    const RowText row = row_text(cursor_row());
    const char c = row.at(position);
    CellColours colours;
    if (!on) colours = row.levels ? consensus_colours(c, row.level(position)) : species_colours(c);
    const char reference = row_text(top_row()).at(position);
    set_area_window();
    set_colours(colours);
    _settextposition(ligne_curs, colonne_curs);
    _outchar(cursor_row() == top_row() ? c : dashed(c, reference));
}

} // namespace

void affich_nuc_site(bool on)
{
    if (!on) _clean_cursor();
    const bool drawn = colonne_curs <= area_width(); // a very narrow window has no room for the area
    if (nb_spec_affich > 0) {
        if (drawn) affich_cursor_residue(on);
        _settextwindow(1, 1, _nb_line - 2, _nb_col);
        set_colours({color::yellow, color::black});
        _settextposition(ligne_curs, mark_column);
        _outchar(on ? '<' : ' ');
    }
    if (drawn && kq_mode == 0 && opt_consensus != 0) {
        _settextwindow(_nb_line - 1, area_column, _nb_line - 1, _nb_col);
        set_colours({on ? color::yellow : color::light_grey, color::black});
        _settextposition(1, colonne_curs);
        _outchar(ligne_consensus[cursor_position()]);
    }
    set_colours({});
    set_area_window();
    if (on) _display_cursor(ligne_curs, colonne_curs);
}

} // namespace kq
