// screen: the display options and the palette editor.
#include "editor/options_screen.h"

#include "core/columns.h"
#include "core/consensus.h"
#include "core/options.h"
#include "core/store.h"
#include "editor/colour_scale.h"
#include "editor/navigation.h"
#include "editor/options_file.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "raster/grx.h"
#include "raster/keys.h"
#include "screen/dialogs.h"
#include "screen/strings.h"
#include "screen/text.h"
#include "taxonomy/identifiers.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <span>
#include <string>
#include <string_view>

namespace kq {

namespace {

constexpr int text_column = 3;

// A write that fails costs nothing but the file: the settings stay as they are in memory.
void write_options()
{
    if (const auto error = sauve_config_affiche(); !error.empty())
        warn("The display options are not saved: " + error);
}

void open_box(const Box& box)
{
    _setbgcolor(color::black);
    window_hp(box.l1, box.c1, box.l2, box.c2, color::cyan);
}

// ---- the box with the current values ----------------------------------------------------------------------

constexpr Box options_box = {2, 30, 7, 90};
constexpr int first_value_line = 2;

struct OptionLine {
    std::string_view label;
    std::string_view (*value)();
};

constexpr std::string_view yes_or_no(bool yes)
{
    return yes ? "Yes" : "No ";
}

// Deliberate: "Yes" stands for 0 in the first and the third line, for 1 in the second.
constexpr OptionLine option_lines[] = {
    {"Replacement of identical characters by a dash:", [] { return yes_or_no(opt_tiret == 0); }},
    {"Display with gaps shared by selected species:", [] { return yes_or_no(opt_nogap != 0); }},
    {"Display with background colors:", [] { return yes_or_no(opt_couleur == 0); }},
    {"Display of the identifier:",
     [] {
         constexpr std::string_view forms[] = {"Genus species", "G. species   ", "Genus        "};
         return forms[opt_identificateur];
     }},
};

// ---- the menu ---------------------------------------------------------------------------------------------

constexpr int menu_line = 13, menu_width = 69, choice_line = 14;

template <std::size_t count>
void choose(int& option, const std::string_view (&labels)[count])
{
    const auto widest = std::ranges::max_element(labels, {}, &std::string_view::size);
    const int width = static_cast<int>(widest->size()) + 1; // a blank before the frame
    const int chosen = _choice_option(choice_line, option, labels, width);
    if (chosen != escaped) option = chosen;
}

void choose_dashes()
{
    static constexpr std::string_view labels[] = {"Replacement of identical characters by a dash",
                                                  "No replacement of identical characters by a dash"};
    choose(opt_tiret, labels);
}

void choose_gaps()
{
    static constexpr std::string_view labels[] = {"Display without the gaps shared by selected species",
                                                  "Display with the gaps shared by selected species"};
    const int before = opt_nogap;
    choose(opt_nogap, labels);
    if (opt_nogap == before) return;
    recompute_hidden(opt_nogap != 0, 0);
    if (nb_nuc == 0) { // nothing would be left to show, which ends the program
        opt_nogap = before;
        recompute_hidden(opt_nogap != 0, 0);
        warn("There are no residues in the selected species");
        return;
    }
    goto_debut();
}

void choose_background()
{
    static constexpr std::string_view labels[] = {"Display with background colors",
                                                  "Display without background colors"};
    choose(opt_couleur, labels);
}

void choose_last_line()
{
    static constexpr std::string_view labels[] = {"Display with the numbering of species and ensemble",
                                                  "Display of the consensus value of the selected species",
                                                  "Display of the consensus value of all the species"};
    choose(opt_consensus, labels);
    compute_ligne_consensus(); // whether or not another one was chosen
}

struct MenuEntry {
    std::string_view label;
    void (*run)();
};
constexpr MenuEntry entries[] = {
    {"Choice of replacement of identical characters by a dash           ->", choose_dashes},
    {"Choice of the display without the gaps shared by selected species ->", choose_gaps},
    {"Choice of the display of background colors                        ->", choose_background},
    {"Choice of display mode for identifiers                            ->", [] { choice_ident(); }},
    {"Choice of display mode for the penultimate line                   ->", choose_last_line},
    {"Choice of palette of colors                                       ->", choice_palette},
};

// The alignment as it looks with the current options, and the box of the options over it.
void draw_options()
{
    draw_rows_again();
    affich_cadre_config_affiche();
    affich_config_affiche();
}

} // namespace

void affich_cadre_config_affiche()
{
    open_box(options_box);
    for (int line = first_value_line; const auto& option : option_lines)
        outtext_inside(line++, text_column, color::light_grey, option.label);
}

void affich_config_affiche()
{
    const Box box = fit_box(options_box);
    _settextwindow(box.l1, box.c1, box.l2, box.c2);
    _setbgcolor(color::black);
    const int columns = box.c2 - box.c1 + 1;
    for (int line = first_value_line; const auto& option : option_lines) {
        const auto value = option.value();
        // One blank after the label; in a narrow window the value goes over the label's end.
        const int after_label = text_column + static_cast<int>(option.label.size()) + 1;
        const int column = std::min(after_label, columns - static_cast<int>(value.size()));
        outtext_inside(line++, column - 1, color::light_green, " " + std::string(value));
    }
}

void choice_config_affiche()
{
    std::array<std::string_view, std::size(entries)> labels;
    std::ranges::transform(entries, labels.begin(), &MenuEntry::label);
    int last = 0;
    for (;;) {
        draw_options();
        const int chosen = _choice_option(menu_line, last, labels, menu_width);
        if (chosen == escaped) break;
        last = chosen;
        draw_options(); // the next box may be a smaller one
        entries[chosen].run();
    }
    write_options();
    draw_rows_again();
}

// ---- the palette ------------------------------------------------------------------------------------------

namespace {

constexpr Box palette_box = {8, 30, 22, 80};
constexpr int class_line = 5; // of class 0
constexpr int mark_column = 4, example_column = 7, letters_column = 17;
constexpr int letters_width = 30;
constexpr int legend_line = 14;
constexpr int example_level = 1;
constexpr char shown_for_blank = '?';

std::array<int, 30>& colour_table()
{
    return type_seq ? color_char_prot : color_char_arn;
}

// The characters whose residue codes are in a colour class.
std::string letters_of_class(int colour_class)
{
    std::string letters;
    for (std::size_t code = 0; caractere[code]; code++)
        if (colour_table()[code] == colour_class)
            letters += caractere[code] == ' ' ? shown_for_blank : caractere[code];
    return letters;
}

class PaletteEditor {
public:
    void run()
    {
        draw();
        for (;;) {
            affich_mark("=>");
            const int pressed = GrKeyRead();
            if (pressed == key::f5 || pressed == key::escape) {
                if (pressed == key::escape) restore();
                _clearscreen(1);
                return;
            }
            affich_mark("  ");
            act(pressed);
        }
    }

private:
    int selected_ = 0; // colour class
    int skipped_ = 0;  // letters scrolled away on the left
    int room_ = 1;     // for letters
    // What ESCAPE restores: a file that could not be written does not hold it.
    const std::array<int, 30> before_arn_ = color_char_arn, before_prot_ = color_char_prot;

