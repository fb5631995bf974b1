// screen: the file chooser, the first screen of every cycle.
#pragma once

#include "screen/bindings.h"

namespace kq {

extern int nbline_file_ALI;     // names per screen column
extern int max_file_ALI;        // names per page
extern int nb_file_ALI;         // .ali files in dir_SEQ
extern int no_page, nb_page;    // current page from 0, number of pages
extern int nb_file_ALI_affiche; // names on the current page

// Returns when an alignment has been loaded and `caractere` is set.
void choice_File();

class Chooser; // the screen's state, in chooser.cpp
using ChooserAction = void (*)(Chooser&);
extern const KeyTable<ChooserAction> chooser_keys; // app/chooser_keys.cpp

} // namespace kq
