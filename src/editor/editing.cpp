// screen: the commands that change the sequences.
#include "editor/editing.h"

#include "core/residues.h"
#include "core/store.h"
#include "editor/navigation.h"
#include "editor/prompts.h"
#include "editor/view.h"
#include "screen/dialogs.h"
#include "screen/strings.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace kq {

namespace {

constexpr int box_right = 70, wide_box_right = 90;

// The largest growth up to n that is allowed.
int possible_growth(int n)
{
    while (n > 0 && !may_grow(n))
        n--;
    return n;
}

// The text of a species, filled up with blanks to the alignment's length; longer where residues were typed.
std::string whole_text(int species)
{
    const auto text = row(species);
    std::string whole(text.data(), text.size());
    whole.resize(std::max(whole.size(), static_cast<std::size_t>(nb_nuc_tot)), ' ');
    return whole;
}

// Puts the changed text back, without blanks beyond the alignment.
void put_text(int species, std::string text)
{
    while (std::ssize(text) > nb_nuc_tot && text.back() == ' ')
        text.pop_back();
    replace_text(species, text);
}

// Closes up the gaps of text[first, last) to the left, the last ones first, at most `most` of them; blanks
// enter at the end of the text. Returns how many there were.
int close_gaps(std::string& text, int first, int last, int most)
{
    int removed = 0;
    auto to = text.begin() + last;
    for (auto from = to; from != text.begin() + first;) {
        --from;
        if (removed < most && is_editable_gap(*from))
            removed++;
        else
            *--to = *from;
    }
    std::move(to, text.end(), text.begin() + first);
    std::fill(text.end() - removed, text.end(), ' ');
    return removed;
}

} // namespace

Rows target_rows()
{
    const int species = cursor_species();
    return species >= 0 ? Rows::one(species) : Rows::of_ensemble(ens_curs);
}

// ---- gaps at the cursor

bool grown(Growth growth)
{
    if (growth == Growth::too_long) warn("The sequences are too long (see DOC)");
    if (growth == Growth::no_memory) warn("Insufficient available memory");
    return growth == Growth::grown;
}

int allonge_seq(int n)
{
    return grown(grow_alignment(n)) ? ok : escaped;
}

int add_char(char c)
{
    return add_chars(c, 1);
}

int add_chars(char c, int n)
{
    mark_changed();
    const Rows rows = target_rows();
    const int position = cursor_position();
    const int free_columns = free_columns_at_end(rows);
    // Where only gaps follow the cursor, the inserted ones push each other out.
    const int lacking = free_columns >= nb_nuc_tot - position ? 0 : std::max(0, n - free_columns);
    const int growth = possible_growth(lacking);
    if (growth > 0 && allonge_seq(growth) != ok) return escaped;
    const bool inserted = insert_chars(rows, position, n - (lacking - growth), c);
    if (growth == lacking && inserted) return ok;
    grown(Growth::too_long);
    return escaped;
}

int suppr_char()
{
    mark_changed();
    const Rows rows = target_rows();
    if (!all_editable_gaps(rows, cursor_position())) return escaped;
    delete_chars(rows, cursor_position(), 1);
    return ok;
}

void suppr_all_chars()
{
    mark_changed();
    const Rows rows = target_rows();
    int last = cursor_position();
    while (last < nb_nuc_tot && all_editable_gaps(rows, last))
        last++;
    if (last > cursor_position()) delete_chars(rows, cursor_position(), last - cursor_position());
}

// ---- columns of gaps

Redraw inser_star_all()
{
    if (!is_display_row(cursor_row())) return redraw_none; // without a target all species would be pushed
    const int n = ask_count("Number of stars to insert =", box_right);
    if (n == 0 || !grown(open_columns(target_rows(), cursor_position(), n))) return redraw_screen;
    mark_changed();
    reactualise(-1);
    return redraw_screen;
}

// ---- runs of gaps

void remove_gap_gauche()
{
    const int species = require_species();
    if (species < 0) return;
    const int n = ask_count("Number of gaps to be removed on the left of cursor =", wide_box_right);
    if (n == 0) return;
    std::string text = whole_text(species);
    const int removed = close_gaps(text, 0, cursor_position() + 1, n);
    if (removed > 0) {
        mark_changed();
        put_text(species, std::move(text));
    }
    if (removed < n) warn(text_format("Only %d gaps out of %d have been removed", removed, n));
}

void remove_gap_droite()
{
    const int species = require_species();
    if (species < 0) return;
    if (!confirmed("Do you want to remove all the gaps on the right of cursor?")) return;
    std::string text = whole_text(species);
    const int end = static_cast<int>(text.size());
    if (close_gaps(text, cursor_position(), end, end) == 0) return;
    mark_changed();
    put_text(species, std::move(text));
}

void supprime_gap()
{
    const int species = require_species();
    if (species < 0) return;
    const auto question = "Do you want to remove gaps in " + std::string(identifier(species));
    if (!confirmed(question)) return;
    mark_changed();
    std::string text = whole_text(species);
    const int end = static_cast<int>(text.size());
    close_gaps(text, 0, end, end);
    put_text(species, std::move(text));
    reactualise(ens_curs);
    goto_debut();
}

// ---- ends of a sequence

namespace {

// Marks where a sequence was cut off: unknown residues.
constexpr std::string_view cut_mark{"XXX"};

void shorten_right(int species, int position)
{
    std::string text = whole_text(species).substr(0, static_cast<std::size_t>(position));
    text += cut_mark;
    text.resize(static_cast<std::size_t>(nb_nuc_tot), ' ');
    put_text(species, std::move(text));
}

void shorten_left(int species, int position)
{
    std::string text(static_cast<std::size_t>(position) - cut_mark.size(), ' ');
    text += cut_mark;
    overwrite(species, 0, text);
}

} // namespace

void put_X()
{
    const int species = require_species();
    if (species < 0) return;
    const auto question = text_format("Do you want to shorten %s?", identifier(species).data());
    if (!confirmed(question)) return;
    constexpr std::string_view sides[] = {"On the right of the cursor", "On the left of the cursor"};
    const int side = _choice_option(dialog_line, 0, sides, static_cast<int>(sides[0].size()));
    if (side == escaped) return;

    const int position = cursor_position();
    const bool has_room = side == 0 ? position + 3 < nb_nuc_tot : position - 3 > 0;
    if (!has_room) {
        ring_bell();
        return;
    }
    mark_changed();
    side == 0 ? shorten_right(species, position) : shorten_left(species, position);
}

void sequence_partielle()
{
    const int species = require_species();
    if (species < 0) return;
    const auto question = text_format("Is %s partial?", identifier(species).data());
    if (!confirmed(question)) return;

    std::string text = whole_text(species);
    const auto is_letter = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto first = std::find_if(text.begin(), text.end(), is_letter);
    if (first == text.end()) return;
    const auto after_last = std::find_if(text.rbegin(), text.rend(), is_letter).base();
    std::fill(text.begin(), first, ' ');
    std::fill(after_last, text.end(), ' ');
    put_text(species, std::move(text));
}

} // namespace kq
