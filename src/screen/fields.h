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
// The same for a single field: other keys than ENTER, true, and ESCAPE, false, do not end the edit.
bool enter_texte(std::string& text, int max_length, int line, int column);
bool enter_int(int& value, int min, int max, int line, int column);

// 0 = the text is a valid number within the bounds and was stored, -1 = invalid (value unchanged).
int verif_int(std::string_view text, int& value, int min, int max);
int verif_float(std::string_view text, float& value, float min, float max);

// The characters that no file name may hold.
extern const std::string_view forbidden_in_file_names;

// The longest name, with its extension, that the prompt accepts.
inline constexpr int max_file_name_length = 95;

struct NameCheck {
    std::string complaint; // a warning for the user, or empty
    bool extension_added;  // the name had none
};
// Checks a file name as typed and completes it: the extension is added, or, with a complaint, put in the
// place of another one. An extension begins at the first ".".
NameCheck check_file_name(std::string& name, std::string_view extension);

enum class NameMode { read, write, unchecked }; // must exist / asks before overwriting / no check
// Asks for a file name in a box of three lines; `name` in/out, with its extension (without the directory).
// 0, or -1 on ESCAPE; then `name` is as it was.
int saisir_nom_fichier(std::string_view prompt, std::string& name, std::string_view extension,
                       std::string_view directory, NameMode mode, int line);

} // namespace kq
