// screen: file names in columns, with a cursor.
#pragma once

#include <span>
#include <string>

namespace kq {

// A view of a list of names in screen lines first_line to last_line: columns of names cut to 30 characters,
// 30 apart, filled from the left. A list that is longer scrolls by columns.
class FilenameList {
public:
    FilenameList(int first_line, int last_line);

    // Shows the names; the cursor stays, brought within the list. The names must outlive the view.
    void set_names(std::span<const std::string> names);

    void affich_liste_filename();
    // Up, Down one name, PgUp, PgDn a third of the rows, Left, Right one column; other keys do nothing.
    void gere_liste_filename(int key);

    int cursor() const { return cursor_; }
    // What the view does not show: the name of the cursor whole where it is cut, the cursor's place in the
    // list where the list scrolls.
    std::string hidden_part() const;

private:
    void color_case_filename(int index, bool on) const;
    int count() const { return static_cast<int>(names_.size()); }
    int columns() const;

    std::span<const std::string> names_;
    int first_line_, last_line_;
    int rows_;
    int cursor_ = 0;
    int first_column_ = 0; // shown
};

} // namespace kq
