// screen: the file chooser, the first screen of every cycle: a paged grid of the alignments in dir_SEQ.
#pragma once

#include "screen/bindings.h"

#include <string>
#include <vector>

namespace kq {

extern int nbline_file_ALI;     // names per screen column
extern int max_file_ALI;        // names per page, at least 1
extern int nb_file_ALI;         // .ali files in dir_SEQ
extern int no_page, nb_page;    // current page from 0, number of pages
extern int nb_file_ALI_affiche; // names on the current page

// Returns when an alignment has been loaded and `caractere` is set.
void choice_File();
// The highlight as at program start (tests).
void chooser_reset();

// The files of the taxonomy that are shown above the grid.
struct TaxonomyFiles {
    std::string frame, groups, colors; // full paths
};
TaxonomyFiles taxonomy_files(); // app/chooser_keys.cpp

// What has to be drawn after a key.
enum class ChooserRedraw { nothing, highlight, grid, screen, done };

// The chooser's screen. Moves return what to draw; the highlight is an index within the page.
class Chooser {
public:
    ChooserRedraw move(int step);    // along the page, wrapping around
    ChooserRedraw column_left();     // same line one screen column to the left, wrapping around
    ChooserRedraw column_right();    // likewise
    ChooserRedraw turn_page(int by); // to the page's first name, if there is such a page
    ChooserRedraw open_file();       // reads the highlighted file
    ChooserRedraw ask_to_exit();
    ChooserRedraw help();
    ChooserRedraw other_program(); // a companion program takes the place of this one
    ChooserRedraw choose_geometry();

private:
    friend void choice_File();
    std::vector<std::string> filename_ALI_; // the names of the current page

    void init_choice_File();
    void read_name_file_ALI();
    void draw(ChooserRedraw what, int old_index) const;
    void affich_choice_File() const;
    void affich_bandeau() const;
    void affich_time() const;
    void affich_all_case_choice_File() const;
    void color_case_choice_File(int index, bool highlighted) const;
};

using ChooserAction = ChooserRedraw (*)(Chooser&);
extern const KeyTable<ChooserAction> chooser_keys; // app/chooser_keys.cpp

} // namespace kq
