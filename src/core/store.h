// model: the loaded alignment. Anyone may read it; rows, identifiers, flags and ensembles change only through
// core/edit.h, and are filled by the reader (core/ali_reader.h).
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace kq {

inline constexpr int max_species = 20000;
inline constexpr long seq_capacity = 300000000;
inline constexpr int max_ensembles = 50;
inline constexpr int max_ensemble_species = 10000;
inline constexpr int identifier_size = 80; // bytes, closing NUL included
inline constexpr int header_size = 100;
inline constexpr int max_alignment = 149997; // columns; a longer saved line could not be read back

// ---- the alignment --------------------------------------------------------------------------------------

// The block of seq_capacity bytes: one anonymous mapping, touched only where rows are. Species i is the row
// at seq + i * lenseq_tot; use row() instead of the arithmetic.
extern char* seq;
extern char* ident;    // identifier records of identifier_size bytes; null while nothing is loaded
extern int nb_spec;    // rows in use, deleted rows included; 0 = nothing loaded, else 1..max_species
extern int nb_nuc_tot; // alignment length in columns
extern int lenseq_tot; // row stride in bytes: seq_capacity / nb_spec
extern int type_seq;   // 0 = nucleic acid, 1 = protein
extern char molecule[header_size]; // text of the first header line
extern char domaine[header_size];  // text of the second header line
// The display character of each residue code: gap first, the unknown class (a blank) last; NUL-terminated.
extern char caractere[25];
extern std::string file_ALI; // name of the alignment's file in dir_SEQ

// 255 = nothing to save, 0 = changed since the last load or save.
// Deliberate: the sense is inverted. Write it only through mark_changed/mark_saved.
extern unsigned char modif;
void mark_changed();
void mark_saved();

// ---- per species, indexed by row (0-based); entries beyond nb_spec are neutral --------------------------

extern std::array<int, max_species> mask;              // -1 = masked, else 0
extern std::array<int, max_species> new_est;           // -1 = carries the "#NEW#" mark, else 0
extern std::array<unsigned char, max_species> destroy; // nonzero = deleted since the file was loaded
extern std::array<int, max_species> pc_len;            // percentage of non-blank characters at load time
extern std::array<std::array<double, 2>, max_species> evalue; // BLAST scores: .inf file, search; -1.0 = none
extern std::array<int, max_species> no_groupe; // group index in the frame, -1 before the .nom file is read
extern std::array<int, max_species> no_family; // paralog family, 0-based; 0 also without a family
// Length of the row's text. nb_nuc_tot but for rows typed into (modif_sequence) and added species: a shorter
// row reads as blanks from there on, a longer one is kept and saved whole. At most lenseq_tot - 1.
extern std::array<int, max_species> row_length;

// ---- ensembles: named, ordered lists of rows ------------------------------------------------------------

extern int nb_ens; // 1..max_ensembles
extern std::array<std::array<int, max_ensemble_species>, max_ensembles> cor_ens;
extern std::array<int, max_ensembles> nb_spec_ens; // members; 0 = empty, which has no rows on display
extern char ens_names[max_ensembles][identifier_size];
extern std::array<int, max_ensembles> type_affich_ens; // -1 = one row per species, 0 = one consensus row

// ---- reading --------------------------------------------------------------------------------------------

std::span<const char> row(int species);   // the row's text, without the closing NUL
char residue(int species, int position);  // 0-based; a blank beyond the row's text
std::string_view identifier(int species); // at most 79 characters
std::span<const int> members(int ensemble);
inline bool collapsed(int ensemble)
{
    return type_affich_ens[static_cast<std::size_t>(ensemble)] != -1;
}

// ---- filling (reader, start-up, tests) ------------------------------------------------------------------

// Reserves the big block; false when the system refuses. Called once at start.
bool store_allocate();
// State at program start; does not touch the big block.
void store_reset();
// Releases the identifiers (libere_memoire in core/lifecycle.h releases everything).
void store_release();
// Begins a fresh alignment of `species` rows of `columns` characters: sets the sizes and the stride,
// allocates ident, all rows empty. The name of the block that could not be had ("ident"), or "".
std::string store_begin(int species, int columns);
// Fills one row and its flags while loading: the text is padded with blanks to nb_nuc_tot; pc_len is
// computed. text.size() <= nb_nuc_tot.
void store_put(int species, std::string_view identifier, std::string_view text, bool masked, bool is_new);
// Where the reader copies a row of the next species by itself (lenseq_tot bytes).
char* row_storage(int species);
// Sets the decoding table for the loaded molecule type ("U" in the first sequence makes it RNA).
void set_caractere();

// Empty, or the first broken invariant.
std::string store_error();

} // namespace kq
