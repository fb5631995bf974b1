// model: keeping the column counts exact while core/edit.h changes rows, the length and ensembles.
//
// Each object stands around a change: it notes what it needs when it is made and brings the tables up to date
// when it ends. Sets without counts cost nothing.
#pragma once

#include "core/count_table.h"
#include "core/counted_rows.h"

#include <span>
#include <vector>

namespace kq {

// One row changes within the columns [first, last) while this lives. `apart_from` is an ensemble whose own
// counts, and what it adds to the sums, are kept by an EnsembleChange; -1 = none.
class RowChange {
public:
    RowChange(int species, int first, int last, int apart_from = -1);
    ~RowChange();
    RowChange(const RowChange&) = delete;
    RowChange& operator=(const RowChange&) = delete;

private:
    int species_, first_, last_, apart_from_;
};
// Whether a RowChange would have anything to do.
bool row_is_counted(int species, int apart_from = -1);

// All members of an ensemble change alike from column `first` on while this lives: its table is changed, and
// with it the sums.
class EnsembleChange {
public:
    EnsembleChange(int ensemble, int first);
    ~EnsembleChange();
    EnsembleChange(const EnsembleChange&) = delete;
    EnsembleChange& operator=(const EnsembleChange&) = delete;
    void inserted(int n, char c); // after the rows: n characters c at `first`
    void erased(int n);           // after the rows: n characters at `first`; what entered at the end is read

private:
    int ensemble_, first_;
};

// Many rows change within the columns [first, last) while this lives. A table that counts mostly other rows
// is changed by these alone; the others are counted anew in these columns, once.
class RegionChange {
public:
    RegionChange(std::span<const int> species, int first, int last);
    ~RegionChange();
    RegionChange(const RegionChange&) = delete;
    RegionChange& operator=(const RegionChange&) = delete;

private:
    std::vector<CountedText> changed_texts(CountedSet set, int ensemble) const;
    bool counts_anew(const CountTable& counts, std::size_t changed) const;

    std::vector<char> is_changed_; // by species
    int first_, last_;
};

// n columns open at p in every row but the kept ones while this lives. When it ends the rows, and nb_nuc_tot,
// have changed.
class OpeningColumns {
public:
    OpeningColumns(std::span<const int> kept, int kept_ensemble, int p, int n);
    ~OpeningColumns();
    OpeningColumns(const OpeningColumns&) = delete;
    OpeningColumns& operator=(const OpeningColumns&) = delete;

    // To be set for each species while this lives: what fills the opened columns, 0 in a kept row.
    std::vector<char> fillers;

private:
    void open(CountTable& counts, CountedSet set, int ensemble) const;

    std::span<const int> kept_;
    int kept_ensemble_, p_, n_;
};

// The alignment, and with it each row, has become n columns longer at its end.
void counts_extended(int n);
// A row has been added; it belongs to no ensemble yet.
void counts_row_added(int species);
// Members leave and enter an ensemble, whose list may have changed already.
void counts_members_changed(int ensemble, std::span<const int> removed, std::span<const int> added);
// Before an ensemble is taken out and the later ones move down.
void counts_ensemble_removed(int ensemble);

} // namespace kq
