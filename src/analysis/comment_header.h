// format: what the files of an analysis begin with, and the identifiers in them. Opens no box.
#pragma once

#include "analysis/put_text.h"

#include <string>
#include <string_view>

namespace kq {

// The comment lines above a matrix or tree ('m') or above sequences ('s'), for the file that nomfic names. A
// matrix says which distance it holds (type_dist).
std::string comment_header(char kind);
bool write_comment(const PutText& file, char kind);

// How an identifier is fitted to the file it stands in.
enum IdentifierMode : int {
    identifier_joined = 1,   // every blank is "_"
    identifier_trimmed = 2,  // no blanks at the end
    identifier_binomial = 3, // the blank between the first two words is "_"
    identifier_quoted = 4,   // the same as a quoted NEXUS token
};

// The identifier of species i of the analysis, at most `length` characters, quotes not counted. It follows
// the display option opt_identificateur:
// - 0: whole, with up to 78 "_" after it, 80 characters in all;
// - 1: genus abbreviated ("H. sapiens"), without anything after it;
// - 2: the first word, with blanks after it, 80 characters in all.
// A name without a blank is left whole by 1 and 2.
std::string identificateur(int i, int length, IdentifierMode mode);
// Writes it; returns the number of characters, or -1 where `file` said to stop.
int write_identificateur(const PutText& file, int i, int length, IdentifierMode mode);

// A NEXUS token in single quotes; a quote inside it is doubled.
std::string nexus_quoted(std::string_view text);

} // namespace kq
