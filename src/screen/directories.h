// model: the directories that everything is read from and written to; filled once at start by init_dir.
#pragma once

#include <string>

namespace kq {

inline constexpr int max_directory_length = 89; // longer ones are refused at start
inline constexpr int max_path_length = 99;      // of the current-file names

// Each ends with "/".
extern std::string dir_ZOLTEXE; // frames, help pages, fonts, companion programs
extern std::string dir_ALI;     // package alignment directory
extern std::string dir_DATA;    // package data files, .nom and .col files, configuration
extern std::string dir_ZOLT;    // package root
extern std::string dir_SEQ;     // the user's alignments and the files written beside them
extern std::string dir_TYPE;    // kept for the package

// Reads ZOLTEXE and ZOLT; a missing or over-long one ends the program before any window is opened.
void init_dir();

// The path of a file that ships with the program (help page, font, matrix): in dir_ZOLTEXE when it is there,
// else in the installation's share directory (or the one that KQ_SHARE names) when it is there, else the
// dir_ZOLTEXE path.
std::string shipped_file(const std::string& name);

} // namespace kq
