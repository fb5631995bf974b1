// format: the files and command lines of a BLAST search.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kq {

// Where the programs are when nothing else is said.
inline constexpr std::string_view blast_directory = "/usr/local/blast/bin/";

// The program, and the names of its files in the directory that it works in.
struct BlastSearch {
    std::string program;                 // blastn or blastp
    std::string database, query, output; // two FASTA files, and the table of hits
};

// The search in an alignment of nucleic acids or of proteins. The files carry the alignment's name where it
// is a plain one (is_plain_name): some BLAST programs are wrappers that hand names to a shell.
BlastSearch blast_search(std::string_view alignment, bool protein);

// The command that indexes the database, and the one that searches it. The programs' own option style: values
// are glued to their letters.
std::vector<std::string> formatdb_command(std::string_view directory, const BlastSearch& search);
std::vector<std::string> blastall_command(std::string_view directory, const BlastSearch& search);

} // namespace kq
