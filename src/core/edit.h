// model: the edit door. Every change of a row's characters, of the alignment length, of an identifier, of a
// mask or destroy flag and of an ensemble's membership goes through these primitives.
//
// Each keeps the column counts exact by the change alone and notes which columns are dirty for each
// consensus; none shows anything or sets `modif` (its callers do). Each is invertible: what undoing needs is
// known when it runs. Positions are 0-based columns, 0 <= p < nb_nuc_tot unless said otherwise. A row whose
// text is shorter than the alignment is first filled up with blanks by the gap primitives; text beyond
// nb_nuc_tot is never lost.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace kq {

// The rows that an editing command works on: one species, every member of an ensemble (edited as one: its
// counts are shifted instead of recounted), or none.
class Rows {
public:
    static Rows none() { return Rows(-1, -1); }
    static Rows one(int species) { return Rows(species, -1); }
    static Rows of_ensemble(int ensemble) { return Rows(-1, ensemble); }
    std::span<const int> species() const;
    int ensemble() const { return ensemble_; } // -1 for a single species and none

private:
    Rows(int species, int ensemble)
        : species_(species)
        , ensemble_(ensemble)
    {
    }
    int species_, ensemble_;
};

// ---- characters

// Moves the text from p on n places right in each row and fills the gap with c, a blank or "*". At the end of
// the row's text up to n blanks and "*" are dropped; nothing else ever is: a residue that leaves the last
// column moves on beyond nb_nuc_tot (ask free_columns_at_end first, and grow the alignment to keep it in
// sight). False, and nothing changed, when a row's text would become longer than a row can be.
bool insert_chars(const Rows& rows, int p, int n, char c);
// How many columns at the end of the alignment hold a blank or "*" in every row.
int free_columns_at_end(const Rows& rows);
// Moves the text after p + n - 1 n places left. Blanks enter at the end, or the text beyond nb_nuc_tot does.
void delete_chars(const Rows& rows, int p, int n);
// Whether every row holds a blank or "*" at p.
bool all_editable_gaps(const Rows& rows, int p);
// Replaces text.size() characters from p on; p + text.size() <= nb_nuc_tot. A shorter row is filled up with
// blanks first.
void overwrite(int species, int p, std::string_view text);
// Replaces the whole text of a row, the part beyond nb_nuc_tot included; shorter than a row's stride.
void replace_text(int species, std::string_view text);

// Changes the columns [first, last) of many rows, 0 <= first < last <= nb_nuc_tot: `change` gets each of
// the species once with those characters, in no order and from several threads, and puts others in their
// place, no NUL among them. Shorter rows are filled up with blanks first. Counts change once, after all rows.
void rewrite_columns(std::span<const int> species, int first, int last,
                     const std::function<void(int species, std::span<char>)>& change);

// Typing into a primary sequence: the row's own text grows or shrinks by one, the alignment keeps its length.
// insert_residue returns false when the row has reached one byte before its stride, or the longest line that
// can be read back. p may be the text's length (appending) or beyond (blanks fill up to it).
bool insert_residue(int species, int p, char c);
void delete_residue(int species, int p);

// ---- alignment length

// Whatever the reason of a refusal, nothing has changed: memory is had before the first row is touched, and
// blocks that cannot become larger stay as they are.
enum class Growth { grown, too_long, no_memory };
// Whether the alignment may grow by n columns: nb_nuc_tot + n + 1 < lenseq_tot and nb_nuc_tot + n within
// max_alignment.
bool may_grow(int n);
// Reallocates the column flags and consensus strings for n more columns, then lengthens the alignment: n
// blanks at the end of every row, or as much of the text that a row had beyond nb_nuc_tot.
Growth grow_alignment(int n);
// grow_alignment and, in one pass: every row but `kept` moves n places right from p on, 0 <= p <= nb_nuc_tot;
// the opened places hold "*", or blanks inside missing sequence (see shift_filler). too_long also when the
// text of a row would become longer than a row can be.
Growth open_columns(const Rows& kept, int p, int n);
// What fills places opened at p in a row: blanks inside missing sequence, else "*". p = 0: a blank when the
// old first character is one; p = the last position or the end: when the character before p is one; otherwise
// when both the character before p and the old one at p are.
char shift_filler(int species, int p);

// ---- species

enum class Adding { added, too_many_species, too_many_characters, no_memory };
// A new row at index nb_spec: re-strides the block, moves the rows; the row's text is `text`, at most
// nb_nuc_tot characters (its end stands at its own length), pc_len = text length x 100 / nb_nuc_tot. It
// belongs to no ensemble yet; its group is the caller's to set. Unless it was added nothing has changed.
// too_many_characters: a row, or the text of one beyond nb_nuc_tot, would not fit the new stride. no_memory:
// the identifiers.
Adding add_species(std::string_view identifier, std::string_view text);
void set_identifier(int species, std::string_view identifier); // cut to 79 characters
void set_masked(int species, bool masked);
void set_destroyed(int species, bool destroyed);

// ---- ensembles

// A new empty ensemble at index nb_ens, shown species by species, consensus strings allocated; its index, or
// -1 when memory is refused or max_ensembles exist.
int add_ensemble();
// Takes an ensemble out: the later ones move down by one (members, display, names), the consensus strings
// stay (see core/consensus.h); slots that got another ensemble are dirty as a whole.
void remove_ensemble(int ensemble);
// At most max_ensemble_species members are taken; a species is a member once, repeats are left out.
void set_members(int ensemble, std::span<const int> species);
bool append_member(int ensemble, int species); // false when the ensemble is full or has it already
void remove_member(int ensemble, int index);
void set_collapsed(int ensemble, bool is_collapsed); // does not compute the consensus
void set_ensemble_name(int ensemble, std::string_view name);
// One empty ensemble without a name, shown species by species: the state before an alignment is chosen.
void reset_ensembles();

} // namespace kq
