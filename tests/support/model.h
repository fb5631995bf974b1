// A plain model of the alignment: rows are strings and every question is answered by looking at them. Random
// edits run on it and on the store side by side.
#pragma once

#include "support/plain_reference.h"

#include <string>
#include <string_view>
#include <vector>

namespace kq::test {

struct PlainModel {
    struct Ensemble {
        std::vector<int> members;
        bool collapsed = false;
    };

    int type = 0, columns = 0;
    std::vector<std::string> rows; // each of its own length
    std::vector<Ensemble> ensembles = {{}};

    // The primitives of core/edit.h, one row at a time.
    void insert_chars(const std::vector<int>& species, int p, int n, char c);
    void delete_chars(const std::vector<int>& species, int p, int n);
    void overwrite(int species, int p, std::string_view text);
    void reverse_columns(const std::vector<int>& species, int first, int last); // through rewrite_columns
    void insert_residue(int species, int p, char c);
    void delete_residue(int species, int p);
    void grow(int n);
    void open_columns(const std::vector<int>& kept, int p, int n);

    char at(int species, int p) const;
    plain::Texts texts(const std::vector<int>& species) const;
    plain::Texts ensemble_texts() const; // of all ensembles, one after the other
    plain::Texts all_texts() const;

    std::string& padded(int species); // its row, with blanks up to the alignment's length

    // Puts the model into the store, as the reader does, without ensembles.
    void load() const;
    // "", or the first difference between the model and the rows, counts and ensembles of the store.
    std::string difference() const;
};

} // namespace kq::test
