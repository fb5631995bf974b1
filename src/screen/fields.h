// screen: one-line input fields and the file-name prompt.
#pragma once

#include <string>
#include <string_view>

namespace kq {

// Edits `text` in place at (line, column) of the text window, at most max_length characters; returns the key
// that ended the edit. A field wider than the room on the screen scrolls sideways.
int input_texte(std::string& text, int max_length, int line, int column);
int input_int(int& value, int min, int max, int line, int column);
int input_float(float& value, float min, float max, int line, int column);

// 0 = the text is a valid number within the bounds and was stored, -1 = invalid (value unchanged).
int verif_int(std::string_view text, int& value, int min, int max);
int verif_float(std::string_view text, float& value, float min, float max);

// The characters that no file name may hold.
extern const std::string_view forbidden_in_file_names;

enum class NameMode { read, write, unchecked }; // must exist / asks before overwriting / no check
// Asks for a file name; `name` in/out, with its extension (without the directory). 0 or -1 on ESCAPE.
int saisir_nom_fichier(std::string_view prompt, std::string& name, std::string_view extension,
                       std::string_view directory, NameMode mode, int line);

} // namespace kq
