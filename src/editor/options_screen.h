// screen: the display options (key F8) and the palette editor.
#pragma once

namespace kq {

// The options screen; writes the options file when it is left. A failure to write is a warning.
void choice_config_affiche();
// The box of the options with its labels, which becomes the text window; and the current values in it.
void affich_cadre_config_affiche();
void affich_config_affiche();

// The palette editor: moves residue letters of the current molecule type from one colour class to another.
// F5 keeps the changes; ESCAPE restores them, also when the file could not be written.
void choice_palette();
// The letters of each colour class in the text window of the palette editor, without their first `skipped`.
void affich_palette(int skipped = 0);

} // namespace kq
