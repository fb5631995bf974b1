// format: changes lines of a species-to-group (.nom) file. Opens no box.
#pragma once

#include <span>
#include <string>
#include <string_view>

namespace kq {

// What a species' line is to say: its key (what lines are compared with, see nom_key) and its group's name.
struct GroupLine {
    std::string key, group;
};

// Whether a line can hold the key: a comma would end it early.
bool fits_in_nom_line(std::string_view key);

// The text of a .nom file after these changes, made one after the other. The first line with the species' own
// name is replaced by "key , group"; without one the new line goes in before the first line whose name sorts
// after the key (case-insensitive, whatever the locale), else at the end. All other lines stay as they are;
// a last line without a newline gets one before another follows.
//
// A line's name is what stands before its comma (before its end without one), as the reader takes it: without
// trailing blanks, at most 79 characters.
std::string with_group_lines(std::string_view text, std::span<const GroupLine> changes);

// Makes these changes to the file; the version before them becomes its backup, the path cut at its first "."
// and ".bak". Empty on success, else what failed; then both are as they were (see screen/safe_replace.h; the
// temporary names are KQ_NOM.TMP and KQ_NOMBAK.TMP).
std::string rewrite_nom_file(const std::string& path, std::span<const GroupLine> changes);

} // namespace kq