    void restore() const
    {
        color_char_arn = before_arn_;
        color_char_prot = before_prot_;
    }

    void act(int pressed)
    {
        switch (pressed) {
        case key::up:
            selected_ = (selected_ + colour_classes - 1) % colour_classes;
            break;
        case key::down:
            selected_ = (selected_ + 1) % colour_classes;
            break;
        case key::left:
            scroll_letters(-1);
            break;
        case key::right:
            scroll_letters(1);
            break;
        default:
            displace(pressed);
            break;
        }
    }

    // By what a narrow window has room for, as far as there are letters.
    void scroll_letters(int direction)
    {
        int longest = 0;
        for (int k = 0; k < colour_classes; k++)
            longest = std::max(longest, static_cast<int>(letters_of_class(k).size()));
        skipped_ = std::clamp(skipped_ + direction * room_, 0, std::max(longest - room_, 0));
        affich_palette(skipped_);
    }

    // Moves the residue of a key to the selected class; the alignment shows it at once.
    void displace(int pressed)
    {
        if (pressed < ' ' || pressed >= key::del) return;
        const char c = pressed == shown_for_blank ? ' ' : static_cast<char>(std::toupper(pressed));
        const auto code = std::string_view(caractere).find(c);
        if (code == std::string_view::npos) return;
        colour_table()[code] = selected_;
        draw();
    }

    void affich_mark(std::string_view mark) const
    {
        outtext_inside(class_line + selected_, mark_column, color::yellow, mark);
    }

    void draw()
    {
        draw_options();
        open_box(palette_box);
        outtext_inside(2, text_column, color::light_grey, "Touching a key will displace its character into");
        outtext_inside(3, text_column, color::light_grey, "the color field marked by the yellow arrow");
        for (int k = 0; k < colour_classes; k++) {
            const auto entry = static_cast<std::size_t>(k * conservation_levels + example_level);
            _setbgcolor(bg_scale[entry]);
            outtext_inside(class_line + k, example_column, fg_scale[entry], "EXAMPLE");
            _setbgcolor(color::black);
            outtext_inside(class_line + k, example_column + 7, color::light_grey, " :");
        }
        constexpr std::string_view legend = "F5:Validate      ESCAPE:Cancel",
                                   short_legend = "F5:OK ESC:Cancel";
        const int columns = y2_win - y1_win + 1;
        const bool fits = columns > text_column + std::ssize(legend);
        outtext_inside(legend_line, text_column, color::light_cyan, fits ? legend : short_legend);
        room_ = std::max(columns - letters_column, 1);
        affich_palette(skipped_);
    }
};

} // namespace

void affich_palette(int skipped)
{
    for (int k = 0; k < colour_classes; k++) {
        const auto letters = letters_of_class(k);
        const auto shown = letters.substr(std::min(letters.size(), static_cast<std::size_t>(skipped)));
        outtext_inside(class_line + k, letters_column, color::light_green, padded(shown, letters_width));
    }
}

void choice_palette()
{
    write_options();
    PaletteEditor().run();
}

} // namespace kq
