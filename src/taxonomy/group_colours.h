// screen: the colours of groups: of their names, and the keys that give them.
#pragma once

namespace kq {

// Text colour = the group's colour, or light grey when it has none.
void select_color_groupe(int group);
// Background for a group's name: off -> black; on -> dark grey for the bright colours, white for the dark
// ones.
void select_bk_color_groupe(int group, bool on);

// Gives the group the colour of a key: "0" to "9" colours 1 to 10, "/" 11, "*" 12, "-" 13, "+" 14, "." 15
// (the numeric keypad). Other keys do nothing. Deliberate: only the low 8 bits of the key's code count.
void affect_color_groupe(int key, int group);

// The legend of these keys, each in its colour, on a line of the text window: of the list of groups, where F2
// loads another colour file, or of the tree.
enum class ColourLegend { list, tree };
void affich_bandeau_color_groupe(int line, ColourLegend legend);

} // namespace kq
