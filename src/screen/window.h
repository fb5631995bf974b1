// screen: opening the window, its geometry file pyx.sys, and the geometry dialog.
#pragma once

#include <string_view>

namespace kq {

inline constexpr std::string_view program_title =
    "kq   Version 5.51 [Linux]  16 May 2007  (K.Osterlin  Universite de Valombre)";

// (Re)creates the window from the geometry globals of screen/text.h and loads the font of _type_font and the
// cell size: <exe dir>/cour<h>.fnt, <exe dir>/xm<w>x<h>.fnt, then the same names in the installation's share
// directory, else the built-in font that fits best. When no window can be had the program ends with status 1
// and a sentence that says what is needed.
void open_window(std::string_view title);

// pyx.sys in dir_DATA: font type, cell height, cell width, lines, columns, one decimal number a line.
// Missing file or a value outside its bounds: the defaults of screen/text.h, all five.
void read_config_pyx();
void save_config_pyx();

void choice_option_window(std::string_view title); // the geometry dialog
void choice_size_font();                           // the cell-size menu

} // namespace kq
